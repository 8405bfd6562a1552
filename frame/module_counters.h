/// What keeps the module loaded: plug-in objects that are alive, and locks on the server.
#pragma once

#include <windows.h>

#include <atomic>

namespace oemui {

/// Both change from any thread.
inline constinit std::atomic<INT32> liveObjectCount{0};
inline constinit std::atomic<INT32> serverLockCount{0};

}  // namespace oemui
