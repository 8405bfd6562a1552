/// The printer's optional hardware.
#pragma once

namespace oemui {

/// What is installed; everything, as long as nobody says otherwise.
struct InstalledOptions {
    bool Tray2 = true;
    bool Tray3 = true;
    bool Duplex = true;

    bool operator==(const InstalledOptions&) const = default;
};

}  // namespace oemui
