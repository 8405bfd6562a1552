#include "platform/gui/controls/drop_down_list_face.h"

#include <QKeyEvent>
#include <QListWidget>
#include <QPainter>
#include <QScreen>
#include <QScrollBar>
#include <QStyle>
#include <QStyleOptionComboBox>
#include <QVBoxLayout>
#include <algorithm>

#include "platform/gui/controls/control_owner.h"

namespace platform {
namespace {

constexpr int kWheelStep = 120;  // eighths of a degree of one notch
constexpr int kItemGap = 2;      // pixels between the lines of two items
constexpr int kItemMargin = 8;   // pixels around an item's text, both sides together

}  // namespace

DropDownList::Face::Face(DropDownList& list, QWidget* parent) : QWidget(parent), list_(list) {
    setFocusPolicy(Qt::StrongFocus);
}

void DropDownList::Face::paintEvent(QPaintEvent*) {
    QStyleOptionComboBox option;
    option.initFrom(this);
    option.currentText = list_.Text();
    option.state.setFlag(QStyle::State_On, list_.IsOpen());
    QPainter painter(this);
    style()->drawComplexControl(QStyle::CC_ComboBox, &option, &painter, this);
    style()->drawControl(QStyle::CE_ComboBoxLabel, &option, &painter, this);
}

void DropDownList::Face::mousePressEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton) return;
    if (list_.IsOpen()) return list_.Close(false);
    list_.Open();
}

void DropDownList::Face::keyPressEvent(QKeyEvent* event) {
    list_.HandleKey(*event);
}

void DropDownList::Face::wheelEvent(QWheelEvent* event) {
    if (!hasFocus() || list_.items_.empty()) return;
    turned_ += event->angleDelta().y();
    const int notches = turned_ / kWheelStep;
    turned_ %= kWheelStep;
    const int target = std::clamp(list_.selection_ - notches, 0, list_.Count() - 1);
    if (notches != 0) list_.MoveTo(target);
}

DropDownList::Popup::Popup(DropDownList& list, QWidget* face)
    : QFrame(face, Qt::Popup), list_(list), items_(new QListWidget(this)) {
    // The window system replays the click that closed a popup; lists swallow it.
    setAttribute(Qt::WA_NoMouseReplay);
    setStyle(face->style());
    items_->setStyle(face->style());
    setFrameStyle(QFrame::Box | QFrame::Plain);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(items_);
    items_->setFrameStyle(QFrame::NoFrame);
    items_->setFocusPolicy(Qt::NoFocus);
    items_->setUniformItemSizes(true);
    items_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    items_->setMouseTracking(true);
    items_->viewport()->installEventFilter(this);
}

void DropDownList::Popup::Drop(int width, int height) {
    items_->setFont(list_.Font());  // windows of their own do not take over their parent's
    items_->clear();
    const int row = items_->fontMetrics().height() + kItemGap;
    for (const Item& item : list_.items_) {
        auto* shown = new QListWidgetItem(item.text, items_);
        shown->setSizeHint(QSize(0, row));
    }
    const int rows = std::clamp((height - 2) / row, 1, std::max(list_.Count(), 1));
    const bool scrolls = rows < list_.Count();
    const int bar = scrolls ? items_->verticalScrollBar()->sizeHint().width() : 0;
    const int whole = std::max(width, list_.Widget()->width() - kItemMargin - bar);
    setGeometry(PlaceOnScreen(whole + kItemMargin + bar, rows * row + 2));
    ShowSelection();
    show();
    list_.Widget()->update();
}

QRect DropDownList::Popup::PlaceOnScreen(int width, int height) const {
    const QWidget* face = list_.Widget();
    const QRect room = face->screen()->availableGeometry();
    const QPoint below = face->mapToGlobal(QPoint(0, face->height()));
    QRect place(below, QSize(width, height));
    if (place.bottom() > room.bottom()) place.moveBottom(below.y() - face->height() - 1);
    if (place.right() > room.right()) place.moveRight(std::max(room.right(), room.left() + width));
    return place;
}

void DropDownList::Popup::ShowSelection() {
    items_->setCurrentRow(list_.selection_);
}

QWidget* DropDownList::Popup::ItemPlace(int index, QRect* place) const {
    items_->scrollToItem(items_->item(index));
    *place = items_->visualItemRect(items_->item(index));
    return items_->viewport();
}

void DropDownList::Popup::keyPressEvent(QKeyEvent* event) {
    if (!list_.Owner().HandleKey(&list_, *event)) list_.HandleKey(*event);
}

void DropDownList::Popup::hideEvent(QHideEvent* event) {
    QFrame::hideEvent(event);
    list_.Widget()->update();
    list_.Close(false);
}

bool DropDownList::Popup::eventFilter(QObject*, QEvent* event) {
    if (event->type() == QEvent::MouseMove) {
        const auto* item = items_->itemAt(static_cast<QMouseEvent*>(event)->position().toPoint());
        if (item != nullptr) items_->setCurrentRow(items_->row(item));
        return true;
    }
    if (event->type() == QEvent::MouseButtonPress) return true;
    if (event->type() != QEvent::MouseButtonRelease) return false;
    const auto* item = items_->itemAt(static_cast<QMouseEvent*>(event)->position().toPoint());
    if (item != nullptr) list_.Pick(items_->row(item));
    return true;
}

}  // namespace platform
