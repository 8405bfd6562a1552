/// Sees the message boxes that the plug-in shows, and answers them; through the layer only.
#pragma once

#include <string>
#include <vector>

#include "platform/text/text_encoding.h"
#include "platform/user/user.h"

namespace tests {

struct ShownMessage {
    std::string text;
    std::string caption;

    bool operator==(const ShownMessage&) const = default;
};

/// Answers message boxes with OK for as long as it lives, and keeps what they said.
class MessageRecorder : platform::User {
public:
    const std::vector<ShownMessage>& Messages() const { return messages_; }

private:
    int AnswerMessageBox(const platform::MessageBoxRequest& request) override {
        messages_.push_back({platform::Utf8(request.text), platform::Utf8(request.caption)});
        return IDOK;
    }
    void WorkInDialog(HWND /*dialog*/) override {}
    void ReadHelp(const platform::HelpRequest& /*request*/) override {}

    std::vector<ShownMessage> messages_;
    platform::UserScope scope_{*this};
};

}  // namespace tests
