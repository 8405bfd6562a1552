/// Labels, frames and group boxes.
#pragma once

#include "platform/gui/controls/control.h"

namespace platform {

/// A label, or a frame, which shows what is drawn into it.
class StaticControl : public Control {
public:
    StaticControl(ControlOwner& owner, const ControlTemplate& made);
    QString Text() const override { return text_; }
    void SetText(const QString& text) override;
    void Place(const QRect& place) override;

private:
    class Face;
    QString text_;
    DWORD type_;
};

/// A frame with a title in its top line.
class GroupBox : public Control {
public:
    GroupBox(ControlOwner& owner, const ControlTemplate& made);
    QString Text() const override { return text_; }
    void SetText(const QString& text) override;

private:
    class Face;
    QString text_;
};

}  // namespace platform
