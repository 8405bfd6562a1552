#include <windows.h>

#include "tests/support/test_machine.h"

namespace tests {

TestMachine::TestMachine() {
    WCHAR folder[MAX_PATH] = {};
    ::GetWindowsDirectoryW(folder, MAX_PATH);
    folder_ = std::filesystem::path(folder).root_path();
}

TestMachine::~TestMachine() = default;

std::string TestMachine::LeftOpen() const {
    return {};
}

}  // namespace tests
