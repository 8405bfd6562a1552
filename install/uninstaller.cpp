#include "install/uninstaller.h"

#include "common/model_identity.h"
#include "common/unique_handle.h"

namespace oemui {
namespace {

using UniqueProcessHandle = UniqueHandle<HANDLE, ::CloseHandle>;

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

ProgramName UninstallerName() {
    ProgramName name;
    name.CutAt(::GetPrivateProfileStringW(TEXT("OEMUninstall"), TEXT("Executable"), TEXT(""),
                                          name.Room(), MAX_PATH, Model().SettingsFile));
    return name;
}

void StartUninstaller() {
    CommandLine command =
        BuildUninstallCommand(UninstallerName().View(), TextIn(Model().SettingsFile));
    if (!command.empty()) StartProgram(command.Room());
}

CommandLine BuildUninstallCommand(TextView executable, TextView settingsFile) {
    CommandLine command;
    const bool isStarted = !executable.empty() && executable.size() <= kMaxExecutableLength;
    if (!isStarted || !command.Join({executable, TEXT(" "), settingsFile, TEXT(" ")})) return {};
    return command;
}

}  // namespace oemui
