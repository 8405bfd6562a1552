#include "host/page/terminal_user.h"

#include <windows.h>

#include <array>
#include <ostream>

#include "platform/text/text_encoding.h"

namespace host {
namespace {

struct Button {
    int id;
    const char* name;
};

constexpr std::array kButtons = {Button{IDOK, "OK"}, Button{IDCANCEL, "Cancel"},
                                 Button{IDYES, "Yes"}, Button{IDNO, "No"}};

const char* ButtonName(int id) {
    for (const Button& button : kButtons) {
        if (button.id == id) return button.name;
    }
    return "?";
}

// The answer with which nothing is overwritten or deleted.
int SafeAnswer(UINT type) {
    if (type == MB_YESNO) return IDNO;
    return type == MB_OKCANCEL ? IDCANCEL : IDOK;
}

}  // namespace

int TerminalUser::AnswerMessageBox(const platform::MessageBoxRequest& request) {
    const int scripted = script_ ? script_->TakeAnswer(request.type) : 0;
    const int answer = scripted != 0 ? scripted : SafeAnswer(request.type);
    out_ << "driverhost: [" << platform::Utf8(request.caption) << "] "
         << platform::Utf8(request.text);
    if (request.type != MB_OK) out_ << " -> " << ButtonName(answer);
    out_ << '\n' << std::flush;
    return answer;
}

void TerminalUser::WorkInDialog(HWND dialog) {
    ++dialogs_;
    if (script_) script_->Work(dialog);
}

void TerminalUser::ReadHelp(const platform::HelpRequest& request) {
    out_ << "driverhost: [Help] ";
    if (request.text.empty()) {
        out_ << "no topic " << request.topic << " in " << platform::Utf8(request.file) << '\n';
    } else {
        out_ << platform::Utf8(request.text) << '\n';
    }
}

}  // namespace host
