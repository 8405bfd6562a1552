/// The user: whoever answers message boxes, works in modal dialogs and reads help.
///
/// The layer asks the current user and waits for the answer. Windows are the default (with a
/// display); the host's text mode installs a user that writes to the terminal, tests a scripted
/// one. All calls come on the thread that showed the box or dialog.
#pragma once

#include <windef.h>

#include <string>

namespace platform {

struct MessageBoxRequest {
    HWND owner;
    std::u16string text;
    std::u16string caption;
    UINT type;  ///< MB_OK, MB_OKCANCEL, MB_YESNO
};

struct HelpRequest {
    HWND owner;
    std::u16string file;  ///< platform path of the help file
    UINT command;         ///< HELP_CONTEXT or HELP_CONTEXTPOPUP
    DWORD topic;
    std::u16string text;  ///< the topic's text; empty when the file or the topic is missing
};

class User {
public:
    virtual ~User() = default;
    /// \return the button's ID: IDOK, IDCANCEL, IDYES, IDNO.
    virtual int AnswerMessageBox(const MessageBoxRequest& request) = 0;
    /// Called when a modal dialog is on screen, initialised and focused. When it returns and the
    /// dialog has not ended, the layer cancels it as the close box would.
    virtual void WorkInDialog(HWND dialog) = 0;
    virtual void ReadHelp(const HelpRequest& request) = 0;
};

/// Makes a user the current one for as long as it lives; the one before it comes back after.
class UserScope {
public:
    explicit UserScope(User& user);
    ~UserScope();
    UserScope(const UserScope&) = delete;
    UserScope& operator=(const UserScope&) = delete;

private:
    User* previous_;
};

/// Makes a user the one who is current while there is no scope: the person at the screen, whom the
/// layer's windows name at load.
void NameUserAtScreen(User& user);

/// The current user: the innermost scope's, or the one at the screen.
[[nodiscard]] User& CurrentUser();

}  // namespace platform
