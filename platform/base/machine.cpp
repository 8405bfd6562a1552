#include "platform/base/machine.h"

#include <set>

namespace platform {
namespace {

namespace fs = std::filesystem;

constexpr const char* kDriverFolder = "Windows/System32/spool/drivers/x64/3";

fs::path& CurrentMachine() {
    static fs::path folder;
    return folder;
}

std::set<void (*)()>& LetGoOperations() {
    static std::set<void (*)()> operations;
    return operations;
}

}  // namespace

void UseMachine(const fs::path& folder) {
    for (const auto letGo : LetGoOperations()) letGo();
    CurrentMachine().clear();
    fs::create_directories(folder / kDriverFolder);
    CurrentMachine() = fs::canonical(folder);
}

void WhenMachineChanges(void (*letGo)()) {
    LetGoOperations().insert(letGo);
}

const fs::path& MachineFolder() {
    return CurrentMachine();
}

fs::path DriverFolder() {
    return CurrentMachine() / kDriverFolder;
}

}  // namespace platform
