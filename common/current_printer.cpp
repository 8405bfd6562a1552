#include "common/current_printer.h"

namespace oemui {
namespace {

// Written as a whole, its end included: who reads it meanwhile finds a terminated text.
constinit PrinterName currentPrinter;

}  // namespace

constinit PaperSize PreviewPaperSize = {0, 0};

LPCWSTR CurrentPrinterName() {
    return NameOrNull(currentPrinter);
}

void SetCurrentPrinter(LPCWSTR name) {
    currentPrinter = KeptPrinterName(name);
}

PrinterName KeptPrinterName(LPCWSTR name) {
    const TextView text = name == nullptr ? TextView() : TextView(name);
    return text.size() < kPrinterNameCapacity ? PrinterName(text) : PrinterName();
}

}  // namespace oemui
