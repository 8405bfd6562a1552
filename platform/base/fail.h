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

/// The answer of an operation that came to a result code: TRUE for success, or its failure.
inline BOOL Answer(DWORD result) {
    return result == 0 || Fail(result);
}

}  // namespace platform
