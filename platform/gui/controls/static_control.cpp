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

QColor TextColor(const QWidget& face) {
    const auto group = face.isEnabled() ? QPalette::Active : QPalette::Disabled;
    return face.palette().color(group, QPalette::WindowText);
}

}  // namespace

class StaticControl::Face : public QWidget {
public:
    Face(StaticControl& control, QWidget* parent) : QWidget(parent), control_(control) {}

protected:
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        if (control_.HasDrawing()) {
            painter.drawImage(0, 0, control_.Backing());
        } else if (control_.type_ == SS_BLACKFRAME || control_.type_ == SS_WHITEFRAME) {
            painter.setPen(control_.type_ == SS_BLACKFRAME ? Qt::black : Qt::white);
            painter.drawRect(rect().adjusted(0, 0, -1, -1));
        } else {
            painter.setPen(TextColor(*this));
            painter.drawText(rect(), Qt::AlignLeft | Qt::TextShowMnemonic, control_.text_);
        }
    }

private:
    StaticControl& control_;
};

StaticControl::StaticControl(ControlOwner& owner, const ControlTemplate& made)
    : Control(WindowKind::kStatic, owner, made),
      text_(QString::fromStdU16String(made.Text)),
      type_(made.Style & kStaticTypeMask) {
    Equip(new Face(*this, owner.Widget()));
}

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

class GroupBox::Face : public QWidget {
public:
    Face(GroupBox& box, QWidget* parent) : QWidget(parent), box_(box) {}

protected:
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        const int textHeight = fontMetrics().height();
        const QRect title(kTitleIndent, 0, TitleWidth(), textHeight);
        painter.save();
        if (!box_.text_.isEmpty()) {
            const QRect gap = title.adjusted(-kTitleGap, 0, kTitleGap, 0);
            painter.setClipRegion(QRegion(rect()) - QRegion(gap));
        }
        painter.setPen(palette().color(QPalette::Mid));
        painter.drawRoundedRect(rect().adjusted(0, textHeight / 2, -1, -1), 2, 2);
        painter.restore();
        painter.setPen(TextColor(*this));
        painter.drawText(title, Qt::AlignLeft | Qt::TextShowMnemonic, box_.text_);
    }

private:
    int TitleWidth() const {
        return fontMetrics().size(Qt::TextShowMnemonic, box_.text_).width() + 1;
    }

    GroupBox& box_;
};

GroupBox::GroupBox(ControlOwner& owner, const ControlTemplate& made)
    : Control(WindowKind::kStatic, owner, made), text_(QString::fromStdU16String(made.Text)) {
    auto* face = new Face(*this, owner.Widget());
    // The controls inside a group are the box's siblings; their clicks are theirs.
    face->setAttribute(Qt::WA_TransparentForMouseEvents);
    Equip(face);
}

void GroupBox::SetText(const QString& text) {
    text_ = text;
    Widget()->update();
}

}  // namespace platform
