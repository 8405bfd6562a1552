/// Asks a printer which of its options are installed, in the printer job language.
#pragma once

#include <windows.h>

#include <string_view>

#include "printerprops/port_discovery.h"

namespace oemui {

/// Size of the buffer for a printer's reply, in bytes. A reply is as long as the bytes received;
/// it has no terminator of its own.
inline constexpr DWORD kReplyCapacity = 1024;

/// Size of the buffers for a command and for the message made of it, in bytes with terminator.
inline constexpr std::size_t kPjlMessageCapacity = 256;

/// The longest job-language text that a message can carry, in bytes.
inline constexpr std::size_t kMaxPjlText = 235;

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

/// One exchange over a connection of its own, closed again at the end.
/// \param command  at most 255 characters: "READ" reads whatever the printer sends; "#SET#", a
///                 blank or line feed and a text sends the text; "#GET#" the same sends it and
///                 reads the reply up to a form feed, for up to about 15 seconds.
/// \param size     room in `reply`, in bytes.
/// \param length   bytes of the reply; 0 when none arrived in time.
/// \return false when the connection could not be made or broke, or the command does not fit.
bool ExchangePjl(PrinterLink* link, LPCWSTR command, char* reply, DWORD size, DWORD* length);

/// Connects to the printer's raw port, 9100, and makes the socket non-blocking; an open connection
/// is counted once more. The connect blocks. Nothing stays open on failure.
bool OpenPrinterConnection(PrinterLink* link);

/// Gives back one open; the last one makes the socket blocking again and closes it.
/// \return false when the socket cannot be made blocking; it then stays the caller's.
bool ClosePrinterConnection(PrinterLink* link);

/// Sends once; what the connection does not take is not sent again.
/// \param sent  bytes taken; 0 when the socket would have blocked or the link has no host.
bool SendToPrinter(PrinterLink* link, const char* bytes, DWORD length, DWORD* sent);

/// Receives once.
/// \param received  bytes brought; 0 when the socket would have blocked or the link has no host.
/// \return false when the connection broke or the printer closed it.
bool ReceiveFromPrinter(PrinterLink* link, char* buffer, DWORD size, DWORD* received);

}  // namespace oemui
