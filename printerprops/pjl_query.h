/// Asks a printer which of its options are installed, in the printer job language.
#pragma once

#include <windows.h>

#include <string_view>

#include "printerprops/port_discovery.h"

namespace oemui {

/// Size of the buffer for a printer's reply, in bytes. A reply is as long as the bytes received;
/// it has no terminator of its own.
inline constexpr DWORD kReplyCapacity = 1024;

/// Asks the printer for its second tray, third tray and duplex unit. Each selection becomes 0
/// (installed) or 1 (not installed) when an answer was understood and stays as it was otherwise.
/// \param link  as discovery left it. Share and internet ports are asked over a connection of the
///              plug-in's own, every other port through the spooler.
/// \return whether the question was asked. Blocks for up to about 15 seconds on the direct way,
///         after a connect that takes as long as the platform lets it.
bool QueryInstalledOptions(LPCWSTR printerName, PrinterLink link, UINT32* tray2Sel,
                           UINT32* tray3Sel, UINT32* duplexSel);

/// Reads the installed options out of a printer's reply: what stands between the echo of the
/// question and the form feed that follows it counts.
/// \param reply  the bytes received; an embedded zero ends the text earlier.
/// \return false, and nothing written, without the echo or its form feed.
bool ParseInstalledOptions(std::string_view reply, UINT32* tray2Sel, UINT32* tray3Sel,
                           UINT32* duplexSel);

}  // namespace oemui
