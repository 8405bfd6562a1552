/// The user: whoever answers message boxes, works in modal dialogs and reads help.
///
/// The layer asks the current user and waits for the answer. Windows are the default (with a
/// display); the host's text mode installs a user that writes to the terminal, tests a scripted
/// one. All calls come on the thread that showed the box or dialog.
#pragma once

#include <windef.h>

#include <string>
#include <string_view>
#include <vector>

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

/// The current user: the innermost scope's, or the windows user.
User& CurrentUser();

/// The hands of a user in a dialog: real mouse and key events on a control, so that focus, limits
/// and notifications come about as they do for a person. All answer false, and do nothing, when the
/// control is missing, hidden or disabled.
namespace hands {

bool Click(HWND dialog, int controlId);  ///< buttons, edits, lists
bool TypeText(HWND dialog, int controlId,
              std::u16string_view text);  ///< replaces the edit's text, key by key
bool PressKey(HWND dialog, int virtualKey, bool alt = false);  ///< to whatever has the focus
bool Choose(HWND dialog, int listId,
            std::u16string_view itemText);              ///< opens the list, picks, closes
bool StepUpDown(HWND dialog, int upDownId, int steps);  ///< clicks the up (+) or down (-) arrow
/// Clicks the caption's question mark, then the control, which may be disabled.
bool AskHelp(HWND dialog, int controlId);
void Close(HWND dialog);  ///< the close box

}  // namespace hands

}  // namespace platform
