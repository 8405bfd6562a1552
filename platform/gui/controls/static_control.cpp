#include "platform/gui/controls/static_control.h"

#include <winresrc.h>

#include <QPainter>
#include <algorithm>

#include "platform/gui/controls/control_owner.h"

namespace platform {
namespace {

constexpr DWORD kStaticTypeMask = 0x1F;
constexpr int kTitleIndent = 8;  // pixels from the frame's left side
constexpr int kTitleGap = 3;     // pixels of the top line left out on each side of the title

bool IsFrame(DWORD style) {
    const DWORD type = style & kStaticTypeMask;
    return type == SS_BLACKFRAME || type == SS_WHITEFRAME;
}

/// Paints in the control's stead.
class Face : public QWidget {
public:
    Face(StaticControl& control, QWidget* parent) : QWidget(parent), control_(control) {}

protected:
    void DrawText(QPainter& painter, const QRect& place) {
        const auto group = isEnabled() ? QPalette::Active : QPalette::Disabled;
        painter.setPen(palette().color(group, QPalette::WindowText));
        painter.drawText(place, Qt::AlignLeft | Qt::TextShowMnemonic, control_.Text());
    }

    StaticControl& control_;
};

class StaticFace : public Face {
public:
    StaticFace(StaticControl& control, QWidget* parent, DWORD type)
        : Face(control, parent), type_(type) {}

protected:
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        if (control_.HasDrawing()) {
            painter.drawImage(0, 0, control_.Backing());
        } else if (IsFrame(type_)) {
            painter.setPen(type_ == SS_BLACKFRAME ? Qt::black : Qt::white);
            painter.drawRect(rect().adjusted(0, 0, -1, -1));
        } else {
            DrawText(painter, rect());
        }
    }

private:
    DWORD type_;
};

class GroupBoxFace : public Face {
public:
    GroupBoxFace(StaticControl& control, QWidget* parent) : Face(control, parent) {
        // The controls inside a group are the box's siblings; their clicks are theirs.
        setAttribute(Qt::WA_TransparentForMouseEvents);
    }

protected:
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        const int textHeight = fontMetrics().height();
        const int textWidth = fontMetrics().size(Qt::TextShowMnemonic, control_.Text()).width() + 1;
        const QRect title(kTitleIndent, 0, textWidth, textHeight);
        painter.save();
        if (!control_.Text().isEmpty()) {
            const QRect gap = title.adjusted(-kTitleGap, 0, kTitleGap, 0);
            painter.setClipRegion(QRegion(rect()) - QRegion(gap));
        }
        painter.setPen(palette().color(QPalette::Mid));
        painter.drawRoundedRect(rect().adjusted(0, textHeight / 2, -1, -1), 2, 2);
        painter.restore();
        DrawText(painter, title);
    }
};

}  // namespace

StaticControl::StaticControl(ControlOwner& owner, const ControlTemplate& made, QWidget* face,
                             StaticLook look)
    : Control(WindowKind::kStatic, owner, made),
      text_(QString::fromStdU16String(made.Text)),
      look_(look) {
    Equip(face);
}

StaticControl::StaticControl(ControlOwner& owner, const ControlTemplate& made)
    : StaticControl(owner, made,
                    new StaticFace(*this, owner.Widget(), made.Style & kStaticTypeMask),
                    IsFrame(made.Style) ? StaticLook::kFrame : StaticLook::kLabel) {}

void StaticControl::Place(const QRect& place) {
    // Templates are measured with the platform's own face; a label must not lose its last letter
    // to one that is a little wider.
    const int text = Widget()->fontMetrics().size(Qt::TextShowMnemonic, text_).width();
    Control::Place(QRect(place.topLeft(), QSize(std::max(place.width(), text), place.height())));
}

void StaticControl::SetText(const QString& text) {
    text_ = text;
    Widget()->update();
}

GroupBox::GroupBox(ControlOwner& owner, const ControlTemplate& made)
    : StaticControl(owner, made, new GroupBoxFace(*this, owner.Widget()), StaticLook::kGroupBox) {}

}  // namespace platform
