#include <algorithm>
#include <cstdlib>
#include <memory>
#include <ostream>

#include "host/commands/argument_check.h"
#include "host/commands/commands.h"
#include "host/errors/failure.h"
#include "platform/base/machine.h"

namespace host {
namespace {

constexpr int kDone = 0;
constexpr int kFailed = 1;
constexpr int kNotUnderstood = 2;

constexpr std::size_t kLongestParseError = 300;
constexpr std::size_t kLongestMessage = 4000;

// Below the user's folder for data of programs; a variable that is not set or no whole path counts
// as missing.
std::filesystem::path DefaultMachine() {
    const char* dataHome = std::getenv("XDG_DATA_HOME");
    if (dataHome != nullptr && *dataHome == '/')
        return std::filesystem::path(dataHome) / "oemui/machine";
    const char* home = std::getenv("HOME");
    const std::filesystem::path base = home != nullptr && *home == '/' ? home : ".";
    return base / ".local/share/oemui/machine";
}

constexpr const char* kProgram = "./run";

/// Help whose usage line is the whole command.
class HelpFormatter final : public CLI::Formatter {
public:
    [[nodiscard]] std::string make_usage(const CLI::App* app, std::string) const override {
        std::string usage = std::string("Usage: ") + kProgram;
        if (app->get_parent() == nullptr) return usage + " COMMAND [OPTIONS]\n";
        usage += ' ' + app->get_name();
        for (const CLI::Option* option : app->get_options()) {
            if (option->get_positional()) usage += " <" + option->get_name() + '>';
        }
        for (const CLI::Option* option : app->get_options()) {
            if (option->get_required() && !option->get_positional()) {
                usage += ' ' + option->get_name() + " VALUE";
            }
        }
        return usage + " [--machine DIR] [OPTIONS]\n";
    }
};

std::string NameOf(const CLI::App* command) {
    return command->get_name();
}

// Where to look for what a wrong call should have been.
std::string HelpHint(const CLI::App& app, const std::vector<std::string>& arguments) {
    std::string hint = std::string("; ") + kProgram;
    for (const std::string& argument : arguments) {
        const auto commands = app.get_subcommands({});
        if (std::ranges::find(commands, argument, &NameOf) == commands.end()) continue;
        hint += ' ' + argument;
        break;
    }
    return hint + " --help tells more";
}

const CLI::App* ParsedCommand(const CLI::App& app) {
    const std::vector<CLI::App*> parsed = app.get_subcommands();
    return parsed.empty() ? nullptr : parsed.front();
}

void Tell(std::ostream& err, std::string_view message) {
    err << "driverhost: " << Escaped(Shortened(message, kLongestMessage)) << '\n';
}

int RunParsed(CLI::App& app, const std::vector<std::string>& arguments, CommandContext& context) {
    CheckArguments(app, arguments);
    // The parser takes its arguments from the back.
    std::vector<std::string> reversed(arguments.rbegin(), arguments.rend());
    try {
        app.parse(std::move(reversed));
        return kDone;
    } catch (const CLI::CallForHelp&) {
        const CLI::App* command = ParsedCommand(app);
        context.out << (command != nullptr ? command->help() : app.help());
        return kDone;
    } catch (const CLI::CallForVersion&) {
        context.out << app.version() << '\n';
        return kDone;
    } catch (const CLI::ParseError& error) {
        throw UsageFailure(Shortened(error.what(), kLongestParseError));
    }
}

// Every command has the option, before its name or behind it.
void AddMachineOption(CLI::App& app, CommandContext& context) {
    app.add_option("--machine", context.machine, "folder that holds the machine")
        ->capture_default_str();
}

void AddCommands(CLI::App& app, CommandContext& context) {
    AddInstallCommands(app, context);
    AddListCommands(app, context);
    AddPageCommands(app, context);
    AddPlayCommand(app, context);
    AddDemoCommand(app, context);
    AddPicturesCommand(app, context);
    AddCompletionCommand(app, context);
    AddMachineOption(app, context);
    for (CLI::App* command : app.get_subcommands({})) AddMachineOption(*command, context);
}

}  // namespace

void UseChosenMachine(const CommandContext& context) {
    const std::string folder = context.machine.native();
    if (folder.empty()) throw UsageFailure("the machine needs a folder, which has a name");
    try {
        platform::UseMachine(context.machine);
    } catch (const std::filesystem::filesystem_error& error) {
        FailWith("the machine's folder " + Quoted(folder) + " cannot be used", error.code());
    }
}

int RunHost(const std::vector<std::string>& arguments, std::ostream& out, std::ostream& err,
            const PackageSource& source) {
    CommandContext context{out, err, source, DefaultMachine()};
    CLI::App app("Plays the printer driver around its user-interface plug-in.", "driverhost");
    app.formatter(std::make_shared<HelpFormatter>());
    app.set_version_flag("--version", "driverhost " HOST_VERSION);
    app.require_subcommand(1);
    AddCommands(app, context);
    try {
        return RunParsed(app, arguments, context);
    } catch (const UsageFailure& failure) {
        Tell(err, failure.what() + HelpHint(app, arguments));
        return kNotUnderstood;
    } catch (const std::exception& failure) {
        Tell(err, MessageOf(failure));
        return kFailed;
    }
}

}  // namespace host
