/// A user who follows a script: answers message boxes and works in dialogs as tests say, and keeps
/// what was shown.
#pragma once

#include <deque>
#include <functional>
#include <string>
#include <vector>

#include "platform/user/user.h"
#include "tests/support/watchdog.h"

namespace platform {

class ScriptedUser : public User {
public:
    using Work = std::function<void(HWND dialog)>;

    /// A message box as it was shown.
    struct ShownBox {
        MessageBoxRequest request;
        int answer;
        bool scripted;  ///< false: no fitting answer stood next, so the safe one was given
    };

    explicit ScriptedUser(std::chrono::milliseconds patience = std::chrono::seconds(60));

    /// Answers the next box nobody has an answer for yet. \param button  IDOK, IDCANCEL, IDYES,
    /// IDNO
    ScriptedUser& Answer(int button);
    /// Works in the next dialog nobody has work for yet; after it the dialog is cancelled unless
    /// it has ended.
    ScriptedUser& InDialog(Work work);

    const std::vector<ShownBox>& Boxes() const { return boxes_; }
    const std::vector<HelpRequest>& Help() const { return help_; }
    int DialogsWorkedIn() const { return dialogsWorkedIn_; }
    /// Nothing was shown that the script does not know, and nothing of the script is left over;
    /// else what it was, for a test's message.
    std::string Surprises() const;

    int AnswerMessageBox(const MessageBoxRequest& request) override;
    void WorkInDialog(HWND dialog) override;
    void ReadHelp(const HelpRequest& request) override;

private:
    std::deque<int> answers_;
    std::deque<Work> works_;
    std::vector<ShownBox> boxes_;
    std::vector<HelpRequest> help_;
    int dialogsWorkedIn_ = 0;
    int dialogsWithoutWork_ = 0;
    Watchdog watchdog_;
};

}  // namespace platform
