/// Controls by the names of their classes. For the user-interface thread only.
#pragma once

#include <memory>

#include "platform/gui/controls/control.h"

namespace platform {

/// Makes the control of a template in pixels of the dialog's client area; null for a class that is
/// not supported.
std::unique_ptr<Control> MakeControl(ControlOwner& owner, const ControlTemplate& made,
                                     const QRect& place);

}  // namespace platform
