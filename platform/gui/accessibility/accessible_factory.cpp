#include "platform/gui/accessibility/accessible_factory.h"

#include "platform/gui/accessibility/accessible_edit.h"
#include "platform/gui/accessibility/accessible_list.h"
#include "platform/gui/controls/static_control.h"

namespace platform {
namespace {

QAccessible::Role RoleOfStatic(const Control& control) {
    switch (static_cast<const StaticControl&>(control).Look()) {
        case StaticLook::kLabel:
            return QAccessible::StaticText;
        case StaticLook::kFrame:
            return QAccessible::Graphic;
        case StaticLook::kGroupBox:
            break;
    }
    return QAccessible::Grouping;
}

QAccessible::Role RoleOfButton(const Control& control) {
    if (control.IsPushButton()) return QAccessible::Button;
    return control.IsRadioButton() ? QAccessible::RadioButton : QAccessible::CheckBox;
}

QAccessibleInterface* DescribeControl(const Control& control) {
    QWidget* face = control.Widget();
    switch (control.Kind()) {
        case WindowKind::kStatic:
            return new AccessibleControl(face, RoleOfStatic(control));
        case WindowKind::kButton:
            return new AccessibleButton(face, RoleOfButton(control));
        case WindowKind::kEdit:
            return new AccessibleEdit(face);
        case WindowKind::kList:
            return new AccessibleDropDown(face);
        case WindowKind::kUpDown:
            return new AccessibleUpDown(face);
        default:
            return nullptr;
    }
}

/// Null for what is not a dialog's: it is described as any other widget.
QAccessibleInterface* Describe(const QString&, QObject* object) {
    if (object == nullptr || !object->isWidgetType()) return nullptr;
    auto* widget = static_cast<QWidget*>(object);
    if (ListShownBy(widget) != nullptr) return new AccessibleItems(widget);
    const Window* window = Window::Of(widget);
    if (window == nullptr || window->Widget() != widget) return nullptr;
    if (window->Kind() == WindowKind::kDialog) return new AccessibleDialog(widget);
    const Control* control = Control::Of(widget);
    return control == nullptr ? nullptr : DescribeControl(*control);
}

}  // namespace

void DescribeDialogsToReaders() {
    QAccessible::installFactory(Describe);  // the same one twice counts once
}

}  // namespace platform
