#include "tests/net/played_printer.h"

#include <arpa/inet.h>
#include <netinet/in.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <mutex>
#include <stdexcept>
#include <thread>

namespace tests {
namespace {

constexpr std::string_view kUniversalExit = "\x1B%-12345X";
constexpr in_port_t kPrinterPort = 9100;

// Addresses that tests running side by side do not share: from the process id and a count.
in_addr_t NextAddress() {
    static in_addr_t count = 0;
    const auto process = static_cast<in_addr_t>(::getpid());
    return htonl(0x7F000000 | ((0x400000 + process * 0x40 + ++count % 0x40) & 0xFFFFFF));
}

std::string AddressText(in_addr_t address) {
    std::array<char, INET_ADDRSTRLEN> text = {};
    ::inet_ntop(AF_INET, &address, text.data(), text.size());
    return text.data();
}

bool IsWholeMessage(const std::string& message) {
    const std::size_t second = message.find(kUniversalExit, 1);
    return second != std::string::npos || message.find('\0') != std::string::npos;
}

}  // namespace

struct PlayedPrinter::Server {
    explicit Server(PrinterScript wanted) : script(std::move(wanted)), address(NextAddress()) {
        sockaddr_in name = {};
        name.sin_family = AF_INET;
        name.sin_port = htons(kPrinterPort);
        name.sin_addr.s_addr = address;
        listener = ::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
        const int on = 1;
        ::setsockopt(listener, SOL_SOCKET, SO_REUSEADDR, &on, sizeof on);
        if (::bind(listener, reinterpret_cast<const sockaddr*>(&name), sizeof name) != 0 ||
            ::listen(listener, 8) != 0 || ::pipe(stopPipe.data()) != 0)
            throw std::runtime_error("cannot listen on " + AddressText(address));
        thread = std::thread([this] { Serve(); });
    }

    ~Server() {
        ::close(stopPipe[1]);
        thread.join();
        ::close(stopPipe[0]);
        ::close(listener);
    }

    // False when the printer is switched off.
    bool WaitFor(int descriptor) const {
        std::array<pollfd, 2> entries = {{{descriptor, POLLIN, 0}, {stopPipe[0], POLLIN, 0}}};
        ::poll(entries.data(), entries.size(), -1);
        return entries[1].revents == 0;
    }

    void Serve() {
        while (WaitFor(listener)) {
            const int connection = ::accept(listener, nullptr, nullptr);
            if (connection < 0) return;
            Serve(connection);
            if (script.resets) {
                const linger atOnce = {1, 0};
                ::setsockopt(connection, SOL_SOCKET, SO_LINGER, &atOnce, sizeof atOnce);
            }
            ::close(connection);
        }
    }

    void Serve(int connection) {
        std::size_t number = 0;
        {
            const std::lock_guard lock(mutex);
            number = received.size();
            received.emplace_back();
        }
        bool answered = false;
        std::array<char, 4096> block = {};
        while (WaitFor(connection)) {
            const ssize_t count = ::recv(connection, block.data(), block.size(), 0);
            if (count <= 0) return;
            std::unique_lock lock(mutex);
            received[number].append(block.data(), static_cast<std::size_t>(count));
            const bool isWhole = IsWholeMessage(received[number]);
            lock.unlock();
            if (!answered && isWhole) {
                Answer(connection, number);
                answered = true;
                if (script.closesAfter || script.resets) return;
            }
        }
    }

    void Answer(int connection, std::size_t number) const {
        if (script.answers.empty()) return;
        const std::string& answer = script.answers[std::min(number, script.answers.size() - 1)];
        const std::size_t piece = script.pieceBytes != 0 ? script.pieceBytes : answer.size();
        for (std::size_t at = 0; at < answer.size(); at += piece) {
            const std::string part = answer.substr(at, piece);
            if (::send(connection, part.data(), part.size(), MSG_NOSIGNAL) < 0) return;
            if (script.pieceBytes != 0) std::this_thread::yield();
        }
    }

    PrinterScript script;
    in_addr_t address;
    int listener = -1;
    std::array<int, 2> stopPipe = {-1, -1};
    mutable std::mutex mutex;
    std::vector<std::string> received;
    std::thread thread;
};

PlayedPrinter::PlayedPrinter(PrinterScript script)
    : server_(std::make_unique<Server>(std::move(script))) {}

PlayedPrinter::~PlayedPrinter() = default;

std::string PlayedPrinter::Address() const {
    return AddressText(server_->address);
}

std::vector<std::string> PlayedPrinter::Received() const {
    const std::lock_guard lock(server_->mutex);
    return server_->received;
}

std::string PlayedPrinter::UnusedAddress() {
    return AddressText(NextAddress());
}

}  // namespace tests
