/// The socket library for the length of a scope.
#pragma once

#include <windows.h>

#include <winsock.h>

namespace oemui {

/// Starts the socket library, version 1.1, and stops it again at the end of the scope.
class SocketLibrary {
public:
    SocketLibrary() : started_(::WSAStartup(MAKEWORD(1, 1), &description_) == 0) {}
    SocketLibrary(const SocketLibrary&) = delete;
    SocketLibrary& operator=(const SocketLibrary&) = delete;
    ~SocketLibrary() {
        if (started_) ::WSACleanup();
    }

    explicit operator bool() const { return started_; }

private:
    WSADATA description_{};
    bool started_;
};

}  // namespace oemui
