#include "printerprops/pjl_exchange.h"

#include <algorithm>
#include <string_view>

#include "printerprops/pjl_connection.h"
#include "printerprops/pjl_reply_wait.h"

namespace oemui {
namespace {

constexpr std::string_view kExitLanguage = "\x1B%-12345X";
constexpr std::string_view kLineEnd = "\r\n";
static_assert(kMaxPjlText + 2 * kExitLanguage.size() + kLineEnd.size() < kPjlMessageCapacity);

/// Stands for the reply when the question could not go out at once.
constexpr std::string_view kSubstituteReply = "@PJL INFO STATUS\r\nCODE=999999\r\n\f";
static_assert(kSubstituteReply.size() == 32);

enum class Mode { kNone, kRead, kSet, kGet };

/// A command taken apart.
struct Command {
    Mode Kind;
    std::string_view Text;  ///< the job-language text; of the set and get modes only
};

/// The bytes that go over the wire.
struct Message {
    char Bytes[kPjlMessageCapacity];
    DWORD Length;
};

/// A connection for the length of a scope.
class Connection {
public:
    Connection(PrinterLink* link, QueryTime* time)
        : link_(link), isOpen_(OpenPrinterConnection(link, time)) {}
    Connection(const Connection&) = delete;
    Connection& operator=(const Connection&) = delete;
    ~Connection() {
        if (!isOpen_ || ClosePrinterConnection(link_)) return;
        // A socket that does not turn blocking again stays open; nobody uses it after this.
        ::closesocket(link_->Socket);
        link_->Socket = INVALID_SOCKET;
    }

    explicit operator bool() const { return isOpen_; }

private:
    PrinterLink* link_;
    bool isOpen_;
};

/// Whether a word is a keyword, which is given in capitals; of ASCII only, whatever its case.
bool IsKeyword(std::string_view word, std::string_view keyword) {
    return std::equal(word.begin(), word.end(), keyword.begin(), keyword.end(),
                      [](char a, char b) { return a == b || (a >= 'a' && a - 'a' + 'A' == b); });
}

Mode ModeOf(std::string_view command) {
    if (IsKeyword(command, "READ")) return Mode::kRead;
    if (command.find("#SET#") != std::string_view::npos) return Mode::kSet;
    if (command.find("#GET#") != std::string_view::npos) return Mode::kGet;
    return Mode::kNone;
}

Command ParseCommand(std::string_view command) {
    constexpr std::string_view kDelimiters = " \n";
    const Mode mode = ModeOf(command);
    if (mode == Mode::kRead) return {mode, {}};
    command.remove_prefix(std::min(command.find_first_not_of(kDelimiters), command.size()));
    const std::string_view token = command.substr(0, command.find_first_of(kDelimiters));
    if (!IsKeyword(token, "#SET#") && !IsKeyword(token, "#GET#")) {
        return {Mode::kNone, {}};
    }
    return {mode, command.substr(std::min(token.size() + 1, command.size()))};
}

bool BuildMessage(std::string_view text, Message* message) {
    if (text.empty() || text.size() > kMaxPjlText) return false;
    char* end = message->Bytes;
    for (const std::string_view part : {kExitLanguage, text, kLineEnd, kExitLanguage}) {
        end = std::copy(part.begin(), part.end(), end);
    }
    message->Length = static_cast<DWORD>(end - message->Bytes);
    return true;
}

bool SubstituteReply(const ReplyBuffer& reply) {
    if (reply.Room.size() <= kSubstituteReply.size() + 1) return false;
    std::copy(kSubstituteReply.begin(), kSubstituteReply.end(), reply.Room.begin());
    *reply.Length = static_cast<DWORD>(kSubstituteReply.size());
    return true;
}

bool SendCommand(PrinterLink* link, const Command& command, QueryTime* time,
                 const ReplyBuffer& reply) {
    Message message;
    DWORD sent = 0;
    if (!BuildMessage(command.Text, &message)) return false;
    const bool isSent = SendToPrinter(link, {message.Bytes, message.Length}, &sent);
    if (command.Kind == Mode::kSet || !isSent) return isSent;
    return sent == 0 ? SubstituteReply(reply) : PollReply(link, time, reply);
}

}  // namespace

bool ExchangePjl(PrinterLink* link, LPCWSTR command, std::span<char> reply, DWORD* length) {
    *length = 0;
    char narrow[kPjlMessageCapacity];
    if (::WideCharToMultiByte(CP_ACP, 0, command, -1, narrow, sizeof narrow, nullptr, nullptr) ==
        0) {
        return false;
    }
    const Command parsed = ParseCommand(narrow);
    const ReplyBuffer buffer = {reply, length};
    QueryTime time;
    const Connection connection(link, &time);
    if (!connection) return false;
    switch (parsed.Kind) {
        case Mode::kNone:
            return true;
        case Mode::kRead:
            return ReadAtOnce(link, buffer);
        default:
            return SendCommand(link, parsed, &time, buffer);
    }
}

}  // namespace oemui
