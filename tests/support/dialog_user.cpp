#include "tests/support/dialog_user.h"

#include <gtest/gtest.h>

#include <utility>

namespace tests {

void DialogUser::WillAnswer(std::initializer_list<int> buttons) {
    answers_.insert(answers_.end(), buttons);
}

int DialogUser::Answer(const DialogMessage& message) {
    messages_.push_back(message);
    if (message.type == MB_OK) return IDOK;
    if (answers_.empty()) {
        ADD_FAILURE() << "a question that the user was not prepared for";
        return message.type == MB_YESNO ? IDNO : IDCANCEL;
    }
    const int button = answers_.front();
    answers_.erase(answers_.begin());
    return button;
}

void DialogUser::Work(HWND dialog) {
    dialog_ = dialog;
    if (work_) std::exchange(work_, nullptr)();
}

}  // namespace tests
