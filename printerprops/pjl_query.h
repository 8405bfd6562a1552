/// Asks a printer which of its options are installed, in the printer job language.
#pragma once

#include <windows.h>

#include <optional>
#include <string_view>

#include "printerprops/installed_options.h"
#include "printerprops/port_discovery.h"

namespace oemui {

/// Size of the buffer for a printer's reply, in bytes. A reply is as long as the bytes received;
/// it has no terminator of its own.
inline constexpr DWORD kReplyCapacity = 1024;

/// Asks the printer for its second tray, third tray and duplex unit.
/// \param link  as discovery left it. Share and internet ports are asked over a connection of the
///              plug-in's own, every other port through the spooler.
/// \return what is installed, everything when no answer was understood; nothing when the question
///         was not asked. Blocks for up to about 15 seconds on the direct way, connecting included,
///         and for as long as the port monitor takes for two questions on the other.
[[nodiscard]] std::optional<InstalledOptions> QueryInstalledOptions(LPCWSTR printerName,
                                                                    PrinterLink link);

/// Reads the installed options out of a printer's reply: what stands between the echo of the
/// question and the form feed that follows it counts.
/// \param reply  the bytes received; an embedded zero ends the text earlier.
/// \return nothing without the echo or its form feed.
[[nodiscard]] std::optional<InstalledOptions> ParseInstalledOptions(std::string_view reply);

}  // namespace oemui
