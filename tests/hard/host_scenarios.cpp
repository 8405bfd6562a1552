#include <cstdlib>
#include <sstream>

#include "host/commands/commands.h"
#include "platform/base/machine.h"
#include "tests/hard/scenarios.h"

namespace hard {
namespace {

namespace fs = std::filesystem;

constexpr const char* kScript =
    "choose Watermark List = Copy\ntype Size 20\npress OK\nanswer Yes\n";
const tests::Text kPrinterData =
    TEXT("System\\CurrentControlSet\\Control\\Print\\Printers\\Office\\PrinterDriverData");

struct Command {
    const char* name;
    std::vector<std::string> arguments;  ///< "@" stands for the machine's folder
};

const std::vector<Command>& Commands() {
    static const std::vector<Command> commands = {
        {"host-install", {"install", "Second", "--model", "U", "--port", "USB002"}},
        {"host-list", {"list", "--json"}},
        {"host-document-lines", {"document", "Office", "-l"}},
        {"host-document-json", {"document", "Office", "--json"}},
        {"host-document-edit",
         {"document", "Office", "-o", "Watermark=Enabled", "--edit", "@/script.txt", "--apply"}},
        {"host-printer", {"printer", "Office", "--apply"}},
        {"host-forms", {"forms", "Office", "--add", "Narrow=90x200"}},
        {"host-profile", {"profile", "Office"}},
        {"host-remove", {"remove", "Office"}},
        {"host-uninstall", {"uninstall", "--model", "T"}},
        {"host-demo", {"demo", "@/demo"}},
    };
    return commands;
}

/// A command on a copy of a machine that has one printer.
class CommandScenario : public Scenario {
public:
    explicit CommandScenario(Command command)
        : command_(std::move(command)), scratch_(MakeFolder()), prepared_(scratch_ / "prepared") {
        RunOn(prepared_, {"install", "Office", "--model", "T", "--port", "USB001"});
        WriteFile(prepared_ / "script.txt", kScript);
        // Building the page stores the list.
        RunOn(prepared_, {"document", "Office", "-l"});
        platform::UseMachine(scratch_ / "none");
    }
    ~CommandScenario() override {
        platform::UseMachine(scratch_ / "none");
        std::error_code ignored;
        fs::remove_all(scratch_, ignored);
    }

    // A new folder each time: the uninstaller of the run before may still work in its own.
    void Restore() override {
        platform::UseMachine(scratch_ / "none");
        std::error_code ignored;
        fs::remove_all(folder_, ignored);
        folder_ = scratch_ / std::to_string(++copies_);
        fs::copy(prepared_, folder_, fs::copy_options::recursive);
        platform::UseMachine(folder_);
    }
    bool Run() override {
        std::vector<std::string> arguments = command_.arguments;
        for (std::string& argument : arguments) {
            if (argument.starts_with('@')) argument.replace(0, 1, folder_.native());
        }
        const bool isDone = RunOn(folder_, std::move(arguments));
        platform::UseMachine(folder_);
        return isDone;
    }
    std::string StoredList() const override {
        return tests::ReadRegistryValue(kPrinterData, TEXT("WaterMarkList"));
    }

private:
    static fs::path MakeFolder() {
        std::string name = (fs::temp_directory_path() / "commands-XXXXXX").string();
        return ::mkdtemp(name.data()) == nullptr ? fs::path() : fs::path(name);
    }
    static bool RunOn(const fs::path& machine, std::vector<std::string> arguments) {
        std::ostringstream out;
        std::ostringstream err;
        arguments.insert(arguments.end(), {"--machine", machine.native()});
        return host::RunHost(arguments, out, err, host::OwnPackageSource()) == 0;
    }

    Command command_;
    fs::path scratch_;
    fs::path prepared_;
    fs::path folder_;
    unsigned copies_ = 0;
    tests::PatientUser user_;
};

}  // namespace

std::vector<ScenarioRow> CommandScenarios() {
    std::vector<ScenarioRow> rows;
    for (const Command& command : Commands()) {
        rows.push_back(
            {command.name, [command] { return std::make_unique<CommandScenario>(command); }});
    }
    return rows;
}

}  // namespace hard
