/// The driver's document settings that depend on what is installed in the printer.
#pragma once

#include "common/oem_driver_interface.h"
#include "printerprops/pjl_query.h"

namespace oemui {

/// Enables or disables duplex, booklet and the paper sources by what is installed: asked of the
/// printer, or taken from the driver's settings when the printer is not to be asked or cannot be.
/// Property sheet's thread; may wait for the printer.
void AdjustDriverItems(POEMCUIPPARAM params);

/// The installed options as the driver's settings have them; everything when the driver cannot be
/// asked.
[[nodiscard]] InstalledOptions ReadInstalledOptions(const OEMCUIPPARAM& params);

}  // namespace oemui
