/// Scaling and N-up exclude each other.
#pragma once

#include "common/oem_driver_interface.h"
#include "devmode/private_devmode.h"

namespace oemui {

/// With more than one page on a sheet: tells the user, and sets scaling back to 100 percent.
void CheckScalingConflict(const OEMCUIPPARAM& params, PrivateDevmode* devmode);

}  // namespace oemui
