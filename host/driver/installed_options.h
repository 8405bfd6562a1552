/// What the driver knows of a printer's installable options: kept in the printer's data, shown on
/// the printer page, answered to the plug-in by feature keyword.
#pragma once

#include <windows.h>

#include <array>
#include <cstddef>
#include <string_view>

#include "host/driver/models.h"

namespace host {

enum class InstalledOption : std::uint8_t { AutoConfig, Tray2, Tray3, DuplexUnit };
inline constexpr std::size_t kInstalledOptions = 4;

/// The driver's name of an option and of its two settings; setting 0 is on or installed.
struct OptionKeywords {
    InstalledOption option;
    const char* feature;
    std::array<const char*, 2> settings;
};

/// In the order of `InstalledOption`.
const std::array<OptionKeywords, kInstalledOptions>& AllOptionKeywords();

class InstalledOptions {
public:
    /// Everything installed, automatic configuration on.
    InstalledOptions() = default;

    /// What a printer's data holds; an option that it does not hold is as in a new printer.
    static InstalledOptions Read(HANDLE printer);
    /// The handle needs PRINTER_ACCESS_ADMINISTER.
    void Store(HANDLE printer) const;

    DWORD Setting(InstalledOption option) const {
        return settings_[static_cast<std::size_t>(option)];
    }
    void Set(InstalledOption option, DWORD setting) {
        settings_[static_cast<std::size_t>(option)] = setting;
    }

    /// Answers as `DrvGetDriverSetting` does: the keyword of the feature's setting. E_NOTIMPL for a
    /// feature that the model lacks; false with ERROR_INSUFFICIENT_BUFFER when it does not fit.
    /// \param needed, returned  may be null.
    BOOL Answer(const Model& model, PCSTR feature, PVOID output, DWORD outputSize, PDWORD needed,
                PDWORD returned) const;

private:
    std::array<DWORD, kInstalledOptions> settings_{};
};

}  // namespace host
