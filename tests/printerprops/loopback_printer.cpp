// This machine's own sockets, not the layer's: the other end of the wire is no part of the
// platform.
#include "tests/printerprops/loopback_printer.h"

#ifdef _WIN32
#include <process.h>
#include <winsock.h>
#define getpid _getpid
#define close closesocket
#define MSG_NOSIGNAL 0
using Descriptor = SOCKET;
using Size = int;
#else
#include <arpa/inet.h>
#include <sys/socket.h>
#include <unistd.h>
using Descriptor = int;
using Size = std::size_t;
#endif

#include <chrono>

namespace tests {
namespace {

constexpr auto kPause = std::chrono::milliseconds(300);

/// Binds to the first address that no other test of this moment has.
std::string BindSomewhere(Descriptor socket) {
    static unsigned next = 0;
    const auto process = static_cast<unsigned>(getpid());
    for (int attempt = 0; attempt < 200; ++attempt) {
        std::string text = "127." + std::to_string(1 + next++ % 250) + "." +
                           std::to_string(process / 250 % 250) + "." +
                           std::to_string(1 + process % 250);
        sockaddr_in address = {};
        address.sin_family = AF_INET;
        address.sin_port = htons(9100);
        address.sin_addr.s_addr = inet_addr(text.c_str());
        if (bind(socket, reinterpret_cast<sockaddr*>(&address), sizeof address) == 0) return text;
    }
    return "no address";
}

}  // namespace

const LoopbackPrinter::Pieces LoopbackPrinter::kHangsUp = {"hangs up"};

LoopbackPrinter::LoopbackPrinter(std::vector<Pieces> answers) : answers_(std::move(answers)) {
#ifdef _WIN32
    WSADATA details;
    WSAStartup(MAKEWORD(1, 1), &details);
#endif
    const Descriptor listener = socket(AF_INET, SOCK_STREAM, 0);
    listener_ = static_cast<std::uintptr_t>(listener);
    address_ = BindSomewhere(listener);
    if (answers_.empty()) return;
    listen(listener, 8);
    thread_ = std::thread([this] { Play(); });
}

LoopbackPrinter::~LoopbackPrinter() {
    // Wakes a thread that still waits for a connection.
    shutdown(static_cast<Descriptor>(listener_), 2);
    close(static_cast<Descriptor>(listener_));
    if (thread_.joinable()) thread_.join();
}

const std::string& LoopbackPrinter::Received() {
    if (thread_.joinable()) thread_.join();
    return received_;
}

void LoopbackPrinter::Play() {
    for (const Pieces& pieces : answers_) {
        const Descriptor connection = accept(static_cast<Descriptor>(listener_), nullptr, nullptr);
        if (connection == static_cast<Descriptor>(-1)) return;
        PlayConnection(static_cast<std::uintptr_t>(connection), pieces);
        close(connection);
    }
}

void LoopbackPrinter::PlayConnection(std::uintptr_t connection, const Pieces& pieces) {
    const auto socket = static_cast<Descriptor>(connection);
    if (pieces == kHangsUp) shutdown(socket, 1);
    std::string message;
    char bytes[4096];
    for (auto count = recv(socket, bytes, sizeof bytes, 0); count > 0;
         count = recv(socket, bytes, sizeof bytes, 0)) {
        message.append(bytes, bytes + count);
        if (message.size() < 10 || !message.ends_with("\x1B%-12345X")) continue;
        for (const std::string& piece : pieces) {
            if (&piece != &pieces.front()) std::this_thread::sleep_for(kPause);
            send(socket, piece.data(), static_cast<Size>(piece.size()), MSG_NOSIGNAL);
        }
    }
    received_ += message;
}

}  // namespace tests
