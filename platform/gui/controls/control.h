/// A control of a dialog. For the user-interface thread only.
#pragma once

#include "platform/gui/templates/dialog_template.h"
#include "platform/gui/windows/window.h"

class QKeyEvent;

namespace platform {

class ControlOwner;

class Control : public Window {
public:
    ~Control() override;

    /// The control that shows a widget; may be null.
    [[nodiscard]] static Control* Of(const QWidget* widget);

    [[nodiscard]] ControlOwner& Owner() const { return owner_; }
    [[nodiscard]] bool IsTabStop() const { return tabStop_; }
    [[nodiscard]] bool StartsGroup() const { return startsGroup_; }
    /// Whether the focus may be given to it.
    [[nodiscard]] bool TakesFocus() const;
    virtual void GiveFocus();

    /// Tells the control, and through it the program, that it has got or lost the focus.
    virtual void FocusChanged(bool) {}
    /// Whether a key is the control's own, before the dialog looks at it.
    [[nodiscard]] virtual bool WantsKey(const QKeyEvent&) const { return false; }
    /// Letters typed into it are its own, not mnemonics.
    [[nodiscard]] virtual bool TypesText() const { return false; }
    /// What a mnemonic or the dialog's default key does to a button, as a click would.
    virtual void Press() {}
    [[nodiscard]] virtual bool IsPushButton() const { return false; }
    [[nodiscard]] virtual bool IsRadioButton() const { return false; }

protected:
    Control(WindowKind kind, ControlOwner& owner, const ControlTemplate& made);
    /// Adopts the widget and gives it the look, the font and the keys of the dialog.
    void Equip(QWidget* widget);
    /// Tells the program, with a command, before it returns.
    void Notify(int code);
    void SetTabStop(bool tabStop) { tabStop_ = tabStop; }

private:
    ControlOwner& owner_;
    bool tabStop_;
    bool startsGroup_;
};

}  // namespace platform
