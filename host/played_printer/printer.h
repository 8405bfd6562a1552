/// A printer played on TCP port 9100 of a loopback address: answers PJL questions as a printer of
/// the family does, or as a faulty one would, and writes down what it was sent.
#pragma once

#include <atomic>
#include <chrono>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

namespace host {

struct PlayedPrinterOptions {
    std::string address = "127.0.0.2";  ///< of 127.0.0.0/8
    bool tray2 = false;
    bool tray3 = false;
    bool duplex = false;
    // Faults.
    bool silent = false;           ///< accepts and never answers
    bool slowDrip = false;         ///< one byte a second
    bool noEcho = false;           ///< leaves the question's echo out
    bool noFormFeed = false;       ///< leaves the closing form feed out
    bool staleBlockFirst = false;  ///< sends a status block nobody asked for before the answer
    bool lowerCase = false;        ///< everything after the echo in small letters
    bool refuse = false;           ///< holds the port without listening
    unsigned split = 1;            ///< sends the answer in so many pieces, with pauses
    std::size_t junk = 0;          ///< bytes of junk before the answer, none a form feed
    std::size_t resetAfter = 0;    ///< resets the connection after so many bytes; 0: never
};

/// The answer to one PJL command line; empty for a line that is no question it knows.
/// \param command  without line end, such as "@PJL INFO CONFIG".
[[nodiscard]] std::string PjlAnswer(std::string_view command, const PlayedPrinterOptions& options);

/// Takes the lines of the log, without line ends.
using LogLine = std::function<void(const std::string&)>;

class PlayedPrinter {
public:
    /// Takes the port. Throws `Failure` when the address is not loopback or the port is taken.
    PlayedPrinter(PlayedPrinterOptions options, LogLine log);
    ~PlayedPrinter();
    PlayedPrinter(const PlayedPrinter&) = delete;
    PlayedPrinter& operator=(const PlayedPrinter&) = delete;

    /// Serves one connection after the other until `Stop`, until the time is up, or, with `once`,
    /// until the first connection has ended.
    void Serve(std::chrono::milliseconds atMost, bool once);

    /// Ends `Serve` within a tenth of a second. From any thread, also from a signal handler.
    void Stop() { stopped_ = true; }

private:
    class Connection;

    [[nodiscard]] bool Running() const;
    void ServeConnection(int descriptor);

    PlayedPrinterOptions options_;
    LogLine log_;
    int listener_ = -1;
    unsigned connections_ = 0;
    std::atomic<bool> stopped_{false};
    std::chrono::steady_clock::time_point end_;
};

}  // namespace host
