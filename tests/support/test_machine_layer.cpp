#include <unistd.h>

#include <map>

#include "platform/base/machine.h"
#include "platform/faults/live_objects.h"
#include "tests/support/test_machine.h"

namespace tests {
namespace {

std::map<std::string, int> openBefore;

}  // namespace

void EnterFreshMachine() {
    static int number = 0;
    const std::string name =
        "oemui-test-" + std::to_string(::getpid()) + "-" + std::to_string(++number);
    platform::UseMachine(std::filesystem::temp_directory_path() / name);
    openBefore = platform::LiveObjects();
}

std::string LeaveMachine() {
    std::string left;
    for (const auto& [kind, count] : platform::LiveObjects()) {
        if (count > openBefore[kind]) left += kind + " ";
    }
    std::error_code ignored;
    std::filesystem::remove_all(platform::MachineFolder(), ignored);
    return left;
}

std::filesystem::path WindowsFolder() {
    return platform::MachineFolder() / "Windows";
}

}  // namespace tests
