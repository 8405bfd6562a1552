#include "install/driver_event.h"

#include <cstring>

#include "common/join_text.h"
#include "common/model_identity.h"
#include "common/oem_driver_interface.h"
#include "common/unique_handle.h"
#include "install/uninstaller_setting.h"

namespace oemui {
namespace {

using UniqueProcessHandle = UniqueHandle<HANDLE, ::CloseHandle>;

constexpr WCHAR kProfileName[] = TEXT("OEMPROFILE.icm");
static_assert(sizeof kProfileName == 30);

/// The size reported for the profile's name, in bytes; two more than it needs.
constexpr ULONG kProfileSize = 32;

void StartProgram(LPWSTR commandLine) {
    STARTUPINFOW startup = {};
    startup.cb = sizeof startup;
    PROCESS_INFORMATION process = {};
    if (!::CreateProcessW(nullptr, commandLine, nullptr, nullptr, FALSE, 0, nullptr, nullptr,
                          &startup, &process)) {
        return;
    }
    const UniqueProcessHandle processHandle(process.hProcess);
    const UniqueProcessHandle threadHandle(process.hThread);
}

}  // namespace

HRESULT HandleDriverEvent(DWORD event) {
    if (event != DRIVER_EVENT_DELETE) return E_NOTIMPL;
    const Uninstaller setting = UninstallerSetting();
    WCHAR commandLine[kCommandLineCapacity];
    if (BuildUninstallCommand(TextIn(setting.Executable), TextIn(Model().SettingsFile),
                              commandLine)) {
        StartProgram(commandLine);
    }
    return E_NOTIMPL;
}

bool BuildUninstallCommand(TextView executable, TextView settingsFile,
                           WCHAR (&commandLine)[kCommandLineCapacity]) {
    if (executable.empty() || executable.size() > kMaxExecutableLength) return false;
    return JoinText(commandLine, {executable, TEXT(" "), settingsFile, TEXT(" ")});
}

HRESULT QueryColorProfile(ULONG queryMode, void* profile, ULONG* size, DWORD* flags) {
    if (queryMode != QCP_DEVICEPROFILE || size == nullptr) return E_FAIL;
    const ULONG room = *size;
    *size = kProfileSize;
    if (profile == nullptr || room < kProfileSize) {
        ::SetLastError(ERROR_INSUFFICIENT_BUFFER);
        return E_FAIL;
    }
    // The caller's buffer is a row of bytes: it need not be aligned for text.
    std::memcpy(profile, kProfileName, sizeof kProfileName);
    if (flags != nullptr) *flags = QCP_PROFILEDISK;
    return S_OK;
}

}  // namespace oemui
