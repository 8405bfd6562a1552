/// A printer's stored watermark list: the printer data value "WaterMarkList", 4816 bytes, always
/// read and written whole.
#pragma once

#include "watermark/watermark_list.h"

namespace oemui {

/// Reads the printer's list. A shorter stored value leaves zeros behind it.
/// \param list  made safe to index and to read before it comes back; all zero unless read.
/// \return 0, also for a damaged list, which keeps its entries; the spooler's status.
[[nodiscard]] DWORD ReadPrinterWatermarkList(HANDLE printer, WatermarkList* list);

/// Stores a list as the printer's. Failures are told to the user, caption "Error": a printer that
/// cannot be opened with full access, or a value that cannot be written; the stored list then stays
/// as it was.
/// \param writeFailedTextId  string ID of the message for a value that cannot be written.
void WritePrinterWatermarkList(LPCWSTR printerName, const WatermarkList& list,
                               UINT writeFailedTextId);

}  // namespace oemui
