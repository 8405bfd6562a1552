#include "platform/gui/windows_user.h"

#include "platform/gui/dialogs/dialog.h"
#include "platform/gui/dialogs/message_box.h"
#include "platform/gui/help/help_viewer.h"

namespace platform {
namespace {

class PersonAtScreen : public User {
public:
    int AnswerMessageBox(const MessageBoxRequest& request) override {
        return ShowMessageBox(request);
    }

    void WorkInDialog(HWND dialog) override {
        Dialog* found = Dialog::Require(dialog);
        if (found != nullptr) found->WaitForEnd();
    }

    void ReadHelp(const HelpRequest& request) override { ShowHelp(request); }
};

}  // namespace

User& WindowsUser() {
    static PersonAtScreen user;
    return user;
}

}  // namespace platform
