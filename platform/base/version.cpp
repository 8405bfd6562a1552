#include <winbase.h>
#include <winerror.h>

#include <algorithm>
#include <cstring>
#include <string_view>

#include "platform/base/fail.h"
#include "platform/faults/failure_points.h"

using platform::Fail;

BOOL WINAPI GetVersionExW(LPOSVERSIONINFOW version) {
    if (const auto error = platform::InjectedFailure("GetVersionExW")) return Fail(*error);
    const DWORD size = version->dwOSVersionInfoSize;
    if (size != sizeof(OSVERSIONINFOW) && size != sizeof(OSVERSIONINFOEXW)) {
        return Fail(ERROR_INSUFFICIENT_BUFFER);
    }
    OSVERSIONINFOEXW answer{};
    answer.dwOSVersionInfoSize = size;
    answer.dwMajorVersion = 10;
    answer.dwBuildNumber = 19045;
    answer.dwPlatformId = VER_PLATFORM_WIN32_NT;
    answer.wProductType = VER_NT_WORKSTATION;
    // The longer record begins with the fields of the shorter one.
    std::memcpy(static_cast<void*>(version), &answer, size);
    return TRUE;
}

UINT WINAPI GetSystemDirectoryW(LPWSTR path, UINT size) {
    constexpr std::u16string_view kSystemDirectory = u"C:\\Windows\\System32";
    if (const auto error = platform::InjectedFailure("GetSystemDirectoryW")) {
        return Fail<UINT>(*error);
    }
    if (path == nullptr || size <= kSystemDirectory.size()) return kSystemDirectory.size() + 1;
    *std::ranges::copy(kSystemDirectory, path).out = 0;
    return kSystemDirectory.size();
}
