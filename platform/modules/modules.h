/// The modules that are mapped, by their handles.
#pragma once

#include "platform/modules/module_registration.h"

namespace platform {

/// The module behind a handle; with a null handle the program itself. Null when the handle is no
/// module's, or the program has no resources of its own. Valid until the module is unmapped.
const ModuleImage* FindModule(HINSTANCE module);

}  // namespace platform
