#include "host/commands/argument_check.h"

#include <algorithm>
#include <set>

#include "host/errors/failure.h"
#include "host/errors/suggestions.h"

namespace host {
namespace {

// "--name", "--name=value", "-o"; a lone hyphen and negative numbers are values.
bool IsOption(const std::string& argument) {
    return argument.size() > 1 && argument[0] == '-' && (argument[1] < '0' || argument[1] > '9');
}

const CLI::Option* FindOption(const CLI::App& app, const std::string& name) {
    return app.get_option_no_throw(name);
}

bool TakesNextArgument(const CLI::Option& option, const std::string& argument) {
    return option.get_expected_max() > 0 && argument.find('=') == std::string::npos;
}

bool MayComeAgain(const CLI::Option& option) {
    return option.get_multi_option_policy() == CLI::MultiOptionPolicy::TakeAll;
}

std::vector<std::string> LongNames(const CLI::App& app) {
    std::vector<std::string> names;
    for (const CLI::Option* option : app.get_options()) {
        for (const std::string& name : option->get_lnames()) names.push_back("--" + name);
    }
    return names;
}

[[noreturn]] void RefuseOption(const CLI::App& app, const CLI::App& command,
                               const std::string& name) {
    for (const CLI::App* other : app.get_subcommands({})) {
        if (FindOption(*other, name) == nullptr) continue;
        throw UsageFailure("option " + Quoted(name) + " is one of " + Quoted(other->get_name()) +
                           ", not of " + Quoted(command.get_name()));
    }
    throw UsageFailure(UnknownName("option", name, LongNames(command)));
}

/// Goes through a command's arguments, each of which must be known.
class Reader {
public:
    Reader(const CLI::App& app, const CLI::App& command) : app_(app), command_(command) {}

    /// \return whether the next argument is the option's value.
    bool ReadOption(const std::string& argument) {
        const std::string name = argument.substr(0, argument.find('='));
        const CLI::Option* option = FindOption(command_, name);
        if (option == nullptr) RefuseOption(app_, command_, name);
        if (!seen_.insert(option).second && !MayComeAgain(*option)) {
            throw UsageFailure("option " + Quoted(name) + " is given twice");
        }
        return TakesNextArgument(*option, argument);
    }

private:
    const CLI::App& app_;
    const CLI::App& command_;
    std::set<const CLI::Option*> seen_;
};

// Where the command's name stands; the end when there is none.
std::size_t CommandPlace(const CLI::App& app, const std::vector<std::string>& arguments) {
    std::size_t place = 0;
    while (place < arguments.size() && IsOption(arguments[place])) {
        const std::string name = arguments[place].substr(0, arguments[place].find('='));
        const CLI::Option* option = FindOption(app, name);
        if (option == nullptr) throw UsageFailure(UnknownName("option", name, LongNames(app)));
        place += TakesNextArgument(*option, arguments[place]) ? 2 : 1;
    }
    return std::min(place, arguments.size());
}

}  // namespace

const CLI::App* NamedCommand(const CLI::App& app, const std::vector<std::string>& arguments) {
    const std::size_t place = CommandPlace(app, arguments);
    if (place == arguments.size()) return nullptr;
    std::vector<std::string> known;
    for (const CLI::App* command : app.get_subcommands({})) {
        if (command->get_name() == arguments[place]) return command;
        known.push_back(command->get_name());
    }
    throw UsageFailure(UnknownName("command", arguments[place], known));
}

void CheckArguments(const CLI::App& app, const std::vector<std::string>& arguments) {
    const CLI::App* command = NamedCommand(app, arguments);
    if (command == nullptr) return;
    Reader reader(app, *command);
    for (std::size_t i = CommandPlace(app, arguments) + 1; i < arguments.size(); ++i) {
        if (arguments[i] == "--") return;
        if (IsOption(arguments[i]) && reader.ReadOption(arguments[i])) ++i;
    }
}

}  // namespace host
