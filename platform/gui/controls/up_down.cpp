#include "platform/gui/controls/up_down.h"

#include <commctrl.h>

#include <QAccessible>
#include <QElapsedTimer>
#include <QKeyEvent>
#include <QLocale>
#include <QMouseEvent>
#include <QPainter>
#include <QStyle>
#include <QStyleOptionButton>
#include <QTimer>
#include <algorithm>

#include "platform/gui/controls/control_owner.h"
#include "platform/gui/controls/edit_control.h"

namespace platform {
namespace {

constexpr QChar kThousandsSeparator = u',';  // of the United States; may stand anywhere when read
constexpr int kWidthInBuddy = 16;            // pixels
constexpr int kRepeatDelay = 500;            // milliseconds
constexpr int kRepeatInterval = 50;          // milliseconds

/// How far one step goes once the arrow has been held for so many milliseconds.
struct Acceleration {
    qint64 held;
    int amount;
};
constexpr Acceleration kAccelerations[] = {{5000, 20}, {2000, 5}, {0, 1}};

}  // namespace

class UpDown::Face : public QWidget {
public:
    Face(UpDown& control, QWidget* parent) : QWidget(parent), control_(control) {
        // A click goes to the buddy; only keys may bring the focus to the arrows themselves.
        setFocusPolicy(control.IsTabStop() ? Qt::TabFocus : Qt::NoFocus);
        QObject::connect(&timer_, &QTimer::timeout, this, [this] { Repeat(); });
    }

protected:
    void mousePressEvent(QMouseEvent* event) override {
        if (event->button() != Qt::LeftButton) return;
        pressed_ = event->position().y() < height() / 2.0 ? 1 : -1;
        held_.start();
        update();
        if (control_.buddy_ != nullptr && control_.buddy_->TakesFocus()) {
            control_.buddy_->GiveFocus();
        }
        timer_.start(kRepeatDelay);
        control_.Step(pressed_);
        if (control_.buddy_ != nullptr) control_.buddy_->SelectAll();
    }

    void mouseReleaseEvent(QMouseEvent*) override { LetGo(); }

    void keyPressEvent(QKeyEvent* event) override {
        if (event->key() == Qt::Key_Up) control_.StepByKey(1);
        if (event->key() == Qt::Key_Down) control_.StepByKey(-1);
    }

    void changeEvent(QEvent* event) override {
        if (event->type() == QEvent::EnabledChange) LetGo();
    }

    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        const int half = height() / 2;
        DrawArrow(painter, QRect(0, 0, width(), half), 1);
        DrawArrow(painter, QRect(0, half, width(), height() - half), -1);
    }

private:
    void LetGo() {
        pressed_ = 0;
        timer_.stop();
        update();
    }

    void Repeat() {
        timer_.start(kRepeatInterval);
        const auto* speed =
            std::find_if(std::begin(kAccelerations), std::end(kAccelerations) - 1,
                         [this](const Acceleration& each) { return held_.elapsed() >= each.held; });
        control_.Step(pressed_ * speed->amount);
    }

    void DrawArrow(QPainter& painter, const QRect& place, int direction) {
        QStyleOptionButton option;
        option.initFrom(this);
        option.state.setFlag(QStyle::State_HasFocus, hasFocus());
        option.state.setFlag(QStyle::State_Sunken, pressed_ == direction);
        option.state.setFlag(QStyle::State_Raised, pressed_ != direction);
        option.rect = place;
        style()->drawControl(QStyle::CE_PushButtonBevel, &option, &painter, this);
        option.rect = place.adjusted(4, 2, -4, -2);
        style()->drawPrimitive(
            direction > 0 ? QStyle::PE_IndicatorArrowUp : QStyle::PE_IndicatorArrowDown, &option,
            &painter, this);
    }

    UpDown& control_;
    QTimer timer_;
    QElapsedTimer held_;
    int pressed_ = 0;
};

UpDown::UpDown(ControlOwner& owner, const ControlTemplate& made)
    : Control(WindowKind::kUpDown, owner, made), style_(made.Style) {
    Equip(new Face(*this, owner.Widget()));
}

void UpDown::FindBuddy() {
    if ((style_ & UDS_AUTOBUDDY) == 0) return;
    Control* before = Owner().Before(*this);
    if (before == nullptr || before->Kind() != WindowKind::kEdit) return;
    buddy_ = static_cast<EditControl*>(before);
    buddy_->SetUpDown(this);
    if ((style_ & UDS_ALIGNRIGHT) == 0) return;
    const QRect whole = buddy_->Widget()->geometry();
    buddy_->Place(whole.adjusted(0, 0, -kWidthInBuddy, 0));
    Place(QRect(whole.right() + 1 - kWidthInBuddy, whole.top(), kWidthInBuddy, whole.height()));
}

LRESULT UpDown::Receive(UINT message, WPARAM, LPARAM second) {
    if (message != UDM_SETRANGE) return 0;
    const auto packed = static_cast<DWORD_PTR>(second);
    highest_ = static_cast<SHORT>(LOWORD(packed));
    lowest_ = static_cast<SHORT>(HIWORD(packed));
    return 0;
}

QString UpDown::Written(int number) const {
    if ((style_ & UDS_NOTHOUSANDS) != 0) return QString::number(number);
    return QLocale(QLocale::English, QLocale::UnitedStates).toString(number);
}

void UpDown::StepByKey(int direction) {
    if ((style_ & UDS_ARROWKEYS) != 0 && Widget()->isEnabled()) Step(direction);
}

// Blanks before a number are passed over, what stands behind it makes it none.
int UpDown::Number() const {
    if (buddy_ == nullptr) return position_;
    const QString text = buddy_->Text().remove(kThousandsSeparator);
    bool isNumber = false;
    const int number = text.toInt(&isNumber);
    const bool isKnown = isNumber && !text.back().isSpace();
    return isKnown && number >= Lowest() && number <= Highest() ? number : position_;
}

void UpDown::Step(int amount) {
    MoveTo(Number() + (lowest_ <= highest_ ? amount : -amount));
}

void UpDown::MoveTo(int number) {
    if (buddy_ == nullptr || (style_ & UDS_SETBUDDYINT) == 0) return;
    position_ = Number();
    const int next = std::clamp(number, Lowest(), Highest());
    if (next == position_) return;
    position_ = next;
    buddy_->SetText(Written(next));
    QAccessibleValueChangeEvent changed(Widget(), next);
    QAccessible::updateAccessibility(&changed);
}

}  // namespace platform
