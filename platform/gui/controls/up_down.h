/// Up-downs: a pair of arrows that step the number in a buddy edit.
#pragma once

#include <algorithm>

#include "platform/gui/controls/control.h"

namespace platform {

class EditControl;

class UpDown : public Control {
public:
    UpDown(ControlOwner& owner, const ControlTemplate& made);

    LRESULT Receive(UINT message, WPARAM first, LPARAM second) override;
    /// Takes the control before this one in the dialog as its buddy, if it is an edit and the style
    /// asks for it, and moves into its right end.
    void FindBuddy();
    /// One step up (+1) or down (-1) by an arrow key; nothing when disabled or not of that style.
    void StepByKey(int direction);
    [[nodiscard]] int Lowest() const { return std::min(lowest_, highest_); }
    [[nodiscard]] int Highest() const { return std::max(lowest_, highest_); }
    /// The buddy's number when it is one within the range, else the last that was.
    [[nodiscard]] int Number() const;
    /// Writes a number, cut to the range, into the buddy, as steps to it would.
    void MoveTo(int number);

private:
    class Face;
    void Step(int amount);
    [[nodiscard]] QString Written(int number) const;

    DWORD style_;
    EditControl* buddy_ = nullptr;
    int position_ = 0;  ///< the last number that was within the range
    int lowest_ = 100;  ///< the range of an up-down that was given none is turned round
    int highest_ = 0;
};

}  // namespace platform
