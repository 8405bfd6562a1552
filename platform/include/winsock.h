/// The socket library, version 1.1: IPv4 stream sockets on the loopback addresses, 127.0.0.0/8.
/// Any other address fails with WSAENETUNREACH before anything is sent; no resolver is ever asked.
///
/// Every call but `WSAStartup`, `htons` and `inet_addr` needs the library started (else
/// WSANOTINITIALISED). Calls that fail answer SOCKET_ERROR, INVALID_SOCKET or null and set the
/// thread's socket error, read with `WSAGetLastError`.
///
/// Names that the system's own library has too are not C's here: its functions must stay its own.
#pragma once

#include <windef.h>

using SOCKET = UINT_PTR;
#define INVALID_SOCKET (~static_cast<SOCKET>(0))
#define SOCKET_ERROR (-1)

#define AF_INET 2
#define SOCK_STREAM 1
#define IPPROTO_TCP 6
#define INADDR_NONE 0xFFFFFFFFu
#define FIONBIO (static_cast<LONG>(0x8004667Eu))

#define WSAEFAULT 10014
#define WSAEINVAL 10022
#define WSAEWOULDBLOCK 10035
#define WSAEALREADY 10037
#define WSAENOTSOCK 10038
#define WSAEPROTONOSUPPORT 10043
#define WSAESOCKTNOSUPPORT 10044
#define WSAEOPNOTSUPP 10045
#define WSAEAFNOSUPPORT 10047
#define WSAENETUNREACH 10051
#define WSAECONNRESET 10054
#define WSAEISCONN 10056
#define WSAENOTCONN 10057
#define WSAECONNREFUSED 10061
#define WSAVERNOTSUPPORTED 10092
#define WSANOTINITIALISED 10093
#define WSAHOST_NOT_FOUND 11001

struct WSADATA {
    WORD wVersion;
    WORD wHighVersion;
    USHORT iMaxSockets;
    USHORT iMaxUdpDg;
    CHAR* lpVendorInfo;
    CHAR szDescription[257];
    CHAR szSystemStatus[129];
};
static_assert(sizeof(WSADATA) == 408);

/// An IPv4 address in network byte order, as a number or as its bytes.
struct in_addr {
    union {
        struct {
            UCHAR s_b1, s_b2, s_b3, s_b4;
        } S_un_b;
        ULONG S_addr;
    } S_un;
#define s_addr S_un.S_addr
};

struct sockaddr {
    USHORT sa_family;
    CHAR sa_data[14];
};

struct sockaddr_in {
    SHORT sin_family;
    USHORT sin_port;  ///< network byte order
    in_addr sin_addr;
    CHAR sin_zero[8];
};
static_assert(sizeof(sockaddr) == 16 && sizeof(sockaddr_in) == 16);
static_assert(offsetof(sockaddr_in, sin_addr) == 4);

/// A host's names and addresses.
struct hostent {
    CHAR* h_name;
    CHAR** h_aliases;    ///< null-ended
    SHORT h_addrtype;    ///< AF_INET
    SHORT h_length;      ///< bytes of one address, 4
    CHAR** h_addr_list;  ///< null-ended; each entry is an address in network byte order
#define h_addr h_addr_list[0]
};
static_assert(sizeof(hostent) == 32 && offsetof(hostent, h_length) == 18);

/// Starts the library; every success is to be paired with a `WSACleanup`. \param version  the
/// highest version wanted, low byte major; 1.1 (0x0101) is what the calls here do, less fails with
/// WSAVERNOTSUPPORTED. \return 0 or the error.
extern "C" int WINAPI WSAStartup(WORD version, WSADATA* details);
/// Ends one start; the last one closes all sockets.
extern "C" int WINAPI WSACleanup();
extern "C" int WINAPI WSAGetLastError();

/// \param family  AF_INET. \param type  SOCK_STREAM. \param protocol  0 or IPPROTO_TCP.
SOCKET WINAPI socket(int family, int type, int protocol);
/// Connects, waiting for the outcome. A socket that does not wait fails with WSAEWOULDBLOCK while
/// the outcome is open, asked again with WSAEALREADY, and with WSAEISCONN when it is connected.
int WINAPI connect(SOCKET socket, const sockaddr* address, int addressSize);
/// \param command  FIONBIO: a value of 0 makes the socket's calls wait, any other makes them not.
extern "C" int WINAPI ioctlsocket(SOCKET socket, LONG command, ULONG* value);
/// \return the number of bytes taken, which may be fewer than given.
int WINAPI send(SOCKET socket, const CHAR* bytes, int length, int flags);
/// \return the number of bytes received; 0 when the other side has closed.
int WINAPI recv(SOCKET socket, CHAR* buffer, int length, int flags);
extern "C" int WINAPI closesocket(SOCKET socket);

USHORT WINAPI htons(USHORT value);
/// An IPv4 address written with dots, in network byte order; INADDR_NONE when it is none. Short
/// forms ("127.1") and octal or hexadecimal numbers count; a blank ends the text, and one alone is
/// 0.
ULONG WINAPI inet_addr(const CHAR* text);
/// Looks a name up in the machine's hosts file; "localhost" is always known. Names that map to
/// addresses outside 127.0.0.0/8, and all others, fail with WSAHOST_NOT_FOUND. The answer belongs
/// to the calling thread and lasts until its next look-up.
hostent* WINAPI gethostbyname(const CHAR* name);
