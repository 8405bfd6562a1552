#include <windows.h>

#include <QString>
#include <algorithm>
#include <cstdint>
#include <string>

#include "platform/base/fail.h"
#include "platform/faults/failure_points.h"
#include "platform/gui/dialogs/dialog.h"
#include "platform/gui/templates/dialog_template.h"
#include "platform/gui/windows/window_text.h"
#include "platform/modules/resources.h"

using platform::Control;
using platform::Dialog;
using platform::Fail;
using platform::InjectedFailure;

namespace {

/// Passes the failure point and finds the control; null with the last error set.
Control* ControlForCall(const char* point, HWND dialog, int controlId) {
    if (const auto error = InjectedFailure(point)) return Fail<Control*>(*error);
    const Dialog* found = Dialog::Require(dialog);
    if (found == nullptr) return nullptr;
    Control* control = found->Find(controlId);
    return control == nullptr ? Fail<Control*>(ERROR_CONTROL_ID_NOT_FOUND) : control;
}

/// The number behind the blanks of a text, within 32 bits. Only a signed one has a sign, a minus.
bool LeadingNumber(QStringView text, bool isSigned, UINT* number) {
    while (text.startsWith(u' ')) text = text.sliced(1);
    const bool isNegative = isSigned && text.startsWith(u'-');
    if (isNegative) text = text.sliced(1);
    const auto end = std::ranges::find_if(
        text, [](QChar character) { return character < u'0' || character > u'9'; });
    bool isNumber = false;
    const std::int64_t size = text.first(end - text.begin()).toLongLong(&isNumber);
    const std::int64_t highest = isSigned ? INT32_MAX : std::int64_t{UINT32_MAX};
    if (!isNumber || size > highest + isNegative) return false;
    *number = static_cast<UINT>(isNegative ? -size : size);
    return true;
}

}  // namespace

INT_PTR WINAPI DialogBoxParamW(HINSTANCE module, LPCWSTR dialogTemplate, HWND owner,
                               DLGPROC procedure, LPARAM parameter) try {
    constexpr INT_PTR kFailed = -1;
    if (const auto error = InjectedFailure("DialogBoxParamW")) return Fail(*error, kFailed);
    platform::Window* ownerWindow = nullptr;
    if (owner != nullptr) {
        ownerWindow = platform::RequireWindow(owner);
        if (ownerWindow == nullptr) return 0;  // the one failure that is not -1
    }
    if (!IS_INTRESOURCE(dialogTemplate)) return Fail(ERROR_RESOURCE_NAME_NOT_FOUND, kFailed);
    const auto id = static_cast<WORD>(reinterpret_cast<ULONG_PTR>(dialogTemplate));
    const auto bytes = platform::FindResource(module, platform::kDialogResource, id);
    if (bytes.empty()) return Fail(ERROR_RESOURCE_NAME_NOT_FOUND, kFailed);
    const auto made = platform::ParseDialogTemplate(bytes);
    if (!made) return Fail(ERROR_INVALID_DATA, kFailed);
    const auto dialog = Dialog::Make(*made, ownerWindow, procedure);
    return dialog == nullptr ? Fail(ERROR_INVALID_DATA, kFailed) : dialog->Run(parameter);
} catch (...) {
    return platform::FailCaught(INT_PTR{-1});
}

BOOL WINAPI EndDialog(HWND dialog, INT_PTR result) try {
    if (const auto error = InjectedFailure("EndDialog")) return Fail(*error);
    Dialog* found = Dialog::Require(dialog);
    if (found == nullptr) return FALSE;
    found->End(result);
    return TRUE;
} catch (...) {
    return platform::FailCaught();
}

HWND WINAPI GetDlgItem(HWND dialog, int controlId) {
    const Control* control = ControlForCall("GetDlgItem", dialog, controlId);
    return control == nullptr ? nullptr : control->Handle();
}

BOOL WINAPI SetDlgItemTextW(HWND dialog, int controlId, LPCWSTR text) try {
    Control* control = ControlForCall("SetDlgItemTextW", dialog, controlId);
    if (control == nullptr) return FALSE;
    control->SetText(platform::TextOrNothing(text));
    return TRUE;
} catch (...) {
    return platform::FailCaught();
}

UINT WINAPI GetDlgItemTextW(HWND dialog, int controlId, LPWSTR text, int capacity) try {
    if (capacity > 0) text[0] = 0;
    const Control* control = ControlForCall("GetDlgItemTextW", dialog, controlId);
    if (control == nullptr) return 0;
    return static_cast<UINT>(platform::CopyOut(control->Text(), text, capacity));
} catch (...) {
    return platform::FailCaught<UINT>();
}

BOOL WINAPI SetDlgItemInt(HWND dialog, int controlId, UINT value, BOOL isSigned) try {
    Control* control = ControlForCall("SetDlgItemInt", dialog, controlId);
    if (control == nullptr) return FALSE;
    control->SetText(isSigned != FALSE ? QString::number(static_cast<INT>(value))
                                       : QString::number(value));
    return TRUE;
} catch (...) {
    return platform::FailCaught();
}

UINT WINAPI GetDlgItemInt(HWND dialog, int controlId, BOOL* translated, BOOL isSigned) try {
    UINT number = 0;
    const Control* control = ControlForCall("GetDlgItemInt", dialog, controlId);
    const bool found =
        control != nullptr && LeadingNumber(control->Text(), isSigned != FALSE, &number);
    if (translated != nullptr) *translated = found ? TRUE : FALSE;
    return number;
} catch (...) {
    return platform::FailCaught<UINT>();
}

LRESULT WINAPI SendDlgItemMessageW(HWND dialog, int controlId, UINT message, WPARAM first,
                                   LPARAM second) try {
    Control* control = ControlForCall("SendDlgItemMessageW", dialog, controlId);
    return control == nullptr ? 0 : control->Receive(message, first, second);
} catch (...) {
    return platform::FailCaught<LRESULT>();
}
