/// What happens on the document page while it is shown.
#pragma once

#include "common/oem_driver_interface.h"
#include "devmode/private_devmode.h"

namespace oemui {

/// The page's callback: keeps the private devmode and the plug-in's items in step, resolves
/// conflicts at apply, opens the watermark editor. Without a private devmode it changes nothing.
/// \return the `CPSUICB_ACTION_...` code for the reason. Property sheet's thread.
LONG APIENTRY DocumentPropertyCallback(PCPSUICBPARAM callback, POEMCUIPPARAM params);

/// Pages on one sheet by the choice of the driver's N-up item: 1, 2, 4, 6, 9, 16, or 2 for
/// booklet; 1 without that item.
UINT32 PagesPerSheetFromNup(const OEMCUIPPARAM& params);

/// Scaling and N-up exclude each other: tells the user and sets scaling back to 100 percent.
void CheckScalingConflict(const OEMCUIPPARAM& params, PrivateDevmode* devmode, LONG scaling);

/// A booklet needs duplex: without it the N-up item falls back to its first choice and
/// `PagesPerSheet` becomes 0.
void DropBookletWithoutDuplex(const OEMCUIPPARAM& params, PrivateDevmode* devmode);

/// Records the selected paper's size for the editor's preview (`PreviewPaperSize`).
/// \return the page's orientation, 1 portrait, 2 landscape.
UINT32 CaptureEditorPageSetup(const OEMCUIPPARAM& params);

}  // namespace oemui
