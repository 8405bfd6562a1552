/// What is done to the controls of a dialog. A control that the dialog does not have is passed over
/// and reads as 0.
#pragma once

#include <windows.h>

#include <commctrl.h>

#include <span>

#include "common/text.h"

namespace oemui {

inline void EnableControl(HWND dialog, int controlId, bool enabled) {
    const HWND control = ::GetDlgItem(dialog, controlId);
    if (control != nullptr) ::EnableWindow(control, enabled ? TRUE : FALSE);
}

inline void EnableControls(HWND dialog, std::span<const int> controlIds, bool enabled) {
    for (const int controlId : controlIds) EnableControl(dialog, controlId, enabled);
}

inline void FocusControl(HWND dialog, int controlId) {
    const HWND control = ::GetDlgItem(dialog, controlId);
    if (control != nullptr) ::SetFocus(control);
}

inline void SetCheck(HWND dialog, int buttonId, bool checked) {
    ::SendDlgItemMessageW(dialog, buttonId, BM_SETCHECK, checked ? BST_CHECKED : BST_UNCHECKED, 0);
}

[[nodiscard]] inline BYTE CheckState(HWND dialog, int buttonId) {
    return static_cast<BYTE>(::SendDlgItemMessageW(dialog, buttonId, BM_GETCHECK, 0, 0));
}

inline void SetNumber(HWND dialog, int editId, INT32 number) {
    ::SetDlgItemInt(dialog, editId, static_cast<UINT>(number), FALSE);
}

inline void SetSignedNumber(HWND dialog, int editId, INT32 number) {
    ::SetDlgItemInt(dialog, editId, static_cast<UINT>(number), TRUE);
}

[[nodiscard]] inline INT32 Number(HWND dialog, int editId) {
    return static_cast<INT32>(::GetDlgItemInt(dialog, editId, nullptr, FALSE));
}

[[nodiscard]] inline INT32 SignedNumber(HWND dialog, int editId) {
    return static_cast<INT32>(::GetDlgItemInt(dialog, editId, nullptr, TRUE));
}

inline void LimitText(HWND dialog, int editId, WPARAM characters) {
    ::SendDlgItemMessageW(dialog, editId, EM_LIMITTEXT, characters, 0);
}

inline void SetUpDownRange(HWND dialog, int upDownId, INT32 lowest, INT32 highest) {
    ::SendDlgItemMessageW(dialog, upDownId, UDM_SETRANGE, 0, MAKELPARAM(highest, lowest));
}

/// Reads a control's text, cut to the array. A text that cannot be read leaves the array as it is.
template <std::size_t Capacity>
void ReadText(HWND dialog, int controlId, WCHAR (&text)[Capacity]) {
    const HWND control = ::GetDlgItem(dialog, controlId);
    if (control == nullptr) return;
    WCHAR read[Capacity] = {};
    const int length = ::GetWindowTextW(control, read, static_cast<int>(Capacity));
    if (length == 0 && ::GetWindowTextLengthW(control) > 0) return;
    CopyText(text, TextIn(read));
}

/// Adds an item to a list. \return its position; negative when it could not be added.
inline LRESULT AddItem(HWND dialog, int listId, LPCWSTR text) {
    return ::SendDlgItemMessageW(dialog, listId, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(text));
}

/// The same with a number for the item to carry.
inline void AddNumberedItem(HWND dialog, int listId, LPCWSTR text, UINT32 number) {
    const LRESULT position = AddItem(dialog, listId, text);
    if (position < 0) return;
    ::SendDlgItemMessageW(dialog, listId, CB_SETITEMDATA, static_cast<WPARAM>(position),
                          static_cast<LPARAM>(number));
}

inline void RemoveItem(HWND dialog, int listId, INT32 position) {
    ::SendDlgItemMessageW(dialog, listId, CB_DELETESTRING, static_cast<WPARAM>(position), 0);
}

/// Selects an item of a list; none when there is no such position.
inline void SelectItem(HWND dialog, int listId, INT32 position) {
    ::SendDlgItemMessageW(dialog, listId, CB_SETCURSEL, static_cast<WPARAM>(position), 0);
}

/// The selected position of a list; -1 without a selection.
[[nodiscard]] inline INT32 SelectedPosition(HWND dialog, int listId) {
    return static_cast<INT32>(::SendDlgItemMessageW(dialog, listId, CB_GETCURSEL, 0, 0));
}

/// The number that the selected item carries; negative without a selection.
[[nodiscard]] inline LRESULT SelectedNumber(HWND dialog, int listId) {
    const auto position = static_cast<WPARAM>(SelectedPosition(dialog, listId));
    return ::SendDlgItemMessageW(dialog, listId, CB_GETITEMDATA, position, 0);
}

/// A device context of a window, given back at the end of its scope; none without a window.
class WindowContext {
public:
    explicit WindowContext(HWND window)
        : window_(window), context_(window == nullptr ? nullptr : ::GetDC(window)) {}
    WindowContext(const WindowContext&) = delete;
    WindowContext& operator=(const WindowContext&) = delete;
    ~WindowContext() {
        if (context_ != nullptr) ::ReleaseDC(window_, context_);
    }

    [[nodiscard]] HDC Get() const { return context_; }

private:
    HWND window_;
    HDC context_;
};

}  // namespace oemui
