#include <algorithm>
#include <cstdlib>
#include <ostream>

#include "host/commands/commands.h"
#include "host/errors/failure.h"
#include "host/errors/suggestions.h"
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

// An unknown command is told with the near ones, anything else as the parser tells it.
std::string ParseErrorText(const CLI::App& app, const CLI::ParseError& error) {
    const std::vector<std::string> unknown = app.remaining();
    if (!app.get_subcommands().empty() || unknown.empty()) {
        return Shortened(error.what(), kLongestParseError);
    }
    std::vector<std::string> commands;
    for (const CLI::App* command : app.get_subcommands({})) commands.push_back(command->get_name());
    return UnknownName("command", unknown.front(), commands);
}

void Tell(std::ostream& err, std::string_view message) {
    err << "driverhost: " << Escaped(Shortened(message, kLongestMessage)) << '\n';
}

int RunParsed(CLI::App& app, const std::vector<std::string>& arguments, CommandContext& context) {
    // The parser takes its arguments from the back.
    std::vector<std::string> reversed(arguments.rbegin(), arguments.rend());
    try {
        app.parse(std::move(reversed));
        return kDone;
    } catch (const CLI::CallForHelp&) {
        const std::vector<CLI::App*> commands = app.get_subcommands();
        context.out << (commands.empty() ? app.help() : commands.front()->help());
        return kDone;
    } catch (const CLI::ParseError& error) {
        Tell(context.err, ParseErrorText(app, error) + "; driverhost --help tells more");
        return kNotUnderstood;
    }
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
    app.add_option("--machine", context.machine, "folder that holds the machine")
        ->capture_default_str();
    app.fallthrough();
    app.require_subcommand(1);
    AddInstallCommands(app, context);
    AddListCommands(app, context);
    AddPageCommands(app, context);
    AddPlayCommand(app, context);
    AddDemoCommand(app, context);
    AddPicturesCommand(app, context);
    try {
        return RunParsed(app, arguments, context);
    } catch (const UsageFailure& failure) {
        Tell(err, failure.what());
        return kNotUnderstood;
    } catch (const std::exception& failure) {
        Tell(err, MessageOf(failure));
        return kFailed;
    }
}

}  // namespace host
