#include <cstdlib>
#include <stdexcept>

#include "platform/base/machine.h"
#include "platform/faults/live_objects.h"
#include "tests/support/test_machine.h"

namespace tests {

TestMachine::TestMachine() {
    std::string name = (std::filesystem::temp_directory_path() / "oemui-test-XXXXXX").string();
    if (mkdtemp(name.data()) == nullptr) throw std::runtime_error("no temporary folder");
    platform::UseMachine(name);
    folder_ = platform::MachineFolder();
    openBefore_ = platform::LiveObjects();
}

TestMachine::~TestMachine() {
    // Closes the registry before its file goes; the next test chooses a machine of its own.
    platform::UseMachine(folder_);
    std::error_code ignored;
    std::filesystem::remove_all(folder_, ignored);
}

std::string TestMachine::LeftOpen() const {
    std::string left;
    for (const auto& [kind, count] : platform::LiveObjects()) {
        const auto before = openBefore_.find(kind);
        if (before == openBefore_.end() || count > before->second) left += kind + " ";
    }
    return left;
}

}  // namespace tests
