#include "tests/support/scripted_user.h"

#include <windows.h>

#include <algorithm>
#include <array>
#include <utility>

#include "platform/gui/dialogs/message_box.h"
#include "platform/text/text_encoding.h"

namespace platform {
namespace {

std::string TitleOf(HWND window) {
    std::array<WCHAR, 128> title = {};
    GetWindowTextW(window, title.data(), static_cast<int>(title.size()));
    return Utf8(title.data());
}

}  // namespace

ScriptedUser::ScriptedUser(std::chrono::milliseconds patience) : watchdog_(patience) {}

ScriptedUser& ScriptedUser::Answer(int button) {
    answers_.push_back(button);
    return *this;
}

ScriptedUser& ScriptedUser::InDialog(Work work) {
    works_.push_back(std::move(work));
    return *this;
}

std::string ScriptedUser::Surprises() const {
    std::string surprises;
    for (const ShownBox& box : boxes_) {
        if (!box.scripted) surprises += "box without an answer: " + Utf8(box.request.text) + "\n";
    }
    if (!answers_.empty()) surprises += std::to_string(answers_.size()) + " answers left over\n";
    if (!works_.empty()) surprises += std::to_string(works_.size()) + " dialogs did not open\n";
    if (dialogsWithoutWork_ > 0) {
        surprises += std::to_string(dialogsWithoutWork_) + " dialogs without work\n";
    }
    return surprises;
}

int ScriptedUser::AnswerMessageBox(const MessageBoxRequest& request) {
    watchdog_.Report("after the message box \"" + Utf8(request.text) + "\"");
    const std::vector<int> buttons = MessageBoxButtons(request.type);
    const bool scripted = !answers_.empty() && std::find(buttons.begin(), buttons.end(),
                                                         answers_.front()) != buttons.end();
    // The last button is the one that does least: OK alone, Cancel or No.
    const int answer = scripted ? answers_.front() : buttons.back();
    if (scripted) answers_.pop_front();
    boxes_.push_back({request, answer, scripted});
    return answer;
}

void ScriptedUser::WorkInDialog(HWND dialog) {
    const std::string title = TitleOf(dialog);
    watchdog_.Report("in the dialog \"" + title + "\"");
    if (works_.empty()) {
        ++dialogsWithoutWork_;
        return;
    }
    const Work work = std::move(works_.front());
    works_.pop_front();
    ++dialogsWorkedIn_;
    work(dialog);
    watchdog_.Report("after the dialog \"" + title + "\"");
}

void ScriptedUser::ReadHelp(const HelpRequest& request) {
    watchdog_.Report("after help");
    help_.push_back(request);
}

}  // namespace platform
