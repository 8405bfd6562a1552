#include "platform/spooler/printer_access.h"

#include "platform/spooler/print_keys.h"
#include "platform/spooler/printer_record.h"

namespace platform::spooler {
namespace {

constexpr LPCWSTR kDeniedValue = u"Denied Access";

DWORD OpenPrinterKey(std::u16string_view printer, PrintKey* key) {
    const std::u16string name = ShortPrinterName(printer);
    if (name.empty()) return ERROR_INVALID_PRINTER_NAME;
    const DWORD error = key->Open(PrinterPath(name));
    return error == ERROR_FILE_NOT_FOUND ? ERROR_INVALID_PRINTER_NAME : error;
}

}  // namespace

DWORD DenyAccess(std::u16string_view printer, DWORD rights) {
    PrintKey key;
    const DWORD error = OpenPrinterKey(printer, &key);
    return error != ERROR_SUCCESS ? error : key.SetNumber(kDeniedValue, rights);
}

DWORD DeniedAccess(std::u16string_view printer, DWORD* rights) {
    PrintKey key;
    if (const DWORD error = OpenPrinterKey(printer, &key)) return error;
    *rights = key.Number(kDeniedValue, 0);
    return key.Error();
}

}  // namespace platform::spooler
