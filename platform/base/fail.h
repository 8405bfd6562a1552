/// How a function of the layer fails.
#pragma once

#include <winbase.h>

namespace platform {

/// Sets the thread's last error. \return the answer with which the platform's function says so:
/// FALSE, null or 0 unless another is given.
template <typename Answer = BOOL>
Answer Fail(DWORD error, Answer answer = {}) {
    SetLastError(error);
    return answer;
}

}  // namespace platform
