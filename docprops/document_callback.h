/// What happens on the document page while it is shown.
#pragma once

#include "common/oem_driver_interface.h"

namespace oemui {

/// The page's callback: keeps the private devmode and the plug-in's items in step, resolves
/// conflicts at apply, opens the watermark editor. Without a private devmode it changes nothing.
/// \return the `CPSUICB_ACTION_...` code for the reason. Property sheet's thread.
LONG APIENTRY DocumentPropertyCallback(PCPSUICBPARAM callback, POEMCUIPPARAM params) noexcept;

}  // namespace oemui
