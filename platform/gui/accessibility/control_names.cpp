#include "platform/gui/accessibility/control_names.h"

#include <algorithm>

#include "platform/gui/controls/static_control.h"
#include "platform/gui/windows/window_text.h"

namespace platform {
namespace {

bool IsStatic(const Control& control, StaticLook look) {
    return control.Kind() == WindowKind::kStatic &&
           static_cast<const StaticControl&>(control).Look() == look;
}

bool ShowsOwnText(const Control& control) {
    return control.Kind() == WindowKind::kButton ||
           (control.Kind() == WindowKind::kStatic && !IsStatic(control, StaticLook::kFrame));
}

/// A frame shares its label with the frames before it, an up-down with its edit.
bool SharesLabel(const Control& control, const Control& before) {
    if (control.Kind() == WindowKind::kUpDown) return before.Kind() == WindowKind::kEdit;
    return IsStatic(control, StaticLook::kFrame) && IsStatic(before, StaticLook::kFrame);
}

int AreaOf(const Control& control) {
    return control.Widget()->width() * control.Widget()->height();
}

bool LiesIn(const Control& inner, const Control& outer) {
    return AreaOf(outer) > AreaOf(inner) &&
           outer.Widget()->geometry().contains(inner.Widget()->geometry().center());
}

bool HoldsFrame(const Control& frame) {
    return IsStatic(frame, StaticLook::kFrame) &&
           std::ranges::any_of(frame.Owner().Controls(), [&](const auto& each) {
               return IsStatic(*each, StaticLook::kFrame) && LiesIn(*each, frame);
           });
}

}  // namespace

Control* LabelOf(const Control& control) {
    if (ShowsOwnText(control)) return nullptr;
    Control* before = control.Owner().Before(control);
    while (before != nullptr && SharesLabel(control, *before)) {
        before = control.Owner().Before(*before);
    }
    const bool names = before != nullptr && before->Kind() == WindowKind::kStatic;
    return names && !before->Text().isEmpty() ? before : nullptr;
}

std::vector<Control*> NamedBy(const Control& label) {
    std::vector<Control*> named;
    for (const auto& each : label.Owner().Controls()) {
        if (LabelOf(*each) == &label && !HoldsFrame(*each)) named.push_back(each.get());
    }
    return named;
}

QString NameOf(const Control& control) {
    if (ShowsOwnText(control)) return WithoutMnemonic(control.Text());
    const Control* label = LabelOf(control);
    QString name = label == nullptr ? QString() : WithoutMnemonic(label->Text()).trimmed();
    if (name.endsWith(u':')) name.chop(1);
    return name;
}

QChar LetterOf(const Control& control) {
    const Control* label = LabelOf(control);
    const bool reached =
        control.Kind() == WindowKind::kButton ||
        (label != nullptr && control.IsTabStop() && control.Owner().Before(control) == label);
    return reached ? MnemonicOf(label == nullptr ? control.Text() : label->Text()) : QChar();
}

Control* BoxAround(const Control& control) {
    Control* smallest = nullptr;
    for (const auto& each : control.Owner().Controls()) {
        if (!IsStatic(*each, StaticLook::kGroupBox) || !LiesIn(control, *each)) continue;
        if (smallest == nullptr || AreaOf(*each) < AreaOf(*smallest)) smallest = each.get();
    }
    return smallest;
}

std::vector<Control*> ControlsIn(const ControlOwner& dialog, const Control* box) {
    std::vector<Control*> within;
    for (const auto& each : dialog.Controls()) {
        if (BoxAround(*each) == box && !HoldsFrame(*each)) within.push_back(each.get());
    }
    return within;
}

}  // namespace platform
