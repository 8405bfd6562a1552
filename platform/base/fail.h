/// How a function of the layer fails.
#pragma once

#include <winbase.h>
#include <winerror.h>

#include <concepts>
#include <new>

namespace platform {

/// Sets the thread's last error. \return the answer with which the platform's function says so:
/// FALSE, null or 0 unless another is given.
template <typename Answer = BOOL>
Answer Fail(DWORD error, Answer answer = {}) {
    SetLastError(error);
    return answer;
}

/// The result code for the exception that is being handled. Whoever calls the layer knows no
/// exceptions: every public function whose work may throw ends with a handler of all.
inline DWORD CaughtError() noexcept {
    try {
        throw;
    } catch (const std::bad_alloc&) {
        return ERROR_NOT_ENOUGH_MEMORY;
    } catch (...) {
        return ERROR_GEN_FAILURE;
    }
}

/// As `Fail`, in such a handler.
template <typename Answer = BOOL>
Answer FailCaught(Answer answer = {}) noexcept {
    return Fail(CaughtError(), answer);
}

/// Does an operation that answers a result code; what it throws becomes one.
template <std::invocable Operation>
DWORD Contained(Operation operation) noexcept {
    try {
        return operation();
    } catch (...) {
        return CaughtError();
    }
}

/// The answer of an operation that came to a result code: TRUE for success, or its failure.
inline BOOL Answer(DWORD result) {
    return result == 0 || Fail(result);
}

}  // namespace platform
