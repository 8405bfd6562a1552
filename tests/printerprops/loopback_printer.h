/// A printer played on port 9100 of a loopback address of its own.
#pragma once

#include <cstdint>
#include <string>
#include <thread>
#include <vector>

namespace tests {

/// Answers one connection after the other, on a thread of its own, for as long as it lives.
class LoopbackPrinter {
public:
    /// What is sent on one connection after a whole message has come, with pauses in between.
    using Pieces = std::vector<std::string>;

    /// In the place of pieces: the printer says nothing and hangs up at once.
    static const Pieces kHangsUp;

    /// \param answers  one per connection; empty for an address on which nobody listens.
    explicit LoopbackPrinter(std::vector<Pieces> answers);
    ~LoopbackPrinter();
    LoopbackPrinter(const LoopbackPrinter&) = delete;
    LoopbackPrinter& operator=(const LoopbackPrinter&) = delete;

    /// The dotted address.
    const std::string& Address() const { return address_; }
    /// Waits until the last connection has ended. \return the bytes of all connections.
    const std::string& Received();

private:
    void Play();
    void PlayConnection(std::uintptr_t connection, const Pieces& pieces);

    std::vector<Pieces> answers_;
    std::uintptr_t listener_;
    std::string address_;
    std::string received_;
    std::thread thread_;
};

}  // namespace tests
