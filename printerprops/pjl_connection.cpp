#include "printerprops/pjl_connection.h"

#include <utility>

namespace oemui {
namespace {

constexpr USHORT kRawPort = 9100;

/// A socket that is closed unless somebody takes it over.
class UniqueSocket {
public:
    explicit UniqueSocket(SOCKET socket) : socket_(socket) {}
    UniqueSocket(const UniqueSocket&) = delete;
    UniqueSocket& operator=(const UniqueSocket&) = delete;
    ~UniqueSocket() {
        if (socket_ != INVALID_SOCKET) ::closesocket(socket_);
    }

    SOCKET Get() const { return socket_; }
    SOCKET Release() { return std::exchange(socket_, INVALID_SOCKET); }

private:
    SOCKET socket_;
};

bool SetBlocking(SOCKET socket, bool blocks) {
    ULONG isNonBlocking = blocks ? 0 : 1;
    // The command's top bit makes it negative in the signed type that the platform declares.
    return ::ioctlsocket(socket, static_cast<LONG>(FIONBIO), &isNonBlocking) != SOCKET_ERROR;
}

bool Connect(SOCKET socket, const sockaddr_in& address) {
    return ::connect(socket, reinterpret_cast<const sockaddr*>(&address), sizeof address) !=
           SOCKET_ERROR;
}

}  // namespace

bool OpenPrinterConnection(PrinterLink* link) {
    if (link->OpenCount > 0) return true;
    link->Socket = INVALID_SOCKET;
    if (link->Found == 0) return false;
    UniqueSocket socket(::socket(AF_INET, SOCK_STREAM, 0));
    if (socket.Get() == INVALID_SOCKET) return false;
    link->Address.sin_port = ::htons(kRawPort);
    if (!Connect(socket.Get(), link->Address)) return false;
    if (!SetBlocking(socket.Get(), false)) return false;
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
