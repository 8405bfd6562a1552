/// The watermarks that the family's default file (in the Windows directory, named after the model)
/// gives to a printer without a list of its own. The file is read anew on every call.
#pragma once

#include "watermark/watermark_list.h"

namespace oemui {

/// The one list in which the editor works. Property sheet's thread.
extern WatermarkList WorkingWatermarkList;

/// Builds the default list and stores it as the printer's; failures to store it are told to the
/// user. Without a file the list is empty. An editor that is open meanwhile keeps its own list.
void InitPrinterWatermarkList(LPCWSTR printerName);

/// Builds the default list in memory. Diagonal entries get the angle of the current printer's page.
/// Fields that the file does not give, such as `ColorIndex`, keep what the list held.
void LoadDefaultWatermarks(WatermarkList* list);

}  // namespace oemui
