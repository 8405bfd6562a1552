/// The program that uninstalls the family's software.
#pragma once

#include "common/fixed_text.h"

namespace oemui {

/// A file name, cut at 259 characters.
using ProgramName = FixedText<MAX_PATH>;

/// The longest program name that is started.
inline constexpr std::size_t kMaxExecutableLength = 249;

using CommandLine = FixedText<264>;

/// The program that the model's settings file names (section "OEMUninstall", key "Executable");
/// empty when it names none.
[[nodiscard]] ProgramName UninstallerName();

/// Starts the uninstaller, if there is one, and does not wait for it.
void StartUninstaller();

/// The uninstaller's command line: the program, the settings file, each with a blank behind; empty
/// when the program is empty or longer than 249 characters.
[[nodiscard]] CommandLine BuildUninstallCommand(TextView executable, TextView settingsFile);

}  // namespace oemui
