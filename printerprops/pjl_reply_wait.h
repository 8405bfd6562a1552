/// Waiting for a printer's reply: 60 attempts, a quarter of a second apart, about 15 seconds.
#pragma once

#include <windows.h>

#include <span>

#include "printerprops/port_discovery.h"

namespace oemui {

/// Where a reply goes.
struct ReplyBuffer {
    std::span<char> Room;
    DWORD* Length;  ///< bytes received
};

/// Receives once, as soon as an attempt succeeds; does not pause between the attempts.
[[nodiscard]] bool ReadAtOnce(PrinterLink* link, const ReplyBuffer& reply);

/// Polls until a form feed has arrived.
[[nodiscard]] bool PollReply(PrinterLink* link, const ReplyBuffer& reply);

}  // namespace oemui
