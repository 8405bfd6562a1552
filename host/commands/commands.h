/// The commands of the program, an area each; every area adds its commands to the parser.
#pragma once

#include <CLI/CLI.hpp>
#include <filesystem>
#include <iosfwd>

#include "host/installation/printer_install.h"

namespace host {

/// What every command works with.
struct CommandContext {
    std::ostream& out;  ///< answers
    std::ostream& err;  ///< messages and errors
    PackageSource source;
    std::filesystem::path machine;  ///< chosen by the option that every command has
};

/// Makes the machine of the command the process's. Throws `Failure` when its folder cannot be made.
void UseChosenMachine(const CommandContext& context);

void AddInstallCommands(CLI::App& app, CommandContext& context);  ///< install, remove, uninstall
void AddListCommands(CLI::App& app, CommandContext& context);     ///< list, profile, forms
void AddPageCommands(CLI::App& app, CommandContext& context);     ///< document, printer, watermarks
void AddPlayCommand(CLI::App& app, CommandContext& context);      ///< play-printer
void AddDemoCommand(CLI::App& app, CommandContext& context);      ///< demo
void AddPicturesCommand(CLI::App& app, CommandContext& context);  ///< pictures
void AddCompletionCommand(CLI::App& app, CommandContext& context);  ///< completion

/// Runs the program. \param arguments  without its name, UTF-8.
/// \return 0 done, 1 failed, 2 not understood.
int RunHost(const std::vector<std::string>& arguments, std::ostream& out, std::ostream& err,
            const PackageSource& source);

}  // namespace host
