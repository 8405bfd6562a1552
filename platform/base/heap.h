/// What a heap holds, for tests and benchmarks.
#pragma once

#include <cstddef>

namespace platform {

/// Bytes allocated now from one heap (`HeapCreate`, `GetProcessHeap`); 0 for one that is closed.
[[nodiscard]] std::size_t HeapBytes(void* heap);

}  // namespace platform
