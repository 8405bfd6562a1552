/// The "Edit" button of the watermark item.
#pragma once

#include "common/oem_driver_interface.h"
#include "devmode/private_devmode.h"

namespace oemui {

/// Opens the watermark editor on the printer's list, if the button is the watermark item's and the
/// watermark is enabled, and takes the user's choice into the devmode.
/// \return the `CPSUICB_ACTION_...` code.
[[nodiscard]] LONG OpenWatermarkEditor(const CPSUICBPARAM& callback, const OEMCUIPPARAM& params,
                                       PrivateDevmode* devmode);

/// Records the selected paper's size for the editor's preview (`PreviewPaperSize`).
/// \return the page's orientation, 1 portrait, 2 landscape.
UINT32 CaptureEditorPageSetup(const OEMCUIPPARAM& params);

}  // namespace oemui
