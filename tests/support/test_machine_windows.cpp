#include <windows.h>

#include "tests/support/test_machine.h"

namespace tests {

void EnterFreshMachine() {}

std::string LeaveMachine() {
    return {};
}

std::filesystem::path WindowsFolder() {
    WCHAR folder[MAX_PATH] = {};
    ::GetWindowsDirectoryW(folder, MAX_PATH);
    return folder;
}

}  // namespace tests
