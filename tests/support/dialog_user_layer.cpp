#include <memory>
#include <utility>

#include "platform/gui/dialogs/hands.h"
#include "platform/user/user.h"
#include "tests/support/dialog_user.h"
#include "tests/support/plugin_fixture.h"

namespace tests {
namespace {

/// Hands what the layer asks its user on to the dialog's.
class LayerUser : public platform::User {
public:
    explicit LayerUser(DialogUser& user) : user_(user), scope_(*this) {}

    int AnswerMessageBox(const platform::MessageBoxRequest& request) override {
        return user_.Answer({Narrow(request.text), Narrow(request.caption), request.type});
    }
    void WorkInDialog(HWND dialog) override { user_.Work(dialog); }
    void ReadHelp(const platform::HelpRequest& request) override {
        user_.Read({request.file, request.command, request.topic});
    }

private:
    DialogUser& user_;
    platform::UserScope scope_;
};

std::unique_ptr<LayerUser> current;

}  // namespace

DialogUser::DialogUser() {
    current = std::make_unique<LayerUser>(*this);
}
DialogUser::~DialogUser() {
    current.reset();
}

INT_PTR DialogUser::Open(int templateId, DLGPROC procedure, LPARAM parameter,
                         std::function<void()> work) {
    work_ = std::move(work);
    return ::DialogBoxParamW(::GetModuleHandleW(nullptr), MAKEINTRESOURCEW(templateId), nullptr,
                             procedure, parameter);
}

bool DialogUser::Click(int controlId) {
    return platform::hands::Click(dialog_, controlId);
}
bool DialogUser::TypeText(int editId, const Text& text) {
    return platform::hands::TypeText(dialog_, editId, text);
}
bool DialogUser::PressKey(int virtualKey, bool alt) {
    return platform::hands::PressKey(dialog_, virtualKey, alt);
}
bool DialogUser::Choose(int listId, const Text& itemText) {
    return platform::hands::Choose(dialog_, listId, itemText);
}
bool DialogUser::StepUpDown(int upDownId, int steps) {
    return platform::hands::StepUpDown(dialog_, upDownId, steps);
}
void DialogUser::Close() {
    platform::hands::Close(dialog_);
}

}  // namespace tests
