/// How many pages stand on a sheet, and the booklet that needs duplex.
#pragma once

#include "common/oem_driver_interface.h"
#include "devmode/private_devmode.h"

namespace oemui {

/// Pages on one sheet by the choice of the driver's N-up item: 1, 2, 4, 6, 9, 16, or 2 for
/// booklet; 1 without that item.
[[nodiscard]] UINT32 PagesPerSheetFromNup(const OEMCUIPPARAM& params);

/// A booklet needs duplex: without it the N-up item falls back to its first choice and
/// `PagesPerSheet` becomes 0.
void DropBookletWithoutDuplex(const OEMCUIPPARAM& params, PrivateDevmode* devmode);

}  // namespace oemui
