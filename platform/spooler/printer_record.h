/// One printer as the registry holds it.
#pragma once

#include <winspool.h>

#include <string>
#include <vector>

#include "platform/spooler/record_buffer.h"

namespace platform::spooler {

struct PrinterRecord {
    std::u16string name;
    std::u16string shareName;
    std::u16string port;  ///< one, or several with commas between
    std::u16string driver;
    std::u16string comment;
    std::u16string location;
    std::u16string separatorFile;
    std::u16string processor;
    std::u16string datatype;
    std::u16string parameters;
    std::vector<BYTE> devmode;  ///< empty, or whole: the public part and the driver's behind it
    DWORD attributes = 0;
    DWORD priority = 1;
    DWORD defaultPriority = 1;
    DWORD startTime = 0;
    DWORD untilTime = 0;
};

/// The name of a printer's key from the name that a caller gave: without the server's part in front
/// and the ports behind. Empty when nothing usable is left.
[[nodiscard]] std::u16string ShortPrinterName(std::u16string_view name);

/// The printer's key.
[[nodiscard]] std::u16string PrinterPath(std::u16string_view name);
/// The key of the printer's data.
[[nodiscard]] std::u16string PrinterDataPath(std::u16string_view name);

/// \return ERROR_INVALID_PRINTER_NAME when there is no such printer, or another result code.
[[nodiscard]] DWORD RequirePrinter(std::u16string_view name);
[[nodiscard]] DWORD LoadPrinter(std::u16string_view name, PrinterRecord* printer);
/// Writes what differs from what is stored. The key must exist. \return a result code.
[[nodiscard]] DWORD StorePrinter(const PrinterRecord& printer);
[[nodiscard]] DWORD ListPrinters(std::vector<PrinterRecord>* printers);

/// To and from the caller's record.
[[nodiscard]] PRINTER_INFO_2W PackPrinter(const PrinterRecord& printer, RecordTail& tail);
/// Null texts become empty; a null devmode leaves `printer`'s. \return ERROR_INVALID_DATA for a
/// devmode whose own sizes make no sense.
[[nodiscard]] DWORD UnpackPrinter(const PRINTER_INFO_2W& info, PrinterRecord* printer);

/// Whether the bytes are a devmode whose public part reaches at least to `dmFields` and whose own
/// sizes are within them.
[[nodiscard]] bool IsDevmode(const std::vector<BYTE>& bytes);

}  // namespace platform::spooler
