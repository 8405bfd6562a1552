/// How a function of the layer fails.
#pragma once

#include <winbase.h>
#include <winerror.h>

#include <concepts>
#include <exception>
#include <new>

namespace platform {

/// Sets the thread's last error. \return the answer with which the platform's function says so:
/// FALSE, null or 0 unless another is given.
template <typename Answer = BOOL>
Answer Fail(DWORD error, Answer answer = {}) {
    SetLastError(error);
    return answer;
}

/// Does an operation that answers a result code; what it throws becomes one, since whoever calls
/// the layer knows no exceptions.
template <std::invocable Operation>
DWORD Contained(Operation operation) noexcept {
    try {
        return operation();
    } catch (const std::bad_alloc&) {
        return ERROR_NOT_ENOUGH_MEMORY;
    } catch (const std::exception&) {
        return ERROR_GEN_FAILURE;
    }
}

/// The answer of an operation that came to a result code: TRUE for success, or its failure.
inline BOOL Answer(DWORD result) {
    return result == 0 || Fail(result);
}

}  // namespace platform
