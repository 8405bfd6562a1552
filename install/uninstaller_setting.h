/// Which program uninstalls the family's software.
#pragma once

#include <windows.h>

namespace oemui {

/// The program that the model's settings file names.
struct Uninstaller {
    WCHAR Executable[MAX_PATH];  ///< terminated, cut at 259 characters; empty when none is named
};

/// Reads section "OEMUninstall", key "Executable" of the settings file.
Uninstaller UninstallerSetting();

}  // namespace oemui
