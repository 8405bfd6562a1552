/// Single-line edits.
#pragma once

#include "platform/gui/controls/control.h"

namespace platform {

class UpDown;

class EditControl : public Control {
public:
    EditControl(ControlOwner& owner, const ControlTemplate& made);

    [[nodiscard]] QString Text() const override;
    /// Limits and digits-only do not hold for a program; it is told of its own change.
    void SetText(const QString& text) override;
    LRESULT Receive(UINT message, WPARAM first, LPARAM second) override;
    void FocusChanged(bool has) override;
    [[nodiscard]] bool TypesText() const override { return true; }

    /// The up-down that the arrow keys step.
    void SetUpDown(UpDown* upDown) { upDown_ = upDown; }
    void SelectAll();
    /// What a user types: digits alone where only they are taken.
    void Type(const QString& text);
    /// What a user types or pastes: its first line, cut to the limit.
    void Insert(const QString& given);
    /// Selects the whole text as well, as the keys that move the focus do.
    void GiveFocus() override;

private:
    class Face;
    void NotifyChange();
    Face* face_;
    UpDown* upDown_ = nullptr;
    bool digitsOnly_;
    std::size_t limit_;  ///< WCHARs that typing may reach
};

}  // namespace platform
