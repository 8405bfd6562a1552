#include "platform/gui/controls/button_control.h"

#include <QCheckBox>
#include <QPushButton>
#include <QRadioButton>

#include "platform/gui/controls/control_owner.h"

namespace platform {
namespace {

/// The whole of its rectangle answers the mouse, not its text alone.
template <typename Button>
class HitAnywhere : public Button {
public:
    using Button::Button;

protected:
    [[nodiscard]] bool hitButton(const QPoint& point) const override {
        return this->rect().contains(point);
    }
};

class RadioButton : public HitAnywhere<QRadioButton> {
public:
    explicit RadioButton(QWidget* parent) : HitAnywhere(parent) { setAutoExclusive(false); }

protected:
    void nextCheckState() override {}  // the control checks it, and clears the rest of its group
};

QAbstractButton* MakeFace(DWORD type, QWidget* parent) {
    if (type == BS_AUTOCHECKBOX) return new HitAnywhere<QCheckBox>(parent);
    if (type == BS_AUTORADIOBUTTON) return new RadioButton(parent);
    auto* button = new QPushButton(parent);
    button->setAutoDefault(false);
    return button;
}

}  // namespace

ButtonControl::ButtonControl(ControlOwner& owner, const ControlTemplate& made)
    : Control(WindowKind::kButton, owner, made),
      button_(MakeFace(made.Style & kButtonTypeMask, owner.Widget())),
      type_(made.Style & kButtonTypeMask) {
    Equip(button_);
    SetText(QString::fromStdU16String(made.Text));
    QObject::connect(button_, &QAbstractButton::clicked, button_, [this] { Clicked(); });
}

QString ButtonControl::Text() const {
    return button_->text();
}

void ButtonControl::SetText(const QString& text) {
    button_->setText(text);
    button_->setShortcut({});  // the dialog finds mnemonics itself, in the template's order
}

LRESULT ButtonControl::Receive(UINT message, WPARAM first, LPARAM) {
    if (message == BM_GETCHECK) return IsChecked() ? BST_CHECKED : BST_UNCHECKED;
    if (message == BM_SETCHECK) Check(first != BST_UNCHECKED);
    return 0;
}

void ButtonControl::FocusChanged(bool has) {
    if (IsPushButton()) Owner().ShowDefaultButton(has ? this : nullptr);
}

void ButtonControl::Press() {
    if (button_->isEnabled()) button_->click();
}

bool ButtonControl::IsPushButton() const {
    return type_ == BS_PUSHBUTTON || type_ == BS_DEFPUSHBUTTON;
}

bool ButtonControl::IsRadioButton() const {
    return type_ == BS_AUTORADIOBUTTON;
}

bool ButtonControl::IsDefault() const {
    return type_ == BS_DEFPUSHBUTTON;
}

bool ButtonControl::IsChecked() const {
    return button_->isChecked();
}

void ButtonControl::Check(bool checked) {
    if (IsPushButton()) return;
    button_->setChecked(checked);
    if (IsRadioButton()) SetTabStop(checked);
}

void ButtonControl::Clicked() {
    if (IsRadioButton()) {
        for (Control* other : Owner().GroupOf(*this)) {
            if (other != this && other->IsRadioButton()) {
                static_cast<ButtonControl*>(other)->Check(false);
            }
        }
        Check(true);
    }
    Notify(BN_CLICKED);
}

}  // namespace platform
