/// Streams of this machine's own sockets, with the platform's error codes. Loopback only.
///
/// Stands apart from the socket library's API because the names of both clash. Every operation
/// answers 0 or a WSAE... code, is not disturbed by signals and raises none.
#pragma once

#include <windef.h>

#include <cstddef>
#include <span>

namespace platform::net {

/// Whether an address (network byte order) is within 127.0.0.0/8.
[[nodiscard]] bool IsLoopback(ULONG address);

/// Makes a stream socket; calls on it wait.
[[nodiscard]] DWORD OpenStream(int* descriptor);
void CloseStream(int descriptor);

/// Connects within a time. An address outside the loopback range answers WSAENETUNREACH, and
/// nothing is sent. \param address, port  network byte order. \param milliseconds  0 does not wait:
/// WSAEWOULDBLOCK while the outcome is open.
[[nodiscard]] DWORD ConnectStream(int descriptor, ULONG address, USHORT port, int milliseconds);

/// Whether calls on the socket wait.
[[nodiscard]] DWORD SetWaiting(int descriptor, bool waits);

/// \param sent, received  the number of bytes; 0 received when the other side has closed.
[[nodiscard]] DWORD SendBytes(int descriptor, std::span<const char> bytes, std::size_t* sent);
[[nodiscard]] DWORD ReceiveBytes(int descriptor, std::span<char> buffer, std::size_t* received);

/// Waits until there is something to receive (bytes, the end or an error). False when the time went
/// by.
[[nodiscard]] bool WaitReadable(int descriptor, int milliseconds);

}  // namespace platform::net
