/// What is open or allocated in the layer right now, by kind: how tests see a leak.
#pragma once

#include <map>
#include <string>

namespace platform {

/// Adds to (or takes from) the number of objects of a kind that are alive: "heap block", "printer",
/// "registry key", "device context", "font", "bitmap", "socket", "module", "process", "thread"...
/// \param kind  a literal.
void CountObject(const char* kind, int change) noexcept;

/// The kinds with at least one object alive, and how many. Empty when nothing is held.
[[nodiscard]] std::map<std::string, int> LiveObjects();

}  // namespace platform
