// This machine's own sockets, not the layer's: the other end of the wire is no part of the
// platform.
#include "tests/support/loopback_printer.h"

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
#include <cstdlib>

namespace tests {
namespace {

constexpr auto kPause = std::chrono::milliseconds(300);
constexpr int kSending = 1;
constexpr int kBothWays = 2;

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

bool IsWhole(const std::string& message) {
    return message.find("\x1B%-12345X", 1) != std::string::npos ||
           message.find('\0') != std::string::npos;
}

/// \return false when the connection is broken off.
bool Say(Descriptor socket, const LoopbackPrinter::Answer& answer) {
    for (const std::string& text : answer) {
        if (text == LoopbackPrinter::kResets) {
            const linger atOnce = {1, 0};
            setsockopt(socket, SOL_SOCKET, SO_LINGER, reinterpret_cast<const char*>(&atOnce),
                       sizeof atOnce);
            return false;
        }
        if (text == LoopbackPrinter::kHangsUp) {
            shutdown(socket, kSending);
            break;
        }
        if (&text != &answer.front()) std::this_thread::sleep_for(kPause);
        send(socket, text.data(), static_cast<Size>(text.size()), MSG_NOSIGNAL);
    }
    return true;
}

}  // namespace

const std::string LoopbackPrinter::kHangsUp = "\1hangs up";
const std::string LoopbackPrinter::kResets = "\1resets";
const std::string LoopbackPrinter::kNeverAccepts = "\1never accepts";

LoopbackPrinter::LoopbackPrinter(std::vector<Answer> answers) : answers_(std::move(answers)) {
#ifdef _WIN32
    WSADATA details;
    WSAStartup(MAKEWORD(1, 1), &details);
#endif
    const Descriptor listener = socket(AF_INET, SOCK_STREAM, 0);
    listener_ = static_cast<std::uintptr_t>(listener);
    address_ = BindSomewhere(listener);
    if (answers_.empty()) return;
    if (answers_.front() == Answer{kNeverAccepts}) {
        FillUp();
        return;
    }
    listen(listener, 8);
    thread_ = std::thread([this] { Play(); });
}

LoopbackPrinter::~LoopbackPrinter() {
    // Wakes a thread that still waits for a connection.
    shutdown(static_cast<Descriptor>(listener_), kBothWays);
    close(static_cast<Descriptor>(listener_));
    if (guest_ != 0) close(static_cast<Descriptor>(guest_));
    if (thread_.joinable()) thread_.join();
}

const std::vector<std::string>& LoopbackPrinter::Received() {
    if (thread_.joinable()) thread_.join();
    return received_;
}

void LoopbackPrinter::FillUp() {
    listen(static_cast<Descriptor>(listener_), 0);
    sockaddr_in address = {};
    address.sin_family = AF_INET;
    address.sin_port = htons(9100);
    address.sin_addr.s_addr = inet_addr(address_.c_str());
    const Descriptor guest = socket(AF_INET, SOCK_STREAM, 0);
    guest_ = static_cast<std::uintptr_t>(guest);
    if (connect(guest, reinterpret_cast<sockaddr*>(&address), sizeof address) != 0) abort();
}

void LoopbackPrinter::Play() {
    for (const Answer& answer : answers_) {
        const Descriptor connection = accept(static_cast<Descriptor>(listener_), nullptr, nullptr);
        if (connection == static_cast<Descriptor>(-1)) return;
        PlayConnection(static_cast<std::uintptr_t>(connection), answer);
        close(connection);
    }
}

void LoopbackPrinter::PlayConnection(std::uintptr_t connection, const Answer& answer) {
    const auto socket = static_cast<Descriptor>(connection);
    std::string& message = received_.emplace_back();
    bool answered = answer == Answer{kHangsUp};
    if (answered) shutdown(socket, kSending);
    char bytes[4096];
    for (auto count = recv(socket, bytes, sizeof bytes, 0); count > 0;
         count = recv(socket, bytes, sizeof bytes, 0)) {
        message.append(bytes, bytes + count);
        if (answered || !IsWhole(message)) continue;
        answered = true;
        if (!Say(socket, answer)) return;
    }
}

}  // namespace tests
