#include <windows.h>

#include "platform/base/machine.h"
#include "platform/testing/user.h"
#include "tests/support/message_recorder.h"

namespace tests {

class MessageRecorder::Listener : public platform::User {
public:
    explicit Listener(std::vector<int> answers) : answers_(std::move(answers)) {}

    int AnswerMessageBox(const platform::MessageBoxRequest& request) override {
        const std::size_t place = messages.size();
        messages.push_back({platform::Utf8(request.text), platform::Utf8(request.caption)});
        return place < answers_.size() ? answers_[place] : IDOK;
    }
    void WorkInDialog(HWND /*dialog*/) override {}
    void ReadHelp(const platform::HelpRequest& /*request*/) override {}

    std::vector<ShownMessage> messages;

private:
    std::vector<int> answers_;
    platform::UserScope scope_{*this};
};

MessageRecorder::MessageRecorder(std::vector<int> answers)
    : listener_(std::make_unique<Listener>(std::move(answers))) {}

MessageRecorder::~MessageRecorder() = default;

std::vector<std::string> MessageRecorder::Texts() const {
    std::vector<std::string> texts;
    for (const ShownMessage& message : Messages()) texts.push_back(message.text);
    return texts;
}

const std::vector<ShownMessage>& MessageRecorder::Messages() const {
    return listener_->messages;
}

}  // namespace tests
