#include "platform/gui/accessibility/accessible_control.h"

#include <QApplication>
#include <QPushButton>
#include <algorithm>

#include "platform/gui/accessibility/control_names.h"
#include "platform/gui/controls/up_down.h"

namespace platform {
namespace {

QAccessibleInterface* InterfaceOf(const Control& control) {
    return QAccessible::queryAccessibleInterface(control.Widget());
}

}  // namespace

int AccessiblePlace::childCount() const {
    return static_cast<int>(Members().size());
}

QAccessibleInterface* AccessiblePlace::child(int index) const {
    const std::vector<Control*> members = Members();
    if (index < 0 || index >= static_cast<int>(members.size())) return nullptr;
    return InterfaceOf(*members[static_cast<std::size_t>(index)]);
}

int AccessiblePlace::indexOfChild(const QAccessibleInterface* child) const {
    if (child == nullptr || child->object() == nullptr) return -1;
    const std::vector<Control*> members = Members();
    const auto found = std::ranges::find(members, child->object(), &Control::Widget);
    return found == members.end() ? -1 : static_cast<int>(found - members.begin());
}

QAccessible::State AccessibleDialog::state() const {
    QAccessible::State state = AccessiblePlace::state();
    state.modal = true;
    return state;
}

std::vector<Control*> AccessibleDialog::Members() const {
    const Window* dialog = Window::Of(widget());
    if (dialog == nullptr || dialog->Kind() != WindowKind::kDialog) return {};
    return ControlsIn(static_cast<const ControlOwner&>(*dialog), nullptr);
}

Control* AccessibleControl::Shown() const {
    return QAccessibleWidget::isValid() ? Control::Of(widget()) : nullptr;
}

std::vector<Control*> AccessibleControl::Members() const {
    const Control* control = Shown();
    if (control == nullptr || role() != QAccessible::Grouping) return {};
    return ControlsIn(control->Owner(), control);
}

QAccessibleInterface* AccessibleControl::parent() const {
    const Control* control = Shown();
    const Control* box = control == nullptr ? nullptr : BoxAround(*control);
    return box == nullptr ? QAccessibleWidget::parent() : InterfaceOf(*box);
}

QString AccessibleControl::text(QAccessible::Text kind) const {
    const Control* control = Shown();
    if (control == nullptr) return {};
    const QString drawn = control->DrawnText();
    const QChar letter = LetterOf(*control);
    switch (kind) {
        case QAccessible::Name:
            return NameOf(*control);
        case QAccessible::Description:
            return drawn.isEmpty() ? drawn : NameOf(*control) + QStringLiteral(": ") + drawn;
        case QAccessible::Value:
            return Value();
        case QAccessible::Accelerator:
            return letter.isNull() ? QString() : QStringLiteral("Alt+") + letter.toUpper();
        default:
            return QAccessibleWidget::text(kind);
    }
}

AccessibleControl::Relations AccessibleControl::relations(QAccessible::Relation match) const {
    Relations found;
    const Control* control = Shown();
    if (control == nullptr) return found;
    const Control* label = LabelOf(*control);
    // A relation says what the other one is to this one.
    if (label != nullptr && match.testFlag(QAccessible::Label)) {
        found.append({InterfaceOf(*label), QAccessible::Label});
    }
    if (match.testFlag(QAccessible::Labelled)) {
        for (const Control* named : NamedBy(*control)) {
            found.append({InterfaceOf(*named), QAccessible::Labelled});
        }
    }
    return found;
}

bool AccessibleControl::IsInReach() const {
    const QWidget* modal = QApplication::activeModalWidget();
    return isValid() && widget()->isEnabled() && widget()->isVisible() &&
           (modal == nullptr || modal == widget()->window());
}

QAccessible::State AccessibleButton::state() const {
    QAccessible::State state = AccessibleControl::state();
    const auto* push = qobject_cast<const QPushButton*>(widget());
    state.defaultButton = push != nullptr && push->isDefault();
    state.checkable = push == nullptr;
    state.checked = static_cast<const QAbstractButton*>(widget())->isChecked();
    return state;
}

QStringList AccessibleButton::actionNames() const {
    QStringList names = AccessibleControl::actionNames();
    const bool pushes = role() == QAccessible::Button;
    if (widget()->isEnabled()) names.prepend(pushes ? pressAction() : toggleAction());
    return names;
}

void AccessibleButton::doAction(const QString& actionName) {
    if (actionName != pressAction() && actionName != toggleAction()) {
        return AccessibleControl::doAction(actionName);
    }
    // Later: the program may ask something meanwhile, and the caller waits for this to return.
    QMetaObject::invokeMethod(
        widget(),
        [face = widget()] {
            auto* found =
                static_cast<AccessibleButton*>(QAccessible::queryAccessibleInterface(face));
            if (found == nullptr || !found->IsInReach()) return;
            found->Shown()->GiveFocus();
            found->Shown()->Press();
        },
        Qt::QueuedConnection);
}

void* AccessibleUpDown::interface_cast(QAccessible::InterfaceType type) {
    if (type != QAccessible::ValueInterface) return AccessibleControl::interface_cast(type);
    return static_cast<QAccessibleValueInterface*>(this);
}

QVariant AccessibleUpDown::currentValue() const {
    const Control* control = Shown();
    return control == nullptr ? QVariant() : static_cast<const UpDown*>(control)->Number();
}

QVariant AccessibleUpDown::maximumValue() const {
    const Control* control = Shown();
    return control == nullptr ? QVariant() : static_cast<const UpDown*>(control)->Highest();
}

QVariant AccessibleUpDown::minimumValue() const {
    const Control* control = Shown();
    return control == nullptr ? QVariant() : static_cast<const UpDown*>(control)->Lowest();
}

void AccessibleUpDown::setCurrentValue(const QVariant& value) {
    bool isNumber = false;
    const int number = value.toInt(&isNumber);
    if (isNumber && IsInReach()) static_cast<UpDown*>(Shown())->MoveTo(number);
}

}  // namespace platform
