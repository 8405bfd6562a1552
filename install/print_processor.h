/// The family's print processor.
#pragma once

#include "common/fixed_text.h"

namespace oemui {

/// Installs the model's print processor unless the spooler has it, and assigns it to a printer.
void InstallPrintProcessor(LPCWSTR shortName);

/// Whether the spooler has a print processor of this name, in any case, for the environment it
/// runs in.
[[nodiscard]] bool IsPrintProcessorInstalled(LPCWSTR processorName);

/// Makes a print processor the printer's own, unless it is already.
void AssignPrintProcessor(LPCWSTR shortName, LPCWSTR processorName);

}  // namespace oemui
