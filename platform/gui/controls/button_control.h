/// Push buttons, check boxes and radio buttons.
#pragma once

#include "platform/gui/controls/control.h"

class QAbstractButton;

namespace platform {

inline constexpr DWORD kButtonTypeMask = 0x0F;

class ButtonControl : public Control {
public:
    ButtonControl(ControlOwner& owner, const ControlTemplate& made);

    [[nodiscard]] QString Text() const override;
    void SetText(const QString& text) override;
    LRESULT Receive(UINT message, WPARAM first, LPARAM second) override;
    void FocusChanged(bool has) override;
    void Press() override;
    [[nodiscard]] bool IsPushButton() const override;
    [[nodiscard]] bool IsRadioButton() const override;
    [[nodiscard]] bool IsDefault() const;
    [[nodiscard]] bool IsChecked() const;
    /// Sets the state and tells nobody; a radio button that is not checked is no tab stop.
    void Check(bool checked);

private:
    void Clicked();
    QAbstractButton* button_;
    DWORD type_;
};

}  // namespace platform
