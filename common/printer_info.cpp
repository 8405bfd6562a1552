#include "common/printer_info.h"

#include <new>

namespace oemui {

PrinterInfo PrinterInfo::Read(HANDLE printer) {
    PrinterInfo info;
    DWORD size = 0;
    if (!::GetPrinterW(printer, 2, nullptr, 0, &size) &&
        ::GetLastError() != ERROR_INSUFFICIENT_BUFFER) {
        return {};
    }
    if (size < sizeof(PRINTER_INFO_2W)) return {};
    info.bytes_.reset(new (std::nothrow) BYTE[size]);
    if (!info || !::GetPrinterW(printer, 2, info.Bytes(), size, &size)) return {};
    return info;
}

}  // namespace oemui
