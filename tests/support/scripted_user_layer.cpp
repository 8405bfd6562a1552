#include "platform/gui/dialogs/hands.h"
#include "platform/user/user.h"
#include "tests/support/scripted_user.h"

namespace tests {

/// Hands what the layer asks its user on to the scripted one.
struct ScriptedUser::Seat : platform::User {
    explicit Seat(ScriptedUser& scripted) : user(scripted) {}

    int AnswerMessageBox(const platform::MessageBoxRequest& request) override {
        return user.Answer({Narrow(request.text), Narrow(request.caption), request.type});
    }
    void WorkInDialog(HWND dialog) override { user.WorkIn(dialog); }
    void ReadHelp(const platform::HelpRequest& request) override {
        user.Read({request.file, request.command, request.topic, request.text});
    }

    ScriptedUser& user;
    platform::UserScope scope{*this};
};

ScriptedUser::ScriptedUser() : seat_(std::make_unique<Seat>(*this)) {}

ScriptedUser::~ScriptedUser() {
    ExpectScriptDone();
}

bool ScriptedUser::Click(int controlId) {
    return platform::hands::Click(dialog_, controlId);
}
bool ScriptedUser::TypeText(int editId, const Text& text) {
    return platform::hands::TypeText(dialog_, editId, text);
}
bool ScriptedUser::Type(const Text& text) {
    return platform::hands::Type(dialog_, text);
}
bool ScriptedUser::Paste(const Text& text) {
    return platform::hands::Paste(dialog_, text);
}
bool ScriptedUser::PressKey(int virtualKey, bool alt) {
    return platform::hands::PressKey(dialog_, virtualKey, alt);
}
bool ScriptedUser::Choose(int listId, const Text& itemText) {
    return platform::hands::Choose(dialog_, listId, itemText);
}
bool ScriptedUser::ChooseAt(int listId, int position) {
    return platform::hands::ChooseAt(dialog_, listId, position);
}
bool ScriptedUser::StepUpDown(int upDownId, int steps) {
    return platform::hands::StepUpDown(dialog_, upDownId, steps);
}
void ScriptedUser::Close() {
    platform::hands::Close(dialog_);
}

}  // namespace tests
