/// The user of the text mode: messages and help are printed, message boxes get the answer that
/// changes nothing or the script's, dialogs are worked in by the script.
#pragma once

#include <iosfwd>
#include <string>
#include <vector>

#include "host/page/edit_script.h"
#include "platform/user/user.h"

namespace host {

class TerminalUser final : public platform::User {
public:
    /// Both must live as long as the user.
    /// \param out  for the messages.
    /// \param script  may be null: dialogs are closed again then.
    explicit TerminalUser(std::ostream& out, EditScript* script = nullptr)
        : out_(out), script_(script) {}

    int AnswerMessageBox(const platform::MessageBoxRequest& request) override;
    void WorkInDialog(HWND dialog) override;
    void ReadHelp(const platform::HelpRequest& request) override;

    /// How many dialogs came up.
    [[nodiscard]] int Dialogs() const { return dialogs_; }

    /// The texts of the message boxes that came up, in their order.
    [[nodiscard]] const std::vector<std::u16string>& Messages() const { return messages_; }

private:
    std::ostream& out_;
    EditScript* script_;
    int dialogs_ = 0;
    std::vector<std::u16string> messages_;
};

}  // namespace host
