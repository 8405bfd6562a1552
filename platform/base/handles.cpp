#include "platform/base/handles.h"

#include <atomic>

namespace platform {

std::uintptr_t NextHandleValue() {
    static std::atomic<std::uintptr_t> last = 0x100;
    return last += 4;
}

}  // namespace platform
