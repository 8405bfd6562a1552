#include <winbase.h>
#include <winerror.h>

#include <algorithm>
#include <string>

#include "platform/base/fail.h"
#include "platform/faults/failure_points.h"
#include "platform/text/text_encoding.h"

using platform::Fail;

int WINAPI WideCharToMultiByte(UINT codePage, DWORD, LPCWSTR text, int length, LPSTR destination,
                               int capacity, LPCSTR defaultCharacter, BOOL* usedDefault) try {
    if (const auto error = platform::InjectedFailure("WideCharToMultiByte")) {
        return Fail<int>(*error);
    }
    if (codePage != CP_ACP || text == nullptr || length != -1 || destination == nullptr ||
        capacity <= 0 || defaultCharacter != nullptr || usedDefault != nullptr) {
        return Fail<int>(ERROR_INVALID_PARAMETER);
    }
    const std::string converted = platform::EncodeWindows1252(text) + '\0';
    if (converted.size() > static_cast<std::size_t>(capacity)) {
        return Fail<int>(ERROR_INSUFFICIENT_BUFFER);
    }
    std::ranges::copy(converted, destination);
    return static_cast<int>(converted.size());
} catch (...) {
    return platform::FailCaught<int>();
}
