/// What is done to the controls of a dialog. A control that the dialog does not have is passed over
/// and reads as 0.
#pragma once

#include <windows.h>

#include <commctrl.h>

#include <span>

#include "common/fixed_text.h"

namespace oemui {

/// One control of a dialog.
class Control {
public:
    Control(HWND dialog, int id) : dialog_(dialog), id_(id) {}

    [[nodiscard]] HWND Window() const { return ::GetDlgItem(dialog_, id_); }
    LRESULT Send(UINT message, WPARAM first = 0, LPARAM second = 0) const {
        return ::SendDlgItemMessageW(dialog_, id_, message, first, second);
    }

    void Enable(bool enabled) const {
        if (const HWND window = Window()) ::EnableWindow(window, enabled ? TRUE : FALSE);
    }
    void Focus() const {
        if (const HWND window = Window()) ::SetFocus(window);
    }

    // Buttons
    void Check(bool checked) const { Send(BM_SETCHECK, checked ? BST_CHECKED : BST_UNCHECKED); }
    [[nodiscard]] BYTE CheckState() const { return static_cast<BYTE>(Send(BM_GETCHECK)); }

    // Edits and their up-downs
    void Show(LPCWSTR text) const { ::SetDlgItemTextW(dialog_, id_, text); }
    void ShowNumber(INT32 number) const { ShowInteger(number, FALSE); }
    void ShowSigned(INT32 number) const { ShowInteger(number, TRUE); }
    [[nodiscard]] INT32 Number() const { return Integer(FALSE); }
    [[nodiscard]] INT32 SignedNumber() const { return Integer(TRUE); }
    void LimitText(WPARAM characters) const { Send(EM_LIMITTEXT, characters); }
    void SetRange(INT32 lowest, INT32 highest) const {
        Send(UDM_SETRANGE, 0, MAKELPARAM(highest, lowest));
    }
    /// Reads the text, cut to the array. One that cannot be read leaves the array as it is.
    template <std::size_t Capacity>
    void ReadText(WCHAR (&text)[Capacity]) const {
        const HWND window = Window();
        if (window == nullptr) return;
        FixedText<Capacity> read;
        const int length = ::GetWindowTextW(window, read.Room(), static_cast<int>(Capacity));
        if (length > 0 || ::GetWindowTextLengthW(window) == 0) CopyText(text, read.View());
    }

    // Lists; positions and the numbers that items carry are negative where there is none.
    LRESULT Add(LPCWSTR text) const { return SendText(CB_ADDSTRING, text); }
    void AddNumbered(LPCWSTR text, UINT32 number) const {
        const LRESULT position = Add(text);
        if (position >= 0) Send(CB_SETITEMDATA, static_cast<WPARAM>(position), LPARAM{number});
    }
    [[nodiscard]] LRESULT Find(LPCWSTR text) const { return SendText(CB_FINDSTRINGEXACT, text); }
    void Remove(INT32 position) const { Send(CB_DELETESTRING, static_cast<WPARAM>(position)); }
    void Select(LRESULT position) const { Send(CB_SETCURSEL, static_cast<WPARAM>(position)); }
    [[nodiscard]] INT32 Selected() const { return static_cast<INT32>(Send(CB_GETCURSEL)); }
    [[nodiscard]] LRESULT SelectedNumber() const {
        return Send(CB_GETITEMDATA, static_cast<WPARAM>(Selected()));
    }

private:
    void ShowInteger(INT32 number, BOOL isSigned) const {
        ::SetDlgItemInt(dialog_, id_, static_cast<UINT>(number), isSigned);
    }
    INT32 Integer(BOOL isSigned) const {
        return static_cast<INT32>(::GetDlgItemInt(dialog_, id_, nullptr, isSigned));
    }
    LRESULT SendText(UINT message, LPCWSTR text) const {
        return Send(message, 0, reinterpret_cast<LPARAM>(text));
    }

    HWND dialog_;
    int id_;
};

inline void EnableControls(HWND dialog, std::span<const int> controlIds, bool enabled) {
    for (const int controlId : controlIds) Control(dialog, controlId).Enable(enabled);
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
