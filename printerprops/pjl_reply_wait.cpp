#include "printerprops/pjl_reply_wait.h"

#include <string_view>

#include "printerprops/pjl_connection.h"

namespace oemui {
namespace {

constexpr int kReceiveAttempts = 60;
constexpr DWORD kPollMilliseconds = 250;

/// The end of all attempts: a printer that had nothing to say when receiving last failed counts as
/// one that answered nothing, even when it has hung up since.
bool EndWithoutReply(int receiveError, const ReplyBuffer& reply) {
    if (receiveError != WSAEWOULDBLOCK) return false;
    *reply.Length = 0;
    return true;
}

}  // namespace

bool ReadAtOnce(PrinterLink* link, const ReplyBuffer& reply) {
    int receiveError = 0;
    for (int attempt = 0; attempt < kReceiveAttempts; ++attempt) {
        if (ReceiveFromPrinter(link, reply.Room, reply.Length, &receiveError)) {
            return true;
        }
    }
    return EndWithoutReply(receiveError, reply);
}

bool PollReply(PrinterLink* link, QueryTime* time, const ReplyBuffer& reply) {
    int receiveError = 0;
    time->Wait(kPollMilliseconds);
    for (int poll = 0; poll < kReceiveAttempts; ++poll) {
        const std::span<char> rest = reply.Room.subspan(*reply.Length);
        DWORD received = 0;
        // A connection that breaks is polled on: what had arrived before still counts.
        static_cast<void>(ReceiveFromPrinter(link, rest, &received, &receiveError));
        *reply.Length += received;
        if (std::string_view(rest.data(), received).find('\f') != std::string_view::npos) {
            return true;
        }
        if (!time->Wait(kPollMilliseconds)) break;
    }
    return EndWithoutReply(receiveError, reply);
}

}  // namespace oemui
