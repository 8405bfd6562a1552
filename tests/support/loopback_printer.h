/// A printer played on port 9100 of a loopback address of its own: says what a test tells it to.
#pragma once

#include <cstdint>
#include <string>
#include <thread>
#include <vector>

namespace tests {

/// Serves one connection after the other, on a thread of its own, for as long as it lives.
class LoopbackPrinter {
public:
    /// What is done on one connection when the message's second Universal Exit sequence, or a byte
    /// 0, has come in: texts to send, with pauses in between, then perhaps an end. Without an end
    /// the other side has to close.
    using Answer = std::vector<std::string>;

    /// In the place of a text: sends no more. Alone, it does so before anything comes in.
    static const std::string kHangsUp;
    /// In the place of a text: breaks the connection off.
    static const std::string kResets;
    /// In the place of the only text: lets nobody in, so that connecting takes as long as it may.
    static const std::string kNeverAccepts;

    /// \param answers  one per connection; none for an address on which nobody listens.
    explicit LoopbackPrinter(std::vector<Answer> answers);
    ~LoopbackPrinter();
    LoopbackPrinter(const LoopbackPrinter&) = delete;
    LoopbackPrinter& operator=(const LoopbackPrinter&) = delete;

    /// The dotted address.
    const std::string& Address() const { return address_; }
    /// Waits until the last connection has ended. \return what came in, a text per connection.
    const std::vector<std::string>& Received();

private:
    void FillUp();
    void Play();
    void PlayConnection(std::uintptr_t connection, const Answer& answer);

    std::vector<Answer> answers_;
    std::uintptr_t listener_;
    std::uintptr_t guest_ = 0;  ///< who fills the only place of one that never accepts
    std::string address_;
    std::vector<std::string> received_;
    std::thread thread_;
};

}  // namespace tests
