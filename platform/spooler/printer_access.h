/// Refusing access to a printer, as an administrator does.
#pragma once

#include <windef.h>

#include <string_view>

namespace platform::spooler {

/// Lets `OpenPrinterW` refuse the printer whenever one of these rights is asked for; kept with the
/// printer.
/// \param rights  PRINTER_ACCESS_*; 0 refuses nothing.
/// \return a result code; ERROR_INVALID_PRINTER_NAME when there is no such printer.
DWORD DenyAccess(std::u16string_view printer, DWORD rights);

/// The rights refused now; 0 for a printer without such a setting.
/// \return a result code.
DWORD DeniedAccess(std::u16string_view printer, DWORD* rights);

}  // namespace platform::spooler
