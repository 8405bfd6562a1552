#include <cstdlib>
#include <cstring>
#include <utility>

#include "tests/support/scripted_user.h"

namespace tests {
namespace {

constexpr int kMostPendingMessages = 1000;
constexpr int kMessageTextId = 0xFFFF;  // of the static control in every message box

ScriptedUser* current = nullptr;
HHOOK hook = nullptr;
HWND answered = nullptr;  // the message box that has its answer already
HWND worked = nullptr;    // the dialog that has its work already
HWND desk = nullptr;      // where posted work comes in

Text WindowText(HWND window) {
    Text text(static_cast<std::size_t>(::GetWindowTextLengthW(window)) + 1, 0);
    text.resize(static_cast<std::size_t>(
        ::GetWindowTextW(window, text.data(), static_cast<int>(text.size()))));
    return text;
}

bool HasClass(HWND window, const Text& name) {
    WCHAR found[64] = {};
    ::GetClassNameW(window, found, 64);
    return ::lstrcmpiW(found, name.c_str()) == 0;
}

bool Usable(HWND control) {
    return control != nullptr && ::IsWindowVisible(control) && ::IsWindowEnabled(control);
}

/// The text of a message box stands in a static control.
BOOL CALLBACK FindMessageText(HWND child, LPARAM text) {
    if (!HasClass(child, TEXT("STATIC")) || ::GetWindowTextLengthW(child) == 0) return TRUE;
    *reinterpret_cast<Text*>(text) = WindowText(child);
    return FALSE;
}

void AnswerBox(HWND box) {
    answered = box;
    Text text;
    ::EnumChildWindows(box, FindMessageText, reinterpret_cast<LPARAM>(&text));
    ShownBox shown{Narrow(text), Narrow(WindowText(box)), MB_OK};
    if (::GetDlgItem(box, IDYES) != nullptr) {
        shown.type = MB_YESNO;
    } else if (::GetDlgItem(box, IDOK) != nullptr && ::GetDlgItem(box, IDCANCEL) != nullptr) {
        shown.type = MB_OKCANCEL;
    }
    ::EndDialog(box, current->Answer(shown));
}

/// A box gets its answer as it becomes active; any other dialog its work once it has nothing else
/// to do.
LRESULT CALLBACK OnActivation(int code, WPARAM first, LPARAM second) {
    const auto window = reinterpret_cast<HWND>(first);
    if (code == HCBT_DESTROYWND) {  // another window may get the same handle
        if (window == answered) answered = nullptr;
        if (window == worked) worked = nullptr;
    } else if (code == HCBT_ACTIVATE && window != answered && window != worked &&
               HasClass(window, TEXT("#32770"))) {
        if (::GetDlgItem(window, kMessageTextId) != nullptr) {
            AnswerBox(window);
        } else {
            worked = window;
            ::PostMessageW(desk, WM_APP, first, 0);
        }
    }
    return ::CallNextHookEx(hook, code, first, second);
}

/// Of the window to which the work in a dialog is posted.
LRESULT CALLBACK DeskProc(HWND window, UINT message, WPARAM first, LPARAM second) {
    const auto dialog = reinterpret_cast<HWND>(first);
    if (message != WM_APP) return ::DefWindowProcW(window, message, first, second);
    if (!::IsWindowVisible(dialog)) return 0;
    current->WorkIn(dialog);
    if (::IsWindowVisible(dialog)) current->Close();
    return 0;
}

void HandlePendingMessages(HWND dialog) {
    MSG message;
    for (int i = 0; i < kMostPendingMessages; ++i) {
        if (!::PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) return;
        if (::IsDialogMessageW(dialog, &message)) continue;
        ::TranslateMessage(&message);
        ::DispatchMessageW(&message);
    }
}

/// A key's message to whatever has the focus, and all that follows from it.
void GiveKey(HWND dialog, UINT kind, int key, LPARAM details) {
    MSG message{};
    message.hwnd = ::GetFocus() != nullptr ? ::GetFocus() : dialog;
    message.message = kind;
    message.wParam = static_cast<WPARAM>(key);
    message.lParam = details;
    if (!::IsDialogMessageW(dialog, &message)) {
        ::TranslateMessage(&message);
        ::DispatchMessageW(&message);
    }
    HandlePendingMessages(dialog);
}

void ClickAt(HWND window, LONG x, LONG y) {
    const LPARAM place = MAKELPARAM(x, y);
    ::SendMessageW(window, WM_MOUSEMOVE, 0, place);
    ::SendMessageW(window, WM_LBUTTONDOWN, MK_LBUTTON, place);
    ::SendMessageW(window, WM_LBUTTONUP, 0, place);
}

}  // namespace

/// Nothing but what the hook shows is needed here.
struct ScriptedUser::Seat {};

ScriptedUser::ScriptedUser() {
    current = this;
    // The up-down control lives in a library that nothing else of the test program needs.
    const HMODULE controls = ::LoadLibraryW(L"comctl32.dll");
    if (const auto initialise = ::GetProcAddress(controls, "InitCommonControls")) initialise();
    desk = ::CreateWindowExW(0, L"STATIC", nullptr, 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr, nullptr,
                             nullptr);
    ::SetWindowLongPtrW(desk, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(DeskProc));
    hook = ::SetWindowsHookExW(WH_CBT, OnActivation, nullptr, ::GetCurrentThreadId());
}

ScriptedUser::~ScriptedUser() {
    ::UnhookWindowsHookEx(hook);
    ::DestroyWindow(desk);
    current = nullptr;
    ExpectScriptDone();
}

bool ScriptedUser::Click(int controlId) {
    const HWND control = ::GetDlgItem(dialog_, controlId);
    if (!Usable(control)) return false;
    // As the dialog does it: a push button that has the focus is the one that Enter presses.
    ::SendMessageW(dialog_, WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(control), TRUE);
    ::SendMessageW(control, BM_CLICK, 0, 0);
    return true;
}

bool ScriptedUser::TypeText(int editId, const Text& text) {
    const HWND edit = ::GetDlgItem(dialog_, editId);
    if (!Usable(edit)) return false;
    ::SetFocus(edit);
    ::SendMessageW(edit, EM_SETSEL, 0, -1);
    if (text.empty()) ::SendMessageW(edit, WM_CHAR, VK_BACK, 1);
    for (const WCHAR character : text) ::SendMessageW(edit, WM_CHAR, character, 1);
    return true;
}

bool ScriptedUser::Type(const Text& text) {
    for (const WCHAR character : text) {
        if (!::IsWindowVisible(dialog_)) return true;
        if (character == TEXT(' ')) {  // a button takes the key, not the character
            PressKey(VK_SPACE);
        } else {
            GiveKey(dialog_, WM_CHAR, character, 1);
        }
    }
    return true;
}

bool ScriptedUser::Paste(const Text& text) {
    const HWND focus = ::GetFocus();
    if (focus == nullptr || !HasClass(focus, TEXT("EDIT"))) return false;
    const std::size_t size = (text.size() + 1) * sizeof(WCHAR);
    const HGLOBAL clip = ::GlobalAlloc(GMEM_MOVEABLE, size);
    std::memcpy(::GlobalLock(clip), text.c_str(), size);
    ::GlobalUnlock(clip);
    ::OpenClipboard(desk);
    ::EmptyClipboard();
    ::SetClipboardData(CF_UNICODETEXT, clip);  // the clipboard's from now on
    ::CloseClipboard();
    ::SendMessageW(focus, WM_PASTE, 0, 0);
    return true;
}

bool ScriptedUser::PressKey(int virtualKey, bool alt) {
    if (alt) {
        GiveKey(dialog_, WM_SYSCHAR, virtualKey, 1 << 29 | 1);
    } else {
        GiveKey(dialog_, WM_KEYDOWN, virtualKey, 1);
        constexpr LPARAM kReleased = static_cast<LPARAM>(0xC0000001);
        if (::IsWindowVisible(dialog_)) GiveKey(dialog_, WM_KEYUP, virtualKey, kReleased);
    }
    return true;
}

bool ScriptedUser::Choose(int listId, const Text& itemText) {
    const HWND list = ::GetDlgItem(dialog_, listId);
    if (!Usable(list)) return false;
    return ChooseAt(
        listId, static_cast<int>(::SendMessageW(list, CB_FINDSTRINGEXACT, static_cast<WPARAM>(-1),
                                                reinterpret_cast<LPARAM>(itemText.c_str()))));
}

bool ScriptedUser::ChooseAt(int listId, int position) {
    const HWND list = ::GetDlgItem(dialog_, listId);
    if (!Usable(list)) return false;
    if (position < 0 || position >= ::SendMessageW(list, CB_GETCOUNT, 0, 0)) return false;
    ::SetFocus(list);
    ::SendMessageW(list, CB_SHOWDROPDOWN, TRUE, 0);
    COMBOBOXINFO parts{};
    parts.cbSize = sizeof parts;
    ::GetComboBoxInfo(list, &parts);
    const auto item = static_cast<WPARAM>(position);
    ::SendMessageW(parts.hwndList, LB_SETTOPINDEX, item, 0);
    RECT place{};
    ::SendMessageW(parts.hwndList, LB_GETITEMRECT, item, reinterpret_cast<LPARAM>(&place));
    ClickAt(parts.hwndList, place.left + 2, (place.top + place.bottom) / 2);
    return true;
}

bool ScriptedUser::StepUpDown(int upDownId, int steps) {
    const HWND upDown = ::GetDlgItem(dialog_, upDownId);
    if (!Usable(upDown)) return false;
    RECT area{};
    ::GetClientRect(upDown, &area);
    const LONG y = steps > 0 ? area.bottom / 4 : area.bottom * 3 / 4;
    for (int i = 0; i < std::abs(steps); ++i) ClickAt(upDown, area.right / 2, y);
    return true;
}

void ScriptedUser::Close() {
    ::SendMessageW(dialog_, WM_SYSCOMMAND, SC_CLOSE, 0);
    HandlePendingMessages(dialog_);
}

}  // namespace tests
