#include "common/current_printer.h"

namespace oemui {

constinit LPCWSTR CurrentPrinterName = nullptr;
constinit PaperSize PreviewPaperSize = {0, 0};

}  // namespace oemui
