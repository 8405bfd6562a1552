#include "platform/net/posix_sockets.h"

#include <arpa/inet.h>
#include <fcntl.h>
#include <netinet/in.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <chrono>

namespace platform::net {
namespace {

// The platform's codes stand in a header whose names clash with the ones included here.
constexpr DWORD kNetworkUnreachable = 10051;
constexpr DWORD kTimedOut = 10060;
constexpr DWORD kWouldBlock = 10035;
constexpr DWORD kInvalidArgument = 10022;
constexpr DWORD kIsConnected = 10056;

struct ErrorPair {
    int posix;
    DWORD platform;
};

constexpr auto kErrors =
    std::to_array<ErrorPair>({{EAGAIN, kWouldBlock},   {EINPROGRESS, kWouldBlock},
                              {EALREADY, 10037},       {EACCES, 10013},
                              {EPERM, 10013},          {EFAULT, 10014},
                              {EBADF, 10038},          {ENOTSOCK, 10038},
                              {EMFILE, 10024},         {ENFILE, 10024},
                              {EPROTOTYPE, 10041},     {EPROTONOSUPPORT, 10043},
                              {EOPNOTSUPP, 10045},     {EAFNOSUPPORT, 10047},
                              {EADDRINUSE, 10048},     {EADDRNOTAVAIL, 10049},
                              {ENETDOWN, 10050},       {ENETUNREACH, kNetworkUnreachable},
                              {ECONNABORTED, 10053},   {ECONNRESET, 10054},
                              {EPIPE, 10054},          {ENOBUFS, 10055},
                              {EISCONN, kIsConnected}, {ENOTCONN, 10057},
                              {ETIMEDOUT, kTimedOut},  {ECONNREFUSED, 10061},
                              {EHOSTUNREACH, 10065}});

DWORD PlatformError(int posix) {
    const auto* found = std::ranges::find(kErrors, posix, &ErrorPair::posix);
    return found == kErrors.end() ? kInvalidArgument : found->platform;
}

// Waits for an event over interrupting signals, within the time as a whole.
bool WaitFor(int descriptor, short events, int milliseconds) {
    using Clock = std::chrono::steady_clock;
    const auto end = Clock::now() + std::chrono::milliseconds(milliseconds);
    pollfd entry = {descriptor, events, 0};
    while (true) {
        const auto left = std::chrono::ceil<std::chrono::milliseconds>(end - Clock::now()).count();
        const int ready = ::poll(&entry, 1, static_cast<int>(std::max<long>(left, 0)));
        if (ready > 0) return true;
        if (ready == 0 || errno != EINTR) return false;
    }
}

DWORD FinishConnecting(int descriptor, int milliseconds) {
    if (milliseconds == 0) return kWouldBlock;
    if (!WaitFor(descriptor, POLLOUT, milliseconds)) return kTimedOut;
    int error = 0;
    socklen_t size = sizeof error;
    if (::getsockopt(descriptor, SOL_SOCKET, SO_ERROR, &error, &size) != 0) error = errno;
    return error == 0 ? 0 : PlatformError(error);
}

// Asked for itself: the first new connect after one that did not wait would succeed.
bool IsConnected(int descriptor) {
    sockaddr_in peer = {};
    socklen_t size = sizeof peer;
    return ::getpeername(descriptor, reinterpret_cast<sockaddr*>(&peer), &size) == 0;
}

bool Waits(int descriptor) {
    return (::fcntl(descriptor, F_GETFL) & O_NONBLOCK) == 0;
}

}  // namespace

bool IsLoopback(ULONG address) {
    return (ntohl(address) >> 24) == 127;
}

DWORD OpenStream(int* descriptor) {
    *descriptor = ::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
    return *descriptor < 0 ? PlatformError(errno) : 0;
}

void CloseStream(int descriptor) {
    ::close(descriptor);
}

DWORD ConnectStream(int descriptor, ULONG address, USHORT port, int milliseconds) {
    if (!IsLoopback(address)) return kNetworkUnreachable;
    if (IsConnected(descriptor)) return kIsConnected;
    const bool waits = Waits(descriptor);
    if (const DWORD error = SetWaiting(descriptor, false)) return error;
    sockaddr_in target = {};
    target.sin_family = AF_INET;
    target.sin_port = port;
    target.sin_addr.s_addr = address;
    DWORD error = 0;
    if (::connect(descriptor, reinterpret_cast<const sockaddr*>(&target), sizeof target) != 0) {
        // An interrupted connect goes on by itself, like one that does not wait.
        const bool open = errno == EINPROGRESS || errno == EINTR;
        error = open ? FinishConnecting(descriptor, milliseconds) : PlatformError(errno);
    }
    const DWORD restored = waits ? SetWaiting(descriptor, true) : 0;
    return error != 0 ? error : restored;
}

DWORD SetWaiting(int descriptor, bool waits) {
    const int flags = ::fcntl(descriptor, F_GETFL);
    if (flags < 0) return PlatformError(errno);
    const int wanted = waits ? flags & ~O_NONBLOCK : flags | O_NONBLOCK;
    return ::fcntl(descriptor, F_SETFL, wanted) != 0 ? PlatformError(errno) : 0;
}

DWORD SendBytes(int descriptor, std::span<const char> bytes, std::size_t* sent) {
    ssize_t count = 0;
    do {
        count = ::send(descriptor, bytes.data(), bytes.size(), MSG_NOSIGNAL);
    } while (count < 0 && errno == EINTR);
    *sent = count < 0 ? 0 : static_cast<std::size_t>(count);
    return count < 0 ? PlatformError(errno) : 0;
}

DWORD ReceiveBytes(int descriptor, std::span<char> buffer, std::size_t* received) {
    ssize_t count = 0;
    do {
        count = ::recv(descriptor, buffer.data(), buffer.size(), 0);
    } while (count < 0 && errno == EINTR);
    *received = count < 0 ? 0 : static_cast<std::size_t>(count);
    return count < 0 ? PlatformError(errno) : 0;
}

bool WaitReadable(int descriptor, int milliseconds) {
    return WaitFor(descriptor, POLLIN, milliseconds);
}

}  // namespace platform::net
