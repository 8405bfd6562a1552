/// The print processors registered on the machine.
#pragma once

#include <windef.h>

#include <string>
#include <string_view>
#include <vector>

namespace platform::spooler {

/// The platform's own first, which every machine has, then those registered. \return a result code.
[[nodiscard]] DWORD ListPrintProcessors(std::vector<std::u16string>* names);

/// \return a result code.
[[nodiscard]] DWORD IsPrintProcessor(std::u16string_view name, bool* known);

}  // namespace platform::spooler
