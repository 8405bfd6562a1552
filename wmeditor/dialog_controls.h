/// What is done to the controls of a dialog. A control that the dialog does not have is passed
/// over. What is read takes the answer for a control that cannot be read, mostly what is known of
/// it already: a call that fails must not change a setting.
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
    // NOLINTNEXTLINE(modernize-use-nodiscard): to many messages nobody needs the answer
    LRESULT Send(UINT message, WPARAM first = 0, LPARAM second = 0) const {
        return ::SendDlgItemMessageW(dialog_, id_, message, first, second);
    }

    /// The focus leaves a control that is disabled for the next one that takes keys.
    void Enable(bool enabled) const {
        const HWND window = Window();
        if (window == nullptr) return;
        if (!enabled && HasFocus()) ::SendMessageW(dialog_, WM_NEXTDLGCTL, 0, FALSE);
        ::EnableWindow(window, enabled ? TRUE : FALSE);
    }
    /// Gives it the focus in the dialog's own way: the default button follows, and an edit's text
    /// is selected. It has to be enabled.
    void Focus() const {
        if (const HWND window = Window())
            ::SendMessageW(dialog_, WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(window), TRUE);
    }
    [[nodiscard]] bool HasFocus() const {
        const HWND focused = ::GetFocus();
        return focused != nullptr && focused == Window();
    }

    // Buttons
    void Check(bool checked) const { Send(BM_SETCHECK, checked ? BST_CHECKED : BST_UNCHECKED); }
    [[nodiscard]] BYTE CheckState(BYTE otherwise) const {
        const HWND window = Window();
        if (window == nullptr) return otherwise;
        return static_cast<BYTE>(::SendMessageW(window, BM_GETCHECK, 0, 0));
    }

    // Edits and their up-downs
    void Show(LPCWSTR text) const { ::SetDlgItemTextW(dialog_, id_, text); }
    void ShowNumber(INT32 number) const { ShowInteger(number, FALSE); }
    void ShowSigned(INT32 number) const { ShowInteger(number, TRUE); }
    /// A text without digits, as while a number is typed, is 0.
    [[nodiscard]] INT32 Number(INT32 otherwise) const { return Integer(FALSE, otherwise); }
    [[nodiscard]] INT32 SignedNumber(INT32 otherwise) const { return Integer(TRUE, otherwise); }
    void LimitText(WPARAM characters) const { Send(EM_LIMITTEXT, characters); }
    void SetRange(INT32 lowest, INT32 highest) const {
        Send(UDM_SETRANGE, 0, MAKELPARAM(highest, lowest));
    }
    /// Reads the text, cut to the array and to whole characters. One that cannot be read leaves the
    /// array as it is.
    template <std::size_t Capacity>
    void ReadText(WCHAR (&text)[Capacity]) const {
        const HWND window = Window();
        if (window == nullptr) return;
        FixedText<Capacity> read;
        const int length = ::GetWindowTextW(window, read.Room(), static_cast<int>(Capacity));
        if (length <= 0 && ::GetWindowTextLengthW(window) != 0) return;
        CopyText(text, WithoutLoneHalf(read.View()));
    }

    // Lists; positions and the numbers that items carry are negative where there is none.
    LRESULT Add(LPCWSTR text) const { return SendText(CB_ADDSTRING, text); }
    LRESULT AddNumbered(LPCWSTR text, LPARAM number) const {
        const LRESULT position = Add(text);
        if (position >= 0) Renumber(position, number);
        return position;
    }
    /// An item that does not take its number would stand for another one, and goes.
    void Renumber(LRESULT position, LPARAM number) const {
        if (SendToList(CB_SETITEMDATA, position, number) < 0) Remove(position);
    }
    // NOLINTNEXTLINE(modernize-use-nodiscard): an item that is gone already is no loss
    LRESULT Remove(LRESULT position) const { return SendToList(CB_DELETESTRING, position); }
    [[nodiscard]] LRESULT Count() const { return SendToList(CB_GETCOUNT); }
    [[nodiscard]] LRESULT Find(LPCWSTR text) const { return SendText(CB_FINDSTRINGEXACT, text); }
    void Select(LRESULT position) const { SendToList(CB_SETCURSEL, position); }
    [[nodiscard]] LRESULT Selected() const { return SendToList(CB_GETCURSEL); }
    /// Nothing selected reads as what cannot be read does.
    [[nodiscard]] UINT32 Selected(UINT32 otherwise) const {
        const LRESULT position = Selected();
        return position < 0 ? otherwise : static_cast<UINT32>(position);
    }
    [[nodiscard]] LRESULT ItemNumber(LRESULT position) const {
        return SendToList(CB_GETITEMDATA, position);
    }
    [[nodiscard]] LRESULT SelectedNumber() const { return ItemNumber(Selected()); }

private:
    void ShowInteger(INT32 number, BOOL isSigned) const {
        ::SetDlgItemInt(dialog_, id_, static_cast<UINT>(number), isSigned);
    }
    [[nodiscard]] INT32 Integer(BOOL isSigned, INT32 otherwise) const {
        BOOL isRead = FALSE;
        const UINT number = ::GetDlgItemInt(dialog_, id_, &isRead, isSigned);
        if (isRead != FALSE) return static_cast<INT32>(number);
        return MayHoldDigits() ? otherwise : 0;
    }
    /// Also when the text cannot be read.
    [[nodiscard]] bool MayHoldDigits() const {
        WCHAR text[kNumberCapacity] = TEXT("0");
        ReadText(text);
        return TextIn(text).find_first_of(TEXT("0123456789")) != TextView::npos;
    }
    LRESULT SendText(UINT message, LPCWSTR text) const {
        return SendToList(message, 0, reinterpret_cast<LPARAM>(text));
    }
    // NOLINTNEXTLINE(modernize-use-nodiscard): to many messages nobody needs the answer
    LRESULT SendToList(UINT message, LRESULT position = 0, LPARAM second = 0) const {
        const HWND window = Window();
        if (window == nullptr) return CB_ERR;
        return ::SendMessageW(window, message, static_cast<WPARAM>(position), second);
    }

    static constexpr std::size_t kNumberCapacity = 16;  // the longest is "-2147483648"

    HWND dialog_;
    int id_;
};

/// Enables or disables controls together; the focus goes to one that stays enabled.
inline void EnableControls(HWND dialog, std::span<const int> controlIds, bool enabled) {
    const HWND focused = ::GetFocus();
    for (const bool withFocus : {false, true}) {  // or it would go through all of them
        for (const int controlId : controlIds) {
            const Control control(dialog, controlId);
            if ((control.Window() == focused) == withFocus) control.Enable(enabled);
        }
    }
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
