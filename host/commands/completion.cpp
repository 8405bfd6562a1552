// completion: what bash completes, from the same table of commands that the parser has.
#include <ostream>

#include "host/commands/commands.h"

namespace host {
namespace {

std::string OptionNames(const CLI::App& command) {
    std::string names;
    for (const CLI::Option* option : command.get_options()) {
        for (const std::string& name : option->get_lnames()) names += " --" + name;
    }
    return names;
}

void PrintCompletion(const CLI::App& app, std::ostream& out) {
    std::string commands;
    out << "_driverhost() {\n  local words=\n  case ${COMP_WORDS[1]} in\n";
    for (const CLI::App* command : app.get_subcommands({})) {
        commands += ' ' + command->get_name();
        out << "    " << command->get_name() << ") words='" << OptionNames(*command) << "' ;;\n";
    }
    out << "  esac\n  [ \"$COMP_CWORD\" != 1 ] || words='" << commands << "'\n"
        << "  COMPREPLY=($(compgen -W \"$words\" -- \"${COMP_WORDS[COMP_CWORD]}\"))\n}\n"
        << "complete -o default -F _driverhost ./run driverhost\n";
}

}  // namespace

void AddCompletionCommand(CLI::App& app, CommandContext& context) {
    CLI::App* command =
        app.add_subcommand("completion", "what bash completes: source <(./run completion)");
    command->callback([&app, &context] { PrintCompletion(app, context.out); });
}

}  // namespace host
