/// The hands of a user in a dialog: real mouse and key events on a control, so that focus, limits
/// and notifications come about as they do for a person. All answer false, and do nothing, when the
/// control is missing, hidden or disabled.
#pragma once

#include <windef.h>

#include <string>
#include <string_view>
#include <vector>

namespace platform::hands {

[[nodiscard]] bool IsOpen(HWND dialog);
bool Click(HWND dialog, int controlId);  ///< buttons, edits, lists
/// Replaces the edit's text, key by key.
bool TypeText(HWND dialog, int controlId, std::u16string_view text);
/// Types characters, key by key, to whatever has the focus.
bool Type(HWND dialog, std::u16string_view text);
bool Paste(HWND dialog, std::u16string_view text);             ///< into the edit with the focus
bool PressKey(HWND dialog, int virtualKey, bool alt = false);  ///< to whatever has the focus
/// What a list offers, from the top; nothing for what is no list.
[[nodiscard]] std::vector<std::u16string> ItemsOf(HWND dialog, int listId);
/// Opens the list, picks, closes.
bool Choose(HWND dialog, int listId, std::u16string_view itemText);
bool ChooseAt(HWND dialog, int listId, int index);
bool StepUpDown(HWND dialog, int upDownId, int steps);  ///< clicks the up (+) or down (-) arrow
/// Clicks the caption's question mark, then the control, which may be disabled.
bool AskHelp(HWND dialog, int controlId);
/// From now on each letter that is typed into a list is sought by itself, as by a slow person.
void TypeSlowly();
void Close(HWND dialog);  ///< the close box

}  // namespace platform::hands
