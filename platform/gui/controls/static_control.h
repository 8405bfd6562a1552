/// Labels, frames and group boxes.
#pragma once

#include "platform/gui/controls/control.h"

namespace platform {

enum class StaticLook { kLabel, kFrame, kGroupBox };

/// A label, or a frame, which shows what is drawn into it.
class StaticControl : public Control {
public:
    StaticControl(ControlOwner& owner, const ControlTemplate& made);
    [[nodiscard]] QString Text() const override { return text_; }
    [[nodiscard]] StaticLook Look() const { return look_; }
    void SetText(const QString& text) override;
    void Place(const QRect& place) override;

protected:
    StaticControl(ControlOwner& owner, const ControlTemplate& made, QWidget* face, StaticLook look);

private:
    QString text_;
    StaticLook look_;
};

/// A frame with a title in its top line.
class GroupBox : public StaticControl {
public:
    GroupBox(ControlOwner& owner, const ControlTemplate& made);
    // NOLINTNEXTLINE(bugprone-parent-virtual-call): a title is cut, a label is never
    void Place(const QRect& place) override { Control::Place(place); }
};

}  // namespace platform
