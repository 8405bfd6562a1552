/// A dialog as its controls know it. For the user-interface thread only.
#pragma once

#include <memory>
#include <vector>

#include "platform/gui/controls/control.h"

namespace platform {

class ControlOwner : public Window {
public:
    [[nodiscard]] virtual bool HasEnded() const = 0;
    /// Sends WM_COMMAND.
    virtual void Command(int controlId, int code, HWND control) = 0;
    /// Shows a push button as the one that Enter presses; null: the template's.
    virtual void ShowDefaultButton(Control* button) = 0;
    /// A key pressed in a control (null: in none). \return whether the key is used up.
    virtual bool HandleKey(Control* focused, const QKeyEvent& event) = 0;

    [[nodiscard]] Control* Find(int controlId) const;  ///< null when there is none
    [[nodiscard]] const std::vector<std::unique_ptr<Control>>& Controls() const {
        return controls_;
    }
    /// The control before another in the template; null for the first.
    [[nodiscard]] Control* Before(const Control& control) const;
    /// The group that a control belongs to, in the template's order.
    [[nodiscard]] std::vector<Control*> GroupOf(const Control& control) const;

protected:
    using Window::Window;
    ~ControlOwner() override;
    void Add(std::unique_ptr<Control> control) { controls_.push_back(std::move(control)); }

private:
    std::vector<std::unique_ptr<Control>> controls_;
};

}  // namespace platform
