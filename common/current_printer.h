/// The printer and the paper of the last document page built. Module-wide and unguarded, read and
/// written on the property sheet's thread.
#pragma once

#include <windows.h>

namespace oemui {

/// Width and length of a paper in tenths of a millimetre; 0 as long as nothing is known.
struct PaperSize {
    INT32 Width;
    INT32 Length;
};

/// The printer of the last document page built: the driver's own string, not a copy, so it is good
/// only while that page exists. Null before the first page.
extern LPCWSTR CurrentPrinterName;

/// The paper that was selected on the document page when the watermark editor was last opened.
extern PaperSize PreviewPaperSize;

}  // namespace oemui
