/// The papers whose length is never checked.
#pragma once

#include "common/oem_driver_interface.h"

namespace oemui {

/// Loads the names of the papers that are never checked. Entries that a load does not reach keep
/// their earlier text. Property sheet's thread, as everything here.
void LoadExemptPaperNames();

/// Whether the devmode's paper is one that is never checked.
[[nodiscard]] bool IsExemptPaper(const OEMCUIPPARAM& params);

}  // namespace oemui
