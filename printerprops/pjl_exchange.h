/// One exchange with a printer in the printer job language.
#pragma once

#include <windows.h>

#include <span>

#include "printerprops/port_discovery.h"

namespace oemui {

/// Sizes of the buffers for a command and for the message made of it, in bytes with terminator.
inline constexpr std::size_t kPjlMessageCapacity = 256;

/// The longest job-language text that a message can carry, in bytes.
inline constexpr std::size_t kMaxPjlText = 235;

/// One exchange over a connection of its own, closed again at the end. The socket library has to be
/// started.
/// \param command  at most 255 characters: "READ" reads whatever the printer sends; "#SET#", a
///                 blank or line feed and a text sends the text; "#GET#" the same sends it and
///                 reads the reply up to a form feed, up to about 15 seconds after it began to
///                 connect.
/// \param reply    receives the bytes; they are not terminated.
/// \param length   bytes of the reply; 0 when none arrived in time.
/// \return false when the connection could not be made or broke, or the command carries no text or
///         too long a one.
[[nodiscard]] bool ExchangePjl(PrinterLink* link, LPCWSTR command, std::span<char> reply,
                               DWORD* length);

}  // namespace oemui
