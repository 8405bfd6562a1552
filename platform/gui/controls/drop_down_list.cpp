#include "platform/gui/controls/drop_down_list.h"

#include <QAccessible>
#include <QFrame>
#include <QKeyEvent>
#include <algorithm>

#include "platform/faults/failure_points.h"
#include "platform/gui/controls/control_owner.h"
#include "platform/gui/controls/drop_down_list_face.h"

namespace platform {
namespace {

constexpr int kFrameOfClosedList = 8;  // pixels above and below the line of text, together
constexpr int kItemsOfPage = 8;        // how far the page keys go

int typingPause = 1000;  // milliseconds

const WCHAR* Wide(const QString& text) {
    return reinterpret_cast<const WCHAR*>(text.utf16());
}

bool IsTyped(const QString& text) {
    return !text.isEmpty() && text.front().category() != QChar::Other_Control;
}

QString TextAt(LPARAM address) {
    return QString::fromUtf16(reinterpret_cast<const char16_t*>(address));
}

}  // namespace

DropDownList::DropDownList(ControlOwner& owner, const ControlTemplate& made)
    : Control(WindowKind::kList, owner, made), sorted_((made.Style & CBS_SORT) != 0) {
    Equip(new Face(*this, owner.Widget()));
}

void DropDownList::SetTypingPause(int milliseconds) {
    typingPause = milliseconds;
}

DropDownList::~DropDownList() {
    open_ = false;
}

QString DropDownList::Text() const {
    return selection_ < 0 ? QString() : ItemText(selection_);
}

void DropDownList::Place(const QRect& place) {
    const int closedHeight = Widget()->fontMetrics().height() + kFrameOfClosedList;
    droppedHeight_ = std::max(place.height() - closedHeight, 0);
    Control::Place(QRect(place.topLeft(), QSize(place.width(), closedHeight)));
}

LRESULT DropDownList::Receive(UINT message, WPARAM first, LPARAM second) {
    switch (message) {
        case CB_ADDSTRING:
            if (InjectedFailure("CB_ADDSTRING")) return CB_ERRSPACE;
            return second == 0 ? CB_ERR : Add(TextAt(second));
        case CB_DELETESTRING:
            return Delete(first);
        case CB_GETCOUNT:
            return Count();
        case CB_GETCURSEL:
            return selection_;
        case CB_SETCURSEL:
            Select(Has(first) ? static_cast<int>(first) : -1);
            return selection_;
        case CB_FINDSTRINGEXACT:
            return second == 0 ? CB_ERR : FindExact(TextAt(second), static_cast<int>(first));
        case CB_SETDROPPEDWIDTH:
            droppedWidth_ = static_cast<int>(std::min<WPARAM>(first, 0x7FFF));
            return DroppedWidth();
        case CB_GETITEMDATA:
            return Has(first) ? items_[first].value : CB_ERR;
        case CB_SETITEMDATA:
            if (!Has(first)) return CB_ERR;
            items_[first].value = second;
            return 0;
        default:
            return 0;
    }
}

int DropDownList::Add(const QString& text) {
    const auto isBefore = [](const QString& one, const QString& other) {
        return lstrcmpiW(Wide(one), Wide(other)) < 0;
    };
    const auto place =
        sorted_ ? std::ranges::upper_bound(items_, text, isBefore, &Item::text) : items_.end();
    const int index = static_cast<int>(place - items_.begin());
    items_.insert(place, Item{text});
    if (index <= selection_) ++selection_;
    return index;
}

LRESULT DropDownList::Delete(WPARAM index) {
    if (!Has(index)) return CB_ERR;
    const int deleted = static_cast<int>(index);
    items_.erase(items_.begin() + deleted);
    if (deleted == selection_) {
        Select(-1);
    } else if (deleted < selection_) {
        --selection_;
    }
    return Count();
}

void DropDownList::Select(int index) {
    selection_ = index;
    Widget()->update();
    QAccessibleValueChangeEvent changed(Widget(), Text());
    QAccessible::updateAccessibility(&changed);
    if (open_ && popup_ != nullptr) popup_->ShowSelection();
}

int DropDownList::FindExact(const QString& text, int after) const {
    const int begin = after >= 0 && after < Count() ? after + 1 : 0;
    for (int step = 0; step < Count(); ++step) {
        const int index = (begin + step) % Count();
        if (lstrcmpiW(Wide(text), Wide(ItemText(index))) == 0) return index;
    }
    return CB_ERR;
}

int DropDownList::DroppedWidth() const {
    return std::max(droppedWidth_, Widget()->width());
}

void DropDownList::FocusChanged(bool has) {
    Widget()->update();
    sinceLetter_.invalidate();
    if (has) return Notify(CBN_SETFOCUS);
    if (open_) {
        Close(false);
    } else {
        Notify(CBN_SELENDCANCEL);
    }
    Notify(CBN_KILLFOCUS);
}

void DropDownList::Open() {
    if (open_) return;
    open_ = true;
    Notify(CBN_DROPDOWN);
    if (!open_ || !Widget()->isVisible()) return;
    MakePopup();
    popup_->Drop(DroppedWidth(), droppedHeight_);
}

void DropDownList::Close(bool accepted) {
    if (!open_) return;
    open_ = false;
    if (popup_ != nullptr) popup_->hide();
    if (Widget()->hasFocus()) {  // assistive programs had it with the items
        QAccessibleEvent back(Widget(), QAccessible::Focus);
        QAccessible::updateAccessibility(&back);
    }
    Notify(accepted ? CBN_SELENDOK : CBN_SELENDCANCEL);
    Notify(CBN_CLOSEUP);
}

void DropDownList::Pick(int index) {
    Select(index);
    Close(true);
    Notify(CBN_SELCHANGE);
}

QListWidget* DropDownList::ItemsWidget() {
    MakePopup();
    return popup_ == nullptr ? nullptr : popup_->Items();
}

void DropDownList::MakePopup() {
    // A new widget tells assistive programs of itself, which may ask for it before it is there.
    if (popup_ != nullptr || makesPopup_ || Widget() == nullptr) return;
    makesPopup_ = true;
    popup_ = new Popup(*this, Widget());
    makesPopup_ = false;
}

QWidget* DropDownList::ItemPlace(int index, QRect* place) const {
    return popup_ == nullptr ? nullptr : popup_->ItemPlace(index, place);
}

bool DropDownList::WantsKey(const QKeyEvent& event) const {
    const int key = event.key();
    if (key == Qt::Key_F4) return true;
    if (event.modifiers().testFlag(Qt::AltModifier)) {
        return key == Qt::Key_Up || key == Qt::Key_Down;
    }
    return open_ && (key == Qt::Key_Return || key == Qt::Key_Enter || key == Qt::Key_Escape);
}

void DropDownList::HandleKey(QKeyEvent& event) {
    if (WantsKey(event)) {
        const bool confirmed = event.key() == Qt::Key_Return || event.key() == Qt::Key_Enter;
        return open_ ? Close(confirmed) : Open();
    }
    const int target = TargetOfKey(event);
    if (target < 0) return;
    if (!IsTyped(event.text())) sinceLetter_.invalidate();
    MoveTo(target);
}

int DropDownList::TargetOfKey(const QKeyEvent& event) {
    if (items_.empty()) return -1;
    const int last = Count() - 1;
    switch (event.key()) {
        case Qt::Key_Down:
        case Qt::Key_Right:
            return std::min(selection_ + 1, last);
        case Qt::Key_Up:
        case Qt::Key_Left:
            return std::max(selection_ - 1, 0);
        case Qt::Key_PageDown:
            return std::min(selection_ + kItemsOfPage, last);
        case Qt::Key_PageUp:
            return std::max(selection_ - kItemsOfPage, 0);
        case Qt::Key_Home:
            return 0;
        case Qt::Key_End:
            return last;
        default:
            return IsTyped(event.text()) ? FindTyped(event.text()) : -1;
    }
}

int DropDownList::FindTyped(const QString& letter) {
    const bool goesOn =
        typingPause > 0 && sinceLetter_.isValid() && !sinceLetter_.hasExpired(typingPause);
    typed_ = goesOn ? typed_ + letter : letter;
    sinceLetter_.start();
    if (typed_ == letter) return FindBeginning(letter, selection_ + 1);
    const int found = FindBeginning(typed_, selection_);
    if (found >= 0) return found == selection_ ? -1 : found;
    const bool oneLetter =
        typed_.count(letter, Qt::CaseInsensitive) * letter.size() == typed_.size();
    return oneLetter ? FindBeginning(letter, selection_ + 1) : -1;  // it leads on each time
}

int DropDownList::FindBeginning(const QString& text, int from) const {
    for (int step = 0; step < Count(); ++step) {
        const int index = (std::max(from, 0) + step) % Count();
        if (ItemText(index).startsWith(text, Qt::CaseInsensitive)) return index;
    }
    return -1;
}

void DropDownList::MoveTo(int index) {
    Select(index);
    if (!open_) Notify(CBN_SELENDOK);
    Notify(CBN_SELCHANGE);
}

}  // namespace platform
