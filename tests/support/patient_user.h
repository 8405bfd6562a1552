/// A user for runs in which anything may be shown: agrees to every question and expects nothing.
#pragma once

#include <windows.h>

#include <functional>

#include "platform/user/user.h"

namespace tests {

/// The user of the layer for as long as it lives, without a watchdog and without complaints.
class PatientUser : public platform::User {
public:
    /// Done in every dialog; one that is still open then is closed by the layer.
    std::function<void(HWND dialog)> work;
    /// Answers instead, by the type of the box.
    std::function<int(UINT type)> answer;

    int AnswerMessageBox(const platform::MessageBoxRequest& request) override {
        if (answer) return answer(request.type);
        return request.type == MB_YESNO ? IDYES : IDOK;
    }
    void WorkInDialog(HWND dialog) override {
        if (work) work(dialog);
    }
    void ReadHelp(const platform::HelpRequest&) override {}

private:
    platform::UserScope scope_{*this};
};

}  // namespace tests
