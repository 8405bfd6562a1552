/// The user of the text mode: messages and help are printed, message boxes get the answer that
/// changes nothing or the script's, dialogs are worked in by the script.
#pragma once

#include <iosfwd>

#include "host/page/edit_script.h"
#include "platform/user/user.h"

namespace host {

class TerminalUser final : public platform::User {
public:
    /// \param out  for the messages; must live as long as the user.
    explicit TerminalUser(std::ostream& out) : out_(out) {}

    /// Works in dialogs by a script from now on; null: they are closed again.
    void Follow(EditScript* script) { script_ = script; }

    int AnswerMessageBox(const platform::MessageBoxRequest& request) override;
    void WorkInDialog(HWND dialog) override;
    void ReadHelp(const platform::HelpRequest& request) override;

    /// How many dialogs came up.
    [[nodiscard]] int Dialogs() const { return dialogs_; }

private:
    std::ostream& out_;
    EditScript* script_ = nullptr;
    int dialogs_ = 0;
};

}  // namespace host
