/// A person at a modal dialog, for tests that run against the layer and against the platform itself
/// from the same sources: real focus, keys and clicks, and answers to the message boxes that come
/// up meanwhile.
#pragma once

#include <windows.h>

#include <functional>
#include <initializer_list>
#include <string>
#include <vector>

namespace tests {

using Text = std::basic_string<WCHAR>;

struct DialogMessage {
    std::string text;
    std::string caption;
    UINT type;  ///< MB_OK, MB_OKCANCEL, MB_YESNO

    bool operator==(const DialogMessage&) const = default;
};

struct ReadHelp {
    Text file;
    UINT command;
    DWORD topic;
};

/// One at a time in a process, on the thread that opens the dialog.
class DialogUser {
public:
    DialogUser();
    ~DialogUser();
    DialogUser(const DialogUser&) = delete;
    DialogUser& operator=(const DialogUser&) = delete;

    /// The answers to the questions to come, in order. A box with a single button needs none; a
    /// question without an answer fails the test.
    void WillAnswer(std::initializer_list<int> buttons);
    void ForgetAnswers() { answers_.clear(); }
    const std::vector<DialogMessage>& Messages() const { return messages_; }
    /// What the user was given to read; recorded by the layer only.
    const std::vector<ReadHelp>& HelpRead() const { return helpRead_; }

    /// Opens a dialog of the test program's resources and works in it once it is on screen. If it
    /// is still open then, its close box is used.
    INT_PTR Open(int templateId, DLGPROC procedure, LPARAM parameter, std::function<void()> work);

    // The hands, for use inside the work. All answer false when the control is missing, hidden or
    // disabled.
    HWND Dialog() const { return dialog_; }
    bool Click(int controlId);                        ///< a button
    bool TypeText(int editId, const Text& text);      ///< replaces the edit's text key by key
    bool PressKey(int virtualKey, bool alt = false);  ///< to whatever has the focus
    bool Choose(int listId, const Text& itemText);    ///< opens the list and clicks the item
    bool StepUpDown(int upDownId, int steps);         ///< clicks the up (+) or down (-) arrow
    void Close();                                     ///< the close box

    /// For the implementations: records a box and gives the answer to it.
    int Answer(const DialogMessage& message);
    void Read(const ReadHelp& help) { helpRead_.push_back(help); }
    void Work(HWND dialog);

private:
    HWND dialog_ = nullptr;
    std::function<void()> work_;
    std::vector<int> answers_;
    std::vector<DialogMessage> messages_;
    std::vector<ReadHelp> helpRead_;
};

}  // namespace tests
