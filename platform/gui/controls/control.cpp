#include "platform/gui/controls/control.h"

#include "platform/gui/controls/control_owner.h"
#include "platform/gui/controls/focus.h"

namespace platform {

Control::Control(WindowKind kind, ControlOwner& owner, const ControlTemplate& made)
    : Window(kind, &owner, made.Id),
      owner_(owner),
      tabStop_((made.Style & WS_TABSTOP) != 0),
      startsGroup_((made.Style & WS_GROUP) != 0) {}

Control::~Control() {
    ForgetFocus(*this);
}

Control* Control::Of(const QWidget* widget) {
    Window* window = Window::Of(widget);
    if (window == nullptr || window->Kind() == WindowKind::kDialog) return nullptr;
    const Window* parent = window->Parent();  // controls stand in dialogs, and nothing else does
    return parent != nullptr && parent->Kind() == WindowKind::kDialog
               ? static_cast<Control*>(window)
               : nullptr;
}

void Control::Equip(QWidget* widget) {
    Adopt(widget);
    widget->setStyle(owner_.Widget()->style());
    widget->installEventFilter(owner_.Widget());
}

bool Control::TakesFocus() const {
    return Widget()->focusPolicy() != Qt::NoFocus && Widget()->isEnabled() && !Widget()->isHidden();
}

void Control::GiveFocus() {
    Widget()->setFocus(Qt::TabFocusReason);
}

void Control::Notify(int code) {
    owner_.Command(ControlId(), code, Handle());
}

}  // namespace platform
