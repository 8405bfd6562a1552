/// The page that a printer's device context is made for.
#pragma once

#include <windef.h>

#include <string_view>

namespace platform::spooler {

/// A page as it lies in the printer: not turned for landscape.
struct PageSize {
    LONG width;   ///< tenths of a millimetre
    LONG height;  ///< tenths of a millimetre
    bool landscape;
};

/// The default page of a printer: the paper of its default devmode, A4 when it has none.
/// \param printer  its name, with server part or ports as `OpenPrinterW` takes it.
/// \return false when there is no such printer.
[[nodiscard]] bool PrinterPage(std::u16string_view printer, PageSize* page);

}  // namespace platform::spooler
