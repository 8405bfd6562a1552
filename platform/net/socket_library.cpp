// The socket library's calls over this machine's own sockets.
#include <winbase.h>
#include <winsock.h>

#include <cstdio>
#include <cstring>
#include <map>
#include <mutex>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/base/fail.h"
#include "platform/base/handles.h"
#include "platform/faults/failure_points.h"
#include "platform/faults/live_objects.h"
#include "platform/net/host_names.h"
#include "platform/net/posix_sockets.h"

using platform::Fail;
using platform::InjectedFailure;

namespace {

namespace net = platform::net;

constexpr WORD kVersion = 0x0101;
constexpr WORD kHighestVersion = 0x0202;  // of the platform's library, whichever is asked for
constexpr int kConnectMilliseconds = 21000;

struct OpenSocket {
    int descriptor;
    bool waits = true;
    bool connected = false;  // or on the way to be
};

// The library of this process: its starts and its sockets. A socket's number is never given twice,
// so that a closed one stays unknown.
std::mutex mutex;
int starts = 0;
std::map<SOCKET, OpenSocket> sockets;

// Copies the socket behind a number, because no lock is held while a call waits; on failure the
// socket error is set.
bool FindSocket(SOCKET socket, OpenSocket* found) {
    const std::lock_guard lock(mutex);
    if (starts == 0) return Fail(WSANOTINITIALISED, false);
    const auto entry = sockets.find(socket);
    if (entry == sockets.end()) return Fail(WSAENOTSOCK, false);
    *found = entry->second;
    return true;
}

template <typename Change>
void ChangeSocket(SOCKET socket, Change change) {
    const std::lock_guard lock(mutex);
    const auto entry = sockets.find(socket);
    if (entry != sockets.end()) change(entry->second);
}

DWORD CheckKind(int family, int type, int protocol) {
    if (family != AF_INET) return WSAEAFNOSUPPORT;
    if (type != SOCK_STREAM) return WSAESOCKTNOSUPPORT;
    return protocol == 0 || protocol == IPPROTO_TCP ? 0 : WSAEPROTONOSUPPORT;
}

DWORD AddSocket(SOCKET* number) {
    const std::lock_guard lock(mutex);
    if (starts == 0) return WSANOTINITIALISED;
    OpenSocket open = {};
    if (const DWORD error = net::OpenStream(&open.descriptor)) return error;
    *number = platform::NextHandleValue();
    sockets.emplace(*number, open);
    platform::CountObject("socket", 1);
    return 0;
}

bool LibraryStarted() {
    const std::lock_guard lock(mutex);
    return starts != 0;
}

void CloseAllSockets() {
    for (const auto& [number, open] : sockets) {
        net::CloseStream(open.descriptor);
        platform::CountObject("socket", -1);
    }
    sockets.clear();
}

// What the last look-up of a thread answered.
struct HostAnswer {
    std::string name;
    std::vector<ULONG> addresses;
    std::vector<CHAR*> addressList;
    CHAR* noAlias = nullptr;
    hostent entry = {};
};
thread_local HostAnswer hostAnswer;

hostent* FillHostAnswer(const CHAR* name, std::vector<ULONG> addresses) {
    HostAnswer& answer = hostAnswer;
    answer.name = name;
    answer.addresses = std::move(addresses);
    answer.addressList.clear();
    for (ULONG& address : answer.addresses) {
        answer.addressList.push_back(reinterpret_cast<CHAR*>(&address));
    }
    answer.addressList.push_back(nullptr);
    answer.entry = {answer.name.data(), &answer.noAlias, AF_INET, sizeof(ULONG),
                    answer.addressList.data()};
    return &answer.entry;
}

}  // namespace

int WINAPI WSAStartup(WORD version, WSADATA* details) {
    if (const auto error = InjectedFailure("WSAStartup")) return static_cast<int>(*error);
    if (details == nullptr) return WSAEFAULT;
    const int major = version & 0xFF;
    if (major < 1 || (major == 1 && version < kVersion)) return WSAVERNOTSUPPORTED;
    *details = {};
    details->wVersion = kVersion;
    details->wHighVersion = kHighestVersion;
    std::snprintf(details->szDescription, sizeof details->szDescription, "Loopback sockets");
    std::snprintf(details->szSystemStatus, sizeof details->szSystemStatus, "Running");
    const std::lock_guard lock(mutex);
    ++starts;
    platform::CountObject("socket library", 1);
    return 0;
}

int WINAPI WSACleanup() {
    if (const auto error = InjectedFailure("WSACleanup")) return Fail(*error, SOCKET_ERROR);
    const std::lock_guard lock(mutex);
    if (starts == 0) return Fail(WSANOTINITIALISED, SOCKET_ERROR);
    if (--starts == 0) CloseAllSockets();
    platform::CountObject("socket library", -1);
    return 0;
}

int WINAPI WSAGetLastError() {
    return static_cast<int>(GetLastError());
}

SOCKET WINAPI socket(int family, int type, int protocol) {
    if (const auto error = InjectedFailure("socket")) return Fail(*error, INVALID_SOCKET);
    SOCKET number = INVALID_SOCKET;
    DWORD error = CheckKind(family, type, protocol);
    if (error == 0) error = AddSocket(&number);
    return error == 0 ? number : Fail(error, INVALID_SOCKET);
}

int WINAPI connect(SOCKET socket, const sockaddr* address, int addressSize) {
    if (const auto error = InjectedFailure("connect")) return Fail(*error, SOCKET_ERROR);
    OpenSocket open = {};
    if (!FindSocket(socket, &open)) return SOCKET_ERROR;
    sockaddr_in target = {};
    if (address == nullptr || addressSize < static_cast<int>(sizeof target)) {
        return Fail(WSAEFAULT, SOCKET_ERROR);
    }
    std::memcpy(&target, address, sizeof target);
    if (target.sin_family != AF_INET) return Fail(WSAEAFNOSUPPORT, SOCKET_ERROR);
    const DWORD error = net::ConnectStream(open.descriptor, target.sin_addr.s_addr, target.sin_port,
                                           open.waits ? kConnectMilliseconds : 0);
    if (error == 0 || error == WSAEWOULDBLOCK) {
        ChangeSocket(socket, [](OpenSocket& changed) { changed.connected = true; });
    }
    return error == 0 ? 0 : Fail(error, SOCKET_ERROR);
}

int WINAPI ioctlsocket(SOCKET socket, LONG command, ULONG* value) {
    if (const auto error = InjectedFailure("ioctlsocket")) return Fail(*error, SOCKET_ERROR);
    OpenSocket open = {};
    if (!FindSocket(socket, &open)) return SOCKET_ERROR;
    if (value == nullptr) return Fail(WSAEFAULT, SOCKET_ERROR);
    if (command != FIONBIO) return Fail(WSAEINVAL, SOCKET_ERROR);
    if (const DWORD error = net::SetWaiting(open.descriptor, *value == 0)) {
        return Fail(error, SOCKET_ERROR);
    }
    ChangeSocket(socket, [value](OpenSocket& changed) { changed.waits = *value == 0; });
    return 0;
}

int WINAPI send(SOCKET socket, const CHAR* bytes, int length, int flags) {
    if (const auto error = InjectedFailure("send")) return Fail(*error, SOCKET_ERROR);
    OpenSocket open = {};
    if (!FindSocket(socket, &open)) return SOCKET_ERROR;
    if (bytes == nullptr || length < 0) return Fail(WSAEFAULT, SOCKET_ERROR);
    if (flags != 0) return Fail(WSAEOPNOTSUPP, SOCKET_ERROR);
    if (!open.connected) return Fail(WSAENOTCONN, SOCKET_ERROR);
    std::size_t sent = 0;
    const DWORD error =
        net::SendBytes(open.descriptor, {bytes, static_cast<std::size_t>(length)}, &sent);
    return error == 0 ? static_cast<int>(sent) : Fail(error, SOCKET_ERROR);
}

int WINAPI recv(SOCKET socket, CHAR* buffer, int length, int flags) {
    if (const auto error = InjectedFailure("recv")) return Fail(*error, SOCKET_ERROR);
    OpenSocket open = {};
    if (!FindSocket(socket, &open)) return SOCKET_ERROR;
    if (buffer == nullptr || length < 0) return Fail(WSAEFAULT, SOCKET_ERROR);
    if (flags != 0) return Fail(WSAEOPNOTSUPP, SOCKET_ERROR);
    std::size_t received = 0;
    const DWORD error =
        net::ReceiveBytes(open.descriptor, {buffer, static_cast<std::size_t>(length)}, &received);
    return error == 0 ? static_cast<int>(received) : Fail(error, SOCKET_ERROR);
}

int WINAPI closesocket(SOCKET socket) {
    if (const auto error = InjectedFailure("closesocket")) return Fail(*error, SOCKET_ERROR);
    OpenSocket open = {};
    if (!FindSocket(socket, &open)) return SOCKET_ERROR;
    const std::lock_guard lock(mutex);
    if (sockets.erase(socket) == 0) return Fail(WSAENOTSOCK, SOCKET_ERROR);
    net::CloseStream(open.descriptor);
    platform::CountObject("socket", -1);
    return 0;
}

USHORT WINAPI htons(USHORT value) {
    return __builtin_bswap16(value);
}

ULONG WINAPI inet_addr(const CHAR* text) {
    if (text == nullptr) return INADDR_NONE;
    if (std::string_view(text) == " ") return 0;
    return net::ParseAddress(text).value_or(INADDR_NONE);
}

hostent* WINAPI gethostbyname(const CHAR* name) {
    if (const auto error = InjectedFailure("gethostbyname")) return Fail<hostent*>(*error);
    if (!LibraryStarted()) return Fail<hostent*>(WSANOTINITIALISED);
    std::vector<ULONG> addresses;
    if (name != nullptr) addresses = net::LookUpHost(name);
    if (addresses.empty()) return Fail<hostent*>(WSAHOST_NOT_FOUND);
    return FillHostAnswer(name, std::move(addresses));
}
