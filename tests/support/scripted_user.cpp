#include "tests/support/scripted_user.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace tests {
namespace {

/// The last one is the one that does least.
std::vector<int> ButtonsOf(UINT type) {
    if (type == MB_OKCANCEL) return {IDOK, IDCANCEL};
    if (type == MB_YESNO) return {IDYES, IDNO};
    return {IDOK};
}

}  // namespace

void ScriptedUser::WillAnswer(std::initializer_list<int> buttons) {
    answers_.insert(answers_.end(), buttons);
}

int ScriptedUser::Answer(const ShownBox& box) {
    watchdog_.Report("after the message box \"" + box.text + "\"");
    boxes_.push_back(box);
    if (answerer_) return answerer_(box);
    const std::vector<int> buttons = ButtonsOf(box.type);
    if (buttons.size() == 1) return buttons.front();
    if (answers_.empty() || std::ranges::count(buttons, answers_.front()) == 0) {
        ADD_FAILURE() << "a box without an answer: " << box;
        return buttons.back();
    }
    const int button = answers_.front();
    answers_.pop_front();
    return button;
}

void ScriptedUser::WorkIn(HWND dialog) {
    dialog_ = dialog;
    watchdog_.Report("in a dialog");
    if (works_.empty()) {
        ADD_FAILURE() << "a dialog without work";
        return;
    }
    const Work work = std::move(works_.front());
    works_.pop_front();
    if (work) work();
    watchdog_.Report("after a dialog");
}

INT_PTR ScriptedUser::Open(int templateId, DLGPROC procedure, LPARAM parameter, Work work) {
    works_ = {std::move(work)};
    const INT_PTR result = ::DialogBoxParamW(
        ::GetModuleHandleW(nullptr), MAKEINTRESOURCEW(templateId), nullptr, procedure, parameter);
    works_.clear();
    return result;
}

void ScriptedUser::ExpectScriptDone() const {
    EXPECT_EQ(answers_.size(), 0u) << "answers left over";
    EXPECT_EQ(works_.size(), 0u) << "dialogs that did not open";
}

}  // namespace tests
