/// The printer drivers registered on the machine.
#pragma once

#include <windef.h>

#include <string_view>

namespace platform::spooler {

/// Whether a name stands for this machine's kind of driver; null does.
[[nodiscard]] bool IsOwnEnvironment(LPCWSTR environment);

/// \return a result code.
[[nodiscard]] DWORD IsDriver(std::u16string_view name, bool* known);

}  // namespace platform::spooler
