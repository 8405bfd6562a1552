#include <cstdlib>
#include <utility>

#include "tests/support/scripted_user.h"

namespace tests {
namespace {

constexpr int kMostPendingMessages = 1000;

ScriptedUser* current = nullptr;
HHOOK hook = nullptr;
HWND answered = nullptr;  // the message box that has its answer already

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

/// Every box that becomes active while the user works gets its answer.
LRESULT CALLBACK OnActivation(int code, WPARAM first, LPARAM second) {
    const auto window = reinterpret_cast<HWND>(first);
    if (code == HCBT_ACTIVATE && current != nullptr && current->Dialog() != nullptr &&
        window != current->Dialog() && window != answered && HasClass(window, TEXT("#32770"))) {
        AnswerBox(window);
    }
    return ::CallNextHookEx(hook, code, first, second);
}

BOOL CALLBACK FindDialog(HWND window, LPARAM found) {
    if (!HasClass(window, TEXT("#32770")) || !::IsWindowVisible(window)) return TRUE;
    *reinterpret_cast<HWND*>(found) = window;
    return FALSE;
}

/// Fires once the dialog has nothing else to do.
void CALLBACK OnDialogIdle(HWND, UINT, UINT_PTR timer, DWORD) {
    HWND dialog = nullptr;
    ::EnumThreadWindows(::GetCurrentThreadId(), FindDialog, reinterpret_cast<LPARAM>(&dialog));
    if (dialog == nullptr) return;
    ::KillTimer(nullptr, timer);
    current->WorkIn(dialog);
    if (::IsWindowVisible(dialog)) current->Close();
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
    hook = ::SetWindowsHookExW(WH_CBT, OnActivation, nullptr, ::GetCurrentThreadId());
}

ScriptedUser::~ScriptedUser() {
    ::UnhookWindowsHookEx(hook);
    current = nullptr;
    ExpectScriptDone();
}

INT_PTR ScriptedUser::Open(int templateId, DLGPROC procedure, LPARAM parameter, Work work) {
    works_ = {std::move(work)};
    const UINT_PTR timer = ::SetTimer(nullptr, 0, USER_TIMER_MINIMUM, OnDialogIdle);
    const INT_PTR result = ::DialogBoxParamW(
        ::GetModuleHandleW(nullptr), MAKEINTRESOURCEW(templateId), nullptr, procedure, parameter);
    ::KillTimer(nullptr, timer);
    works_.clear();
    dialog_ = nullptr;
    return result;
}

bool ScriptedUser::Click(int controlId) {
    const HWND control = ::GetDlgItem(dialog_, controlId);
    if (!Usable(control)) return false;
    ::SetFocus(control);
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

bool ScriptedUser::PressKey(int virtualKey, bool alt) {
    MSG message{};
    message.hwnd = ::GetFocus() != nullptr ? ::GetFocus() : dialog_;
    message.message = alt ? WM_SYSCHAR : WM_KEYDOWN;
    message.wParam = static_cast<WPARAM>(virtualKey);
    message.lParam = alt ? 1 << 29 | 1 : 1;
    if (!::IsDialogMessageW(dialog_, &message)) {
        ::TranslateMessage(&message);
        ::DispatchMessageW(&message);
    }
    HandlePendingMessages(dialog_);
    return true;
}

bool ScriptedUser::Choose(int listId, const Text& itemText) {
    const HWND list = ::GetDlgItem(dialog_, listId);
    if (!Usable(list)) return false;
    const LRESULT item = ::SendMessageW(list, CB_FINDSTRINGEXACT, static_cast<WPARAM>(-1),
                                        reinterpret_cast<LPARAM>(itemText.c_str()));
    if (item < 0) return false;
    ::SetFocus(list);
    ::SendMessageW(list, CB_SHOWDROPDOWN, TRUE, 0);
    COMBOBOXINFO parts{};
    parts.cbSize = sizeof parts;
    ::GetComboBoxInfo(list, &parts);
    ::SendMessageW(parts.hwndList, LB_SETTOPINDEX, static_cast<WPARAM>(item), 0);
    RECT place{};
    ::SendMessageW(parts.hwndList, LB_GETITEMRECT, static_cast<WPARAM>(item),
                   reinterpret_cast<LPARAM>(&place));
    ClickAt(parts.hwndList, place.left + 2, (place.top + place.bottom) / 2);
    return ::SendMessageW(list, CB_GETCURSEL, 0, 0) == item;
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
