/// The printer and the paper of the last document page built or watermark editor opened.
/// Module-wide and unguarded, read and written on the property sheet's thread.
#pragma once

#include "common/fixed_text.h"

namespace oemui {

/// Width and length of a paper in tenths of a millimetre; 0 as long as nothing is known.
struct PaperSize {
    INT32 Width;
    INT32 Length;
};

/// Characters of a printer's name with its server's, and the terminator.
inline constexpr std::size_t kPrinterNameCapacity = 512;
using PrinterName = FixedText<kPrinterNameCapacity>;

/// The printer of the document page built last, or of the editor opened last: a copy, for the
/// driver's own string goes with its page. Null before the first page.
[[nodiscard]] LPCWSTR CurrentPrinterName();
void SetCurrentPrinter(LPCWSTR name);

/// A name as it is kept: none for null, and for one so long that, cut, it would name another
/// printer.
[[nodiscard]] PrinterName KeptPrinterName(LPCWSTR name);
/// A kept name for a call of the platform; null when there is none.
[[nodiscard]] inline LPCWSTR NameOrNull(const PrinterName& name) {
    return name.empty() ? nullptr : name.c_str();
}

/// The paper that was selected on the document page when the watermark editor was last opened.
extern PaperSize PreviewPaperSize;

}  // namespace oemui
