/// The limits that the media type and duplex put on the length of the paper, on the model that has
/// them.
#pragma once

#include "common/oem_driver_interface.h"

namespace oemui {

/// Checks the length of the devmode's paper against the limits, and tells the user each one that
/// it breaks. A paper whose length cannot be found out breaks none.
[[nodiscard]] bool CheckCustomPaperLength(const OEMCUIPPARAM& params);

/// Sets the driver's paper item, and the devmode's form name, to the first paper.
void ResetPaperToFirstForm(const OEMCUIPPARAM& params);

}  // namespace oemui
