/// Waiting for a printer's reply.
#pragma once

#include <windows.h>

#include <span>

#include "printerprops/pjl_connection.h"

namespace oemui {

/// Where a reply goes.
struct ReplyBuffer {
    std::span<char> Room;
    DWORD* Length;  ///< bytes received
};

/// Receives once, as soon as one of 60 attempts succeeds; does not pause between them.
[[nodiscard]] bool ReadAtOnce(PrinterLink* link, const ReplyBuffer& reply);

/// Polls every quarter of a second until a form feed has arrived or the time is over.
[[nodiscard]] bool PollReply(PrinterLink* link, QueryTime* time, const ReplyBuffer& reply);

}  // namespace oemui
