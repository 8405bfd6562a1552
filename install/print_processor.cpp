#include "install/print_processor.h"

#include "common/model_identity.h"
#include "common/spooler_records.h"
#include "common/text.h"
#include "common/unique_handle.h"

namespace oemui {
namespace {

using FileName = FixedText<kModelFileNameCapacity>;

}  // namespace

void InstallPrintProcessor(LPCWSTR shortName) {
    const TextView fileName = TextIn(Model().PrintProcessorFile);
    FileName file(fileName);
    FileName processor(fileName.substr(0, fileName.find(TEXT('.'))));
    if (!IsPrintProcessorInstalled(processor.c_str()) &&
        !::AddPrintProcessorW(nullptr, nullptr, file.Room(), processor.Room())) {
        return;
    }
    AssignPrintProcessor(shortName, processor.c_str());
}

bool IsPrintProcessorInstalled(LPCWSTR processorName) {
    const SpoolerRecords<PRINTPROCESSOR_INFO_1W> installed(
        [](BYTE* buffer, DWORD size, DWORD* needed, DWORD* count) {
            return ::EnumPrintProcessorsW(nullptr, nullptr, 1, buffer, size, needed, count);
        });
    return std::ranges::any_of(installed.All(), [processorName](const auto& entry) {
        return entry.pName != nullptr && EqualIgnoringAsciiCase(entry.pName, processorName);
    });
}

void AssignPrintProcessor(LPCWSTR shortName, LPCWSTR processorName) {
    // An empty name would open the print server.
    if (*shortName == 0) return;
    const UniquePrinter printer =
        OpenPrinterFor(shortName, PRINTER_ACCESS_ADMINISTER | PRINTER_ACCESS_USE);
    if (!printer) return;
    const auto records = ReadPrinterInfo(printer.Get());
    // What would be written back has to be the printer's own: no other failure is passed over.
    const DWORD sizeError = records.SizeError();
    if (sizeError != ERROR_SUCCESS && sizeError != ERROR_INSUFFICIENT_BUFFER) return;
    for (PRINTER_INFO_2W& info : records.All()) {
        if (info.pPrintProcessor != nullptr && TextView(info.pPrintProcessor) == processorName) {
            return;
        }
        // The record's text is not const in the platform's declaration, but only read.
        if (*processorName != 0) info.pPrintProcessor = const_cast<LPWSTR>(processorName);
        ::SetPrinterW(printer.Get(), 2, reinterpret_cast<BYTE*>(&info), 0);
    }
}

}  // namespace oemui
