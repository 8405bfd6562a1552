/// Mistakes among the options of a command line, each named as what it is, before the parser, which
/// would tell all of them alike, sees it.
#pragma once

#include <CLI/CLI.hpp>
#include <string>
#include <vector>

namespace host {

/// Throws `UsageFailure` for the first argument, in the order written, that is no command, an
/// option that no command or only another one has, or one that is given twice and can be given
/// once.
void CheckArguments(const CLI::App& app, const std::vector<std::string>& arguments);

/// The command that the arguments name; null when they name none.
[[nodiscard]] const CLI::App* NamedCommand(const CLI::App& app,
                                           const std::vector<std::string>& arguments);

}  // namespace host
