/// A printer played on TCP port 9100 of a loopback address of its own.
#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <vector>

namespace tests {

/// What the printer does with a connection.
struct PrinterScript {
    std::vector<std::string> answers;  ///< one a connection, in order, the last one again; or none
    std::size_t pieceBytes = 0;        ///< answers go out in pieces of this size; 0: whole
    bool closesAfter = false;  ///< closes behind the answer instead of waiting for the other
    bool resets = false;       ///< breaks the connection off instead of closing it
};

/// Serves connections, one after the other, on a thread of its own until it is destroyed. An answer
/// goes out when the message's second Universal Exit sequence, or a byte 0, has come in.
class PlayedPrinter {
public:
    explicit PlayedPrinter(PrinterScript script);
    ~PlayedPrinter();
    PlayedPrinter(const PlayedPrinter&) = delete;
    PlayedPrinter& operator=(const PlayedPrinter&) = delete;

    /// Its address with dots.
    std::string Address() const;
    /// What came in so far, one text a connection.
    std::vector<std::string> Received() const;

    /// An address on which nothing listens.
    static std::string UnusedAddress();

private:
    struct Server;
    std::unique_ptr<Server> server_;
};

}  // namespace tests
