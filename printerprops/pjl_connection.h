/// The plug-in's own connection to a printer's raw port. The socket library has to be started.
#pragma once

#include <windows.h>

#include <span>
#include <string_view>

#include "printerprops/port_discovery.h"

namespace oemui {

/// What a query may wait for the printer: about 15 seconds for connecting and the reply together.
class QueryTime {
public:
    /// Waits. \return false, and at once, when not so much time is left.
    bool Wait(DWORD milliseconds) {
        if (left_ < milliseconds) return false;
        left_ -= milliseconds;
        ::Sleep(milliseconds);
        return true;
    }

private:
    /// Milliseconds: a quarter of a second before the first of 60 polls, and one after each.
    DWORD left_ = 15250;
};

/// Connects to the printer's raw port, 9100, and makes the socket non-blocking; a connection that
/// is open already is used as it is and not counted again. Waits for the printer within the time.
/// Nothing stays open on failure.
[[nodiscard]] bool OpenPrinterConnection(PrinterLink* link, QueryTime* time);

/// Gives back one open; the last one makes the socket blocking again and closes it.
/// \return false when the socket cannot be made blocking; it then stays the caller's.
[[nodiscard]] bool ClosePrinterConnection(PrinterLink* link);

/// Sends once; what the connection does not take is not sent again.
/// \param sent  bytes taken; 0 when the socket would have blocked or the link has no host.
[[nodiscard]] bool SendToPrinter(PrinterLink* link, std::string_view bytes, DWORD* sent);

/// Receives once.
/// \param received  bytes brought; 0 when the socket would have blocked or the link has no host.
/// \param lastError  the error when receiving fails, would-block included. Otherwise it stays as it
///                   was: a connection that the printer closes in good order is no error.
/// \return false when the connection broke or the printer closed it.
[[nodiscard]] bool ReceiveFromPrinter(PrinterLink* link, std::span<char> buffer, DWORD* received,
                                      int* lastError);

}  // namespace oemui
