#include "printerprops/pjl_connection.h"

#include <utility>

namespace oemui {
namespace {

constexpr USHORT kRawPort = 9100;
constexpr DWORD kConnectPollMilliseconds = 50;

/// A socket that is closed unless somebody takes it over.
class UniqueSocket {
public:
    explicit UniqueSocket(SOCKET socket) : socket_(socket) {}
    UniqueSocket(const UniqueSocket&) = delete;
    UniqueSocket& operator=(const UniqueSocket&) = delete;
    ~UniqueSocket() {
        if (socket_ != INVALID_SOCKET) ::closesocket(socket_);
    }

    [[nodiscard]] SOCKET Get() const { return socket_; }
    SOCKET Release() { return std::exchange(socket_, INVALID_SOCKET); }

private:
    SOCKET socket_;
};

bool SetBlocking(SOCKET socket, bool blocks) {
    ULONG isNonBlocking = blocks ? 0 : 1;
    // The command's top bit makes it negative in the signed type that the platform declares.
    return ::ioctlsocket(socket, static_cast<LONG>(FIONBIO), &isNonBlocking) != SOCKET_ERROR;
}

/// A program that the application starts meanwhile must not take the connection along: it would
/// keep it open for as long as it runs, and a printer may have only one. Where the platform cannot
/// say so of a socket, there is nothing to inherit.
void KeepFromOtherPrograms(SOCKET socket) {
    ::SetHandleInformation(reinterpret_cast<HANDLE>(socket), HANDLE_FLAG_INHERIT, 0);
}

/// One step of connecting. \return 0 when connected, or the socket's error.
int TryConnect(SOCKET socket, const sockaddr_in& address) {
    const auto* target = reinterpret_cast<const sockaddr*>(&address);
    if (::connect(socket, target, sizeof address) != SOCKET_ERROR) return 0;
    const int error = ::WSAGetLastError();
    return error == WSAEISCONN ? 0 : error;
}

/// Connects without blocking: left to itself the platform waits for longer than the whole query
/// may take.
bool Connect(SOCKET socket, const sockaddr_in& address, QueryTime* time) {
    int error = TryConnect(socket, address);
    if (error != WSAEWOULDBLOCK) return error == 0;
    // Asked again, the older library says "invalid" of a connect under way. "Would block" would
    // mean that the first attempt has failed and another has begun.
    do {
        error = TryConnect(socket, address);
        if (error != WSAEALREADY && error != WSAEINVAL) return error == 0;
    } while (time->Wait(kConnectPollMilliseconds));
    return false;
}

}  // namespace

bool OpenPrinterConnection(PrinterLink* link, QueryTime* time) {
    if (link->OpenCount > 0) return true;
    link->Socket = INVALID_SOCKET;
    if (link->Found == 0) return false;
    UniqueSocket socket(::socket(AF_INET, SOCK_STREAM, 0));
    if (socket.Get() == INVALID_SOCKET) return false;
    KeepFromOtherPrograms(socket.Get());
    link->Address.sin_port = ::htons(kRawPort);
    if (!SetBlocking(socket.Get(), false)) return false;
    if (!Connect(socket.Get(), link->Address, time)) return false;
    link->Socket = socket.Release();
    ++link->OpenCount;
    return true;
}

bool ClosePrinterConnection(PrinterLink* link) {
    if (link->OpenCount > 0 && --link->OpenCount > 0) return true;
    if (!SetBlocking(link->Socket, true)) return false;
    if (link->Found == 1 && link->Socket != INVALID_SOCKET) ::closesocket(link->Socket);
    link->Socket = INVALID_SOCKET;
    return true;
}

bool SendToPrinter(PrinterLink* link, std::string_view bytes, DWORD* sent) {
    *sent = 0;
    if (link->Found == 0) return true;
    const int accepted = ::send(link->Socket, bytes.data(), static_cast<int>(bytes.size()), 0);
    if (accepted == SOCKET_ERROR) return ::WSAGetLastError() == WSAEWOULDBLOCK;
    *sent = static_cast<DWORD>(accepted);
    return true;
}

bool ReceiveFromPrinter(PrinterLink* link, std::span<char> buffer, DWORD* received,
                        int* lastError) {
    *received = 0;
    if (link->Found == 0) return true;
    const int count = ::recv(link->Socket, buffer.data(), static_cast<int>(buffer.size()), 0);
    if (count == SOCKET_ERROR) {
        *lastError = ::WSAGetLastError();
        return *lastError == WSAEWOULDBLOCK;
    }
    *received = static_cast<DWORD>(count);
    return count > 0;
}

}  // namespace oemui
