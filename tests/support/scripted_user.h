/// A person at message boxes and modal dialogs, for tests that run against the layer and against
/// the platform itself from the same sources: real focus, keys and clicks, answers as the test
/// says, and a record of all that was shown.
#pragma once

#include <windows.h>

#include <chrono>
#include <deque>
#include <functional>
#include <initializer_list>
#include <memory>
#include <ostream>
#include <string>
#include <vector>

#include "tests/support/text.h"
#include "tests/support/watchdog.h"

namespace tests {

struct ShownBox {
    std::string text;
    std::string caption;
    UINT type = MB_OK;  ///< MB_OK, MB_OKCANCEL, MB_YESNO

    bool operator==(const ShownBox&) const = default;
};

inline std::ostream& operator<<(std::ostream& out, const ShownBox& box) {
    return out << box.caption << " (" << box.type << "): " << box.text;
}

using ShownBoxes = std::vector<ShownBox>;

struct ShownHelp {
    Text file;
    UINT command;
    DWORD topic;
    Text text;
};

/// The user of a process for as long as it lives, on the thread that opens the dialogs. What is
/// shown without being foreseen fails the test, and so does what is foreseen and not shown. A user
/// who says nothing for a minute ends the run.
class ScriptedUser {
public:
    using Work = std::function<void()>;
    using Answerer = std::function<int(const ShownBox&)>;

    ScriptedUser();
    ~ScriptedUser();
    ScriptedUser(const ScriptedUser&) = delete;
    ScriptedUser& operator=(const ScriptedUser&) = delete;

    /// The answers to the questions to come, in order. A box with a single button needs none.
    void WillAnswer(std::initializer_list<int> buttons);
    /// Asks this about every box instead.
    void WillAnswer(Answerer answerer) { answerer_ = std::move(answerer); }
    void ForgetAnswers() { answers_.clear(); }
    void ForgetWork() { works_.clear(); }
    /// Works in the next dialog that nobody has work for yet. If it is still open then, its close
    /// box is used.
    void InDialog(Work work) { works_.push_back(std::move(work)); }
    /// Opens a dialog of the test program's resources and works in it.
    INT_PTR Open(int templateId, DLGPROC procedure, LPARAM parameter, Work work);

    const ShownBoxes& Boxes() const { return boxes_; }
    /// What the user was given to read; recorded by the layer only.
    const std::vector<ShownHelp>& Help() const { return help_; }

    // The hands, for use inside the work. All answer false when the control is missing, hidden or
    // disabled.
    HWND Dialog() const { return dialog_; }
    bool Click(int controlId);                        ///< a button
    bool TypeText(int editId, const Text& text);      ///< replaces the edit's text key by key
    bool Type(const Text& text);                      ///< key by key, to whatever has the focus
    bool Paste(const Text& text);                     ///< into the edit that has the focus
    bool PressKey(int virtualKey, bool alt = false);  ///< to whatever has the focus
    bool Choose(int listId, const Text& itemText);    ///< opens the list and clicks the item
    bool ChooseAt(int listId, int position);
    bool StepUpDown(int upDownId, int steps);  ///< clicks the up (+) or down (-) arrow
    void Close();                              ///< the close box

    // For the implementations: records what is shown, and gives the answer to a box.
    int Answer(const ShownBox& box);
    void Read(ShownHelp help) { help_.push_back(std::move(help)); }
    void WorkIn(HWND dialog);

private:
    struct Seat;

    void ExpectScriptDone() const;

    HWND dialog_ = nullptr;
    std::deque<Work> works_;
    std::deque<int> answers_;
    Answerer answerer_;
    ShownBoxes boxes_;
    std::vector<ShownHelp> help_;
    Watchdog watchdog_{std::chrono::seconds(60)};
    std::unique_ptr<Seat> seat_;
};

}  // namespace tests
