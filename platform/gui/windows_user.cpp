// The user in front of the screen: shows windows and waits for what is done in them.

#include "platform/gui/dialogs/dialog.h"
#include "platform/gui/dialogs/message_box.h"
#include "platform/gui/help/help_viewer.h"
#include "platform/user/user.h"

namespace platform {
namespace {

class PersonAtScreen : public User {
public:
    PersonAtScreen() { NameUserAtScreen(*this); }

    int AnswerMessageBox(const MessageBoxRequest& request) override {
        return ShowMessageBox(request);
    }

    void WorkInDialog(HWND dialog) override {
        Dialog* found = Dialog::Require(dialog);
        if (found != nullptr) found->WaitForEnd();
    }

    void ReadHelp(const HelpRequest& request) override { ShowHelp(request); }
};

PersonAtScreen personAtScreen;  // there from the load on

}  // namespace
}  // namespace platform
