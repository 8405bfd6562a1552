#include "watermark/watermark_store.h"

#include "common/message.h"
#include "common/unique_handle.h"
#include "resources/resource_ids.h"
#include "watermark/damaged_list.h"

namespace oemui {
namespace {

// The spooler's declarations take names that they only read as writable.
WCHAR listValueName[] = TEXT("WaterMarkList");

}  // namespace

DWORD ReadPrinterWatermarkList(HANDLE printer, WatermarkList* list) {
    *list = {};
    DWORD needed = 0;
    const DWORD status = ::GetPrinterDataW(printer, listValueName, nullptr,
                                           reinterpret_cast<LPBYTE>(list), sizeof *list, &needed);
    if (status != ERROR_SUCCESS) *list = {};
    SanitizeWatermarkList(list);
    return status;
}

void WritePrinterWatermarkList(LPCWSTR printerName, const WatermarkList& list,
                               UINT writeFailedTextId) {
    // Without a name the platform would open the print server.
    const UniquePrinter printer =
        printerName != nullptr ? OpenPrinterFor(printerName, PRINTER_ALL_ACCESS) : UniquePrinter();
    if (!printer) {
        ShowMessage(IDS_PRINTER_NOT_OPENED, IDS_CAPTION_ERROR, MB_OK);
        return;
    }
    auto* bytes = reinterpret_cast<LPBYTE>(const_cast<WatermarkList*>(&list));
    if (::SetPrinterDataW(printer.Get(), listValueName, REG_BINARY, bytes, sizeof list) !=
        ERROR_SUCCESS) {
        ShowMessage(writeFailedTextId, IDS_CAPTION_ERROR, MB_OK);
    }
}

}  // namespace oemui
