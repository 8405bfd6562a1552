#include "platform/spooler/port_monitor.h"

#include <winbase.h>
#include <winerror.h>
#include <winsock.h>

#include <algorithm>
#include <array>
#include <chrono>

#include "platform/net/posix_sockets.h"
#include "platform/spooler/ports.h"

namespace platform::spooler {
namespace {

using SteadyClock = std::chrono::steady_clock;

constexpr USHORT kPrinterPort = 9100;
constexpr int kConnectMilliseconds = 5000;
constexpr std::string_view kUniversalExit = "\x1B%-12345X";
constexpr char kFormFeed = '\f';
constexpr std::size_t kAnswerLimit = 65536;
constexpr std::size_t kTextLimit = 1024;

// The wait for an answer, in turns: some milliseconds for the printer itself, the rest on the
// layer's clock, which a test may run faster.
constexpr int kTurnOnSocket = 10;
constexpr DWORD kTurnOnClock = 90;
constexpr int kTurn = kTurnOnSocket + static_cast<int>(kTurnOnClock);

// Takes what a scope lasts from the time that is left: by the machine's clock, or the turns waited
// by the layer's if those are more.
class TimeSpent {
public:
    explicit TimeSpent(AnswerTime& time) : time_(time), left_(time.left) {}
    ~TimeSpent() { time_.left -= Milliseconds(); }
    TimeSpent(const TimeSpent&) = delete;
    TimeSpent& operator=(const TimeSpent&) = delete;

    void AddTurn() { turns_ += kTurn; }
    [[nodiscard]] int Left() const { return left_ - Milliseconds(); }

private:
    [[nodiscard]] int Milliseconds() const {
        const auto passed = SteadyClock::now() - start_;
        const auto count = std::chrono::duration_cast<std::chrono::milliseconds>(passed).count();
        return std::max(turns_, static_cast<int>(count));
    }

    AnswerTime& time_;
    int left_;
    int turns_ = 0;
    SteadyClock::time_point start_ = SteadyClock::now();
};

// A connection to the printer's raw port.
class PrinterStream {
public:
    PrinterStream() = default;
    ~PrinterStream() {
        if (descriptor_ >= 0) net::CloseStream(descriptor_);
    }
    PrinterStream(const PrinterStream&) = delete;
    PrinterStream& operator=(const PrinterStream&) = delete;

    bool Connect(ULONG address, int milliseconds) {
        return net::OpenStream(&descriptor_) == 0 && net::SetWaiting(descriptor_, false) == 0 &&
               net::ConnectStream(descriptor_, address, htons(kPrinterPort),
                                  std::min(milliseconds, kConnectMilliseconds)) == 0;
    }

    // A fresh connection takes a message whole, or something is wrong with it.
    bool Send(std::string_view message) {
        std::size_t sent = 0;
        return net::SendBytes(descriptor_, message, &sent) == 0 && sent == message.size();
    }

    DWORD Receive(TimeSpent* time, std::vector<BYTE>* answer);

private:
    [[nodiscard]] bool WaitOneTurn() const {
        if (net::WaitReadable(descriptor_, kTurnOnSocket)) return true;
        Sleep(kTurnOnClock);
        return false;
    }

    int descriptor_ = -1;
};

// Reads until a form feed or the end of the connection.
DWORD PrinterStream::Receive(TimeSpent* time, std::vector<BYTE>* answer) {
    std::vector<BYTE> bytes;
    std::array<char, 4096> block = {};
    while (time->Left() > 0) {
        std::size_t received = 0;
        const DWORD error = net::ReceiveBytes(descriptor_, block, &received);
        if (error == WSAEWOULDBLOCK) {
            if (!WaitOneTurn()) time->AddTurn();
            continue;
        }
        if (error != 0 || bytes.size() + received > kAnswerLimit) return ERROR_GEN_FAILURE;
        const bool closed = received == 0;
        if (closed && bytes.empty()) return ERROR_GEN_FAILURE;
        const auto got = std::span(block).first(received);
        bytes.insert(bytes.end(), got.begin(), got.end());
        if (closed || std::ranges::find(got, kFormFeed) != got.end()) {
            *answer = std::move(bytes);
            return ERROR_SUCCESS;
        }
    }
    return ERROR_TIMEOUT;
}

std::string Narrow(std::u16string_view text) {
    std::string narrow;
    for (const char16_t unit : text.substr(0, kTextLimit)) {
        narrow += unit < 0x80 ? static_cast<char>(unit) : '?';
    }
    return narrow;
}

DWORD FindPrinter(std::u16string_view ports, ULONG* address) {
    const auto found = FindPortAddress(ports);
    if (!found) return ERROR_NOT_SUPPORTED;
    if (!net::IsLoopback(*found)) return ERROR_GEN_FAILURE;
    *address = *found;
    return ERROR_SUCCESS;
}

}  // namespace

std::optional<PjlRequest> ParsePjlName(std::u16string_view name) {
    constexpr std::u16string_view kGet = u"#GET#";
    constexpr std::u16string_view kSet = u"#SET#";
    const bool wantsAnswer = name.starts_with(kGet);
    if (!wantsAnswer && !name.starts_with(kSet)) return std::nullopt;
    name.remove_prefix(kGet.size());
    if (name.starts_with(u' ') || name.starts_with(u'\n')) name.remove_prefix(1);
    return PjlRequest{wantsAnswer, Narrow(name)};
}

DWORD CheckPrinterPort(std::u16string_view ports) {
    ULONG address = 0;
    return FindPrinter(ports, &address);
}

DWORD AskPrinter(std::u16string_view ports, const PjlRequest& request, AnswerTime& time,
                 std::vector<BYTE>* answer) {
    if (request.text.empty()) return ERROR_INVALID_PARAMETER;
    ULONG address = 0;
    if (const DWORD error = FindPrinter(ports, &address)) return error;
    std::string message(kUniversalExit);
    message.append(request.text).append("\r\n").append(kUniversalExit);
    TimeSpent spent(time);
    if (spent.Left() <= 0) return ERROR_TIMEOUT;
    PrinterStream stream;
    if (!stream.Connect(address, spent.Left()) || !stream.Send(message)) return ERROR_GEN_FAILURE;
    return request.wantsAnswer ? stream.Receive(&spent, answer) : ERROR_SUCCESS;
}

}  // namespace platform::spooler
