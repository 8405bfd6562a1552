#include "platform/gui/dialogs/dialog_keyboard.h"

#include <QKeyEvent>
#include <algorithm>

#include "platform/gui/windows/window_text.h"

namespace platform {
namespace {

using Controls = std::vector<Control*>;

Controls AllControls(const Dialog& dialog) {
    Controls all;
    for (const auto& control : dialog.Controls()) all.push_back(control.get());
    return all;
}

/// The first control after another (null: from the beginning), all round, that fits.
template <typename Condition>
Control* NextAfter(const Controls& controls, const Control* from, Condition fits) {
    const auto found = std::ranges::find(controls, from);
    const auto begin = found == controls.end() ? controls.begin() : found + 1;
    auto next = std::find_if(begin, controls.end(), fits);
    if (next != controls.end()) return *next;
    next = std::find_if(controls.begin(), begin, fits);
    return next == begin ? nullptr : *next;
}

bool IsOpenTabStop(const Control* control) {
    return control->IsTabStop() && control->TakesFocus();
}

/// A label's letter leads to the next control; a button's presses it.
bool FollowMnemonic(Dialog& dialog, const Control* focused, QChar letter) {
    const Controls controls = AllControls(dialog);
    Control* named = NextAfter(controls, focused, [&](const Control* control) {
        const bool labelled =
            control->Kind() == WindowKind::kStatic || control->Kind() == WindowKind::kButton;
        return labelled && control->Widget()->isEnabled() && !control->Widget()->isHidden() &&
               MnemonicOf(control->Text()) == letter;
    });
    if (named == nullptr) return false;
    if (named->Kind() == WindowKind::kStatic) {
        Control* target = NextAfter(controls, named, IsOpenTabStop);
        if (target == nullptr) return true;
        target->GiveFocus();
        // Whoever lost the focus may have set an edit's text anew; here it is selected all the
        // same.
        target->GiveFocus();
    } else {
        named->GiveFocus();
        named->Press();
    }
    return true;
}

/// An arrow key leads to the next button of the group; a radio button is checked by that.
void MoveInGroup(Dialog& dialog, const Control& from, bool forward) {
    Controls group = dialog.GroupOf(from);
    if (!forward) std::ranges::reverse(group);
    Control* next = NextAfter(group, &from, [&](const Control* control) {
        return control->Kind() == WindowKind::kButton && control->TakesFocus() &&
               control->IsRadioButton() == from.IsRadioButton();
    });
    if (next == nullptr || next == &from) return;
    next->GiveFocus();
    if (next->IsRadioButton()) next->Press();
}

bool HandleArrow(Dialog& dialog, const Control* focused, int key) {
    if (focused == nullptr || focused->Kind() != WindowKind::kButton) return false;
    const bool forward = key == Qt::Key_Down || key == Qt::Key_Right;
    if (!forward && key != Qt::Key_Up && key != Qt::Key_Left) return false;
    MoveInGroup(dialog, *focused, forward);
    return true;
}

QChar LetterOf(const QKeyEvent& event) {
    if (event.key() >= Qt::Key_0 && event.key() <= Qt::Key_Z) return QChar(event.key()).toLower();
    return event.text().isEmpty() ? QChar() : event.text().front().toLower();
}

bool HandleLetter(Dialog& dialog, const Control* focused, const QKeyEvent& event) {
    const bool alt = event.modifiers().testFlag(Qt::AltModifier);
    const bool typing = focused != nullptr && focused->TypesText();
    if (typing && !alt) return false;
    const QChar letter = LetterOf(event);
    if (letter.isNull() || !letter.isPrint() || letter == u' ') return false;
    return FollowMnemonic(dialog, focused, letter) || alt;
}

void AskHelpByKey(Dialog& dialog, const Control* focused, bool withMouse) {
    if (withMouse) return dialog.AwaitHelpClick();
    dialog.AskHelp(focused == nullptr ? 0 : focused->ControlId());
}

}  // namespace

Control* FirstTabStop(const Dialog& dialog) {
    return NextAfter(AllControls(dialog), nullptr, IsOpenTabStop);
}

void MoveToTabStop(Dialog& dialog, const Control* from, bool forward) {
    Controls controls = AllControls(dialog);
    if (!forward) std::ranges::reverse(controls);
    Control* next = NextAfter(controls, from, IsOpenTabStop);
    if (next != nullptr) next->GiveFocus();
}

bool HandleDialogKey(Dialog& dialog, Control* focused, const QKeyEvent& event) {
    if (focused != nullptr && focused->WantsKey(event)) return false;
    switch (event.key()) {
        case Qt::Key_Tab:
        case Qt::Key_Backtab:
            MoveToTabStop(
                dialog, focused,
                event.key() == Qt::Key_Tab && !event.modifiers().testFlag(Qt::ShiftModifier));
            return true;
        case Qt::Key_Return:
        case Qt::Key_Enter:
            dialog.PressDefault();
            return true;
        case Qt::Key_Escape:
            dialog.Cancel();
            return true;
        case Qt::Key_F1:
            AskHelpByKey(dialog, focused, event.modifiers().testFlag(Qt::ShiftModifier));
            return true;
        default:
            return HandleArrow(dialog, focused, event.key()) ||
                   HandleLetter(dialog, focused, event);
    }
}

}  // namespace platform
