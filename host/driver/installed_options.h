/// What the driver knows of a printer's installable options: kept in the printer's data, shown on
/// the printer page, answered to the plug-in by feature keyword.
#pragma once

#include <windows.h>

#include <vector>

#include "host/driver/models.h"

namespace host {

/// As in a new printer: everything installed, automatic configuration on.
struct InstalledOptions {
    bool autoConfig = true;
    bool tray2 = true;
    bool tray3 = true;
    bool duplexUnit = true;

    /// What a printer's data holds; an option that it does not hold is as in a new printer.
    [[nodiscard]] static InstalledOptions Read(HANDLE printer);
    /// The handle needs PRINTER_ACCESS_ADMINISTER.
    void Store(HANDLE printer) const;

    /// Answers as `DrvGetDriverSetting` does: the keyword of the feature's setting. E_NOTIMPL for a
    /// feature that the model lacks; false with ERROR_INSUFFICIENT_BUFFER when it does not fit.
    /// \param needed, returned  may be null.
    [[nodiscard]] BOOL Answer(const Model& model, PCSTR feature, PVOID output, DWORD outputSize,
                              PDWORD needed, PDWORD returned) const;
};

/// A state of an option: for the driver, and for a person.
struct OptionSetting {
    const char* keyword;
    const char16_t* text;
};

struct InstallableOption {
    bool InstalledOptions::*option;
    const char* feature;   ///< the driver's name of it
    const char16_t* name;  ///< of its item, by which the plug-in finds it
    OptionSetting installed;
    OptionSetting missing;
};

/// The options of a model, in the order of their items; without a model those of the family.
[[nodiscard]] std::vector<InstallableOption> InstallableOptions(const Model* model = nullptr);

}  // namespace host
