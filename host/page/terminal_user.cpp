#include "host/page/terminal_user.h"

#include <algorithm>
#include <ostream>

#include "host/errors/failure.h"
#include "host/page/message_buttons.h"
#include "platform/text/text_encoding.h"

namespace host {

int TerminalUser::AnswerMessageBox(const platform::MessageBoxRequest& request) {
    const int answer = script_ != nullptr ? script_->Answer(request) : AnswersOf(request.type).safe;
    out_ << "driverhost: [" << Escaped(platform::Utf8(request.caption)) << "] "
         << Escaped(platform::Utf8(request.text));
    if (request.type != MB_OK) {
        const auto* button = std::ranges::find(kMessageButtons, answer, &NamedNumber::number);
        out_ << " -> " << (button == kMessageButtons.end() ? "?" : button->name);
    }
    out_ << '\n' << std::flush;
    return answer;
}

void TerminalUser::WorkInDialog(HWND dialog) {
    ++dialogs_;
    if (script_ != nullptr) script_->Work(dialog);
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
