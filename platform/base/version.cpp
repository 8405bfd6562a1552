#include <winbase.h>
#include <winerror.h>

#include <algorithm>
#include <cstring>
#include <mutex>
#include <string_view>

#include "platform/base/version.h"
#include "platform/faults/failure_points.h"

namespace platform {
namespace {

std::mutex mutex;
SystemVersion current;

SystemVersion CurrentVersion() {
    const std::lock_guard lock(mutex);
    return current;
}

}  // namespace

void ReplaceSystemVersion(const SystemVersion& version) {
    const std::lock_guard lock(mutex);
    current = version;
}

}  // namespace platform

BOOL WINAPI GetVersionExW(LPOSVERSIONINFOW version) {
    DWORD error = ERROR_INSUFFICIENT_BUFFER;
    const DWORD size = version->dwOSVersionInfoSize;
    if (platform::MustFail("GetVersionExW", &error) ||
        (size != sizeof(OSVERSIONINFOW) && size != sizeof(OSVERSIONINFOEXW))) {
        SetLastError(error);
        return FALSE;
    }
    const platform::SystemVersion current = platform::CurrentVersion();
    OSVERSIONINFOEXW answer{};
    answer.dwOSVersionInfoSize = size;
    answer.dwMajorVersion = current.major;
    answer.dwMinorVersion = current.minor;
    answer.dwBuildNumber = current.build;
    answer.dwPlatformId = current.platformId;
    answer.wProductType = VER_NT_WORKSTATION;
    // The longer record begins with the fields of the shorter one.
    std::memcpy(static_cast<void*>(version), &answer, size);
    return TRUE;
}

UINT WINAPI GetSystemDirectoryW(LPWSTR path, UINT size) {
    constexpr std::u16string_view kSystemDirectory = u"C:\\Windows\\System32";
    DWORD error;
    if (platform::MustFail("GetSystemDirectoryW", &error)) {
        SetLastError(error);
        return 0;
    }
    if (path == nullptr || size <= kSystemDirectory.size()) return kSystemDirectory.size() + 1;
    *std::copy(kSystemDirectory.begin(), kSystemDirectory.end(), path) = 0;
    return kSystemDirectory.size();
}
