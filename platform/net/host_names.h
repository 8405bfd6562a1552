/// Host names and written addresses, without asking any resolver.
#pragma once

#include <windef.h>

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace platform::net {

/// The address (network byte order) that a text with dots names: one to four numbers, decimal,
/// octal or hexadecimal, the last one filling what is left. A blank ends the text.
[[nodiscard]] std::optional<ULONG> ParseAddress(const std::string& text);

/// The loopback addresses (network byte order) of a name, in any case: those that the machine's
/// hosts file, `C:\Windows\System32\drivers\etc\hosts`, gives it, and 127.0.0.1 for "localhost"
/// when the file is silent. Empty for every other name.
[[nodiscard]] std::vector<ULONG> LookUpHost(std::string_view name);

}  // namespace platform::net
