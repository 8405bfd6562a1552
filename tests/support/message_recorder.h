/// Sees the message boxes that the plug-in shows, and answers them.
#pragma once

#include <memory>
#include <string>
#include <vector>

namespace tests {

struct ShownMessage {
    std::string text;
    std::string caption;

    bool operator==(const ShownMessage&) const = default;
};

/// Answers message boxes for as long as it lives, and keeps what they said. An answer is due for
/// every box that asks a question; boxes with OK alone need none.
class MessageRecorder {
public:
    /// \param answers  button IDs (IDOK, IDYES...), one per box, in order; IDOK when they run out.
    explicit MessageRecorder(std::vector<int> answers = {});
    ~MessageRecorder();
    MessageRecorder(const MessageRecorder&) = delete;
    MessageRecorder& operator=(const MessageRecorder&) = delete;

    /// The texts of the boxes shown so far, in order.
    std::vector<std::string> Texts() const;
    const std::vector<ShownMessage>& Messages() const;

private:
    class Listener;
    std::unique_ptr<Listener> listener_;
};

}  // namespace tests
