#include "host/played_printer/printer.h"

#include <arpa/inet.h>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstring>
#include <thread>

#include "host/errors/failure.h"

namespace host {
namespace {

using Clock = std::chrono::steady_clock;
using std::chrono::milliseconds;

constexpr std::uint16_t kPrinterPort = 9100;
constexpr int kTick = 50;  // milliseconds between two looks at the stop flag
constexpr milliseconds kPieceDelay{300};
constexpr milliseconds kDripDelay{1000};
constexpr milliseconds kIdleLimit{120'000};
constexpr std::size_t kLongestLine = 4096;
constexpr std::size_t kBytesPerLogLine = 16;

in_addr LoopbackAddress(const std::string& text) {
    in_addr address{};
    const bool valid = ::inet_pton(AF_INET, text.c_str(), &address) == 1;
    if (!valid || (ntohl(address.s_addr) >> 24) != 127) {
        throw Failure(Quoted(text) + " is not a loopback address (127.x.y.z)");
    }
    return address;
}

[[noreturn]] void FailWithErrno(const std::string& what) {
    throw Failure(what + ": " + std::strerror(errno));
}

bool WaitFor(int descriptor, short events) {
    pollfd entry{descriptor, events, 0};
    return ::poll(&entry, 1, kTick) > 0;
}

// Closing with pending linger time zero sends a reset instead of an orderly end.
void ResetOnClose(int descriptor) {
    const linger none{1, 0};
    ::setsockopt(descriptor, SOL_SOCKET, SO_LINGER, &none, sizeof(none));
}

}  // namespace

/// One visitor: its bytes, as they go into the log, and the questions found in them.
class PlayedPrinter::Connection {
public:
    Connection(PlayedPrinter& printer, int descriptor)
        : printer_(printer), descriptor_(descriptor) {}
    ~Connection() {
        LogPending();
        printer_.log_("connection " + std::to_string(printer_.connections_) + " closed after " +
                      std::to_string(received_) + " bytes");
        ::close(descriptor_);
    }
    Connection(const Connection&) = delete;
    Connection& operator=(const Connection&) = delete;

    void Run() {
        auto lastByte = Clock::now();
        while (printer_.Running() && Clock::now() - lastByte < kIdleLimit) {
            if (!WaitFor(descriptor_, POLLIN)) continue;
            std::array<char, 1024> bytes;
            const ssize_t count = ::recv(descriptor_, bytes.data(), bytes.size(), 0);
            if (count <= 0) return;
            lastByte = Clock::now();
            if (!Take({bytes.data(), static_cast<std::size_t>(count)})) return;
        }
    }

private:
    // False when the connection is to be closed.
    bool Take(std::string_view bytes) {
        for (const char byte : bytes) {
            Log(byte);
            if (byte == '\n') {
                if (!AnswerLine()) return false;
            } else if (line_.size() < kLongestLine) {
                line_ += byte;
            }
        }
        return true;
    }

    // A question may follow an escape sequence that ends in no line end.
    bool AnswerLine() {
        std::string_view command = line_;
        command = command.substr(std::min(command.find("@PJL"), command.size()));
        while (command.ends_with('\r')) command.remove_suffix(1);
        const std::string answer = PjlAnswer(command, printer_.options_);
        line_.clear();
        return printer_.options_.silent || answer.empty() || SendAnswer(answer);
    }

    bool SendAnswer(std::string_view answer) {
        const PlayedPrinterOptions& options = printer_.options_;
        const bool reset = options.resetAfter > 0 && options.resetAfter < answer.size();
        if (reset) answer = answer.substr(0, options.resetAfter);
        const std::size_t pieces = std::max(1u, options.split);
        const std::size_t piece = options.slowDrip ? 1 : (answer.size() + pieces - 1) / pieces;
        const milliseconds delay = options.slowDrip ? kDripDelay : kPieceDelay;
        for (std::size_t at = 0; at < answer.size(); at += piece) {
            if (at > 0 && !Pause(delay)) return false;
            if (!SendAll(answer.substr(at, piece))) return false;
        }
        if (reset) ResetOnClose(descriptor_);
        return !reset;
    }

    [[nodiscard]] bool Pause(milliseconds delay) const {
        const auto end = Clock::now() + delay;
        while (printer_.Running() && Clock::now() < end) {
            std::this_thread::sleep_for(milliseconds(kTick));
        }
        return printer_.Running();
    }

    [[nodiscard]] bool SendAll(std::string_view bytes) const {
        while (!bytes.empty() && printer_.Running()) {
            if (!WaitFor(descriptor_, POLLOUT)) continue;
            const ssize_t sent =
                ::send(descriptor_, bytes.data(), bytes.size(), MSG_NOSIGNAL | MSG_DONTWAIT);
            if (sent < 0 && errno != EAGAIN) return false;
            if (sent > 0) bytes.remove_prefix(static_cast<std::size_t>(sent));
        }
        return bytes.empty();
    }

    // Lines of sixteen bytes, however the network cut them.
    void Log(char byte) {
        static constexpr char kDigits[] = "0123456789abcdef";
        const auto value = static_cast<unsigned char>(byte);
        if (!logLine_.empty()) logLine_ += ' ';
        logLine_ += kDigits[value >> 4];
        logLine_ += kDigits[value & 0xF];
        if (++received_ % kBytesPerLogLine == 0) LogPending();
    }

    void LogPending() {
        if (!logLine_.empty()) printer_.log_(logLine_);
        logLine_.clear();
    }

    PlayedPrinter& printer_;
    int descriptor_;
    std::string line_;
    std::string logLine_;
    std::size_t received_ = 0;
};

PlayedPrinter::PlayedPrinter(PlayedPrinterOptions options, LogLine log)
    : options_(std::move(options)), log_(std::move(log)) {
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_port = htons(kPrinterPort);
    address.sin_addr = LoopbackAddress(options_.address);
    listener_ = ::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
    if (listener_ < 0) FailWithErrno("no socket");
    const int on = 1;
    ::setsockopt(listener_, SOL_SOCKET, SO_REUSEADDR, &on, sizeof(on));
    const bool bound =
        ::bind(listener_, reinterpret_cast<const sockaddr*>(&address), sizeof(address)) == 0;
    if (!bound || (!options_.refuse && ::listen(listener_, 16) != 0)) {
        const int error = errno;
        ::close(listener_);
        errno = error;
        FailWithErrno("port 9100 of " + options_.address + " cannot be had");
    }
}

PlayedPrinter::~PlayedPrinter() {
    ::close(listener_);
}

bool PlayedPrinter::Running() const {
    return !stopped_ && Clock::now() < end_;
}

void PlayedPrinter::Serve(milliseconds atMost, bool once) {
    end_ = Clock::now() + atMost;
    log_((options_.refuse ? "refusing on " : "listening on ") + options_.address + ":9100");
    while (Running()) {
        if (options_.refuse) {
            std::this_thread::sleep_for(milliseconds(kTick));
            continue;
        }
        if (!WaitFor(listener_, POLLIN)) continue;
        const int visitor = ::accept4(listener_, nullptr, nullptr, SOCK_CLOEXEC);
        if (visitor < 0) continue;
        ServeConnection(visitor);
        if (once) return;
    }
}

void PlayedPrinter::ServeConnection(int descriptor) {
    const int on = 1;
    ::setsockopt(descriptor, IPPROTO_TCP, TCP_NODELAY, &on, sizeof(on));
    ++connections_;
    log_("connection " + std::to_string(connections_));
    Connection(*this, descriptor).Run();
}

}  // namespace host
