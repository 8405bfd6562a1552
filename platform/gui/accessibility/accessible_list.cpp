#include "platform/gui/accessibility/accessible_list.h"

#include <QListWidget>
#include <algorithm>

#include "platform/gui/accessibility/control_names.h"
#include "platform/gui/controls/drop_down_list.h"

namespace platform {

QAccessibleInterface* AccessibleDropDown::child(int index) const {
    if (index != 0 || !isValid()) return nullptr;
    return QAccessible::queryAccessibleInterface(
        static_cast<DropDownList*>(Shown())->ItemsWidget());
}

int AccessibleDropDown::indexOfChild(const QAccessibleInterface* sought) const {
    return sought != nullptr && sought == child(0) ? 0 : -1;
}

QAccessible::State AccessibleDropDown::state() const {
    QAccessible::State state = AccessibleControl::state();
    const Control* control = Shown();
    state.hasPopup = true;
    state.expandable = true;
    state.expanded = control != nullptr && static_cast<const DropDownList*>(control)->IsOpen();
    state.collapsed = !state.expanded;
    return state;
}

QString AccessibleDropDown::Value() const {
    return Shown()->Text();
}

DropDownList* ListShownBy(const QWidget* items) {
    const QWidget* popup = items == nullptr ? nullptr : items->parentWidget();
    if (popup == nullptr || popup->windowType() != Qt::Popup) return nullptr;
    Control* control = Control::Of(popup->parentWidget());
    if (control == nullptr || control->Kind() != WindowKind::kList) return nullptr;
    auto* list = static_cast<DropDownList*>(control);
    return list->Widget() == popup->parentWidget() ? list : nullptr;
}

AccessibleItems::~AccessibleItems() {
    for (const QAccessible::Id item : items_) QAccessible::deleteAccessibleInterface(item);
}

QAccessibleInterface* AccessibleItems::parent() const {
    const DropDownList* list = ListShownBy(widget());
    return list == nullptr ? nullptr : QAccessible::queryAccessibleInterface(list->Widget());
}

int AccessibleItems::childCount() const {
    const DropDownList* list = ListShownBy(widget());
    return list == nullptr ? 0 : list->Count();
}

QAccessibleInterface* AccessibleItems::child(int index) const {
    if (index < 0 || index >= childCount()) return nullptr;
    while (static_cast<int>(items_.size()) <= index) {
        const int next = static_cast<int>(items_.size());
        items_.push_back(QAccessible::registerAccessibleInterface(
            new AccessibleItem(static_cast<const QListWidget&>(*widget()), next)));
    }
    return QAccessible::accessibleInterface(items_[static_cast<std::size_t>(index)]);
}

int AccessibleItems::indexOfChild(const QAccessibleInterface* child) const {
    for (int i = 0; i < static_cast<int>(items_.size()); ++i) {
        if (QAccessible::accessibleInterface(items_[static_cast<std::size_t>(i)]) == child)
            return i;
    }
    return -1;
}

QString AccessibleItems::text(QAccessible::Text kind) const {
    const DropDownList* list = ListShownBy(widget());
    if (list == nullptr || kind != QAccessible::Name) return {};
    return NameOf(*list);
}

const DropDownList* AccessibleItem::List() const {
    const DropDownList* list = ListShownBy(&items_);
    return list == nullptr || index_ >= list->Count() ? nullptr : list;
}

QWindow* AccessibleItem::window() const {
    return items_.window()->windowHandle();
}

QAccessibleInterface* AccessibleItem::parent() const {
    return QAccessible::queryAccessibleInterface(const_cast<QListWidget*>(&items_));
}

QString AccessibleItem::text(QAccessible::Text kind) const {
    const DropDownList* list = List();
    return list == nullptr || kind != QAccessible::Name ? QString() : list->ItemText(index_);
}

QRect AccessibleItem::rect() const {
    if (!items_.isVisible() || items_.item(index_) == nullptr) return {};
    const QRect place = items_.visualItemRect(items_.item(index_));
    return place.translated(items_.viewport()->mapToGlobal(QPoint(0, 0)));
}

QAccessible::State AccessibleItem::state() const {
    QAccessible::State state;
    const DropDownList* list = List();
    state.invalid = list == nullptr;
    if (list == nullptr) return state;
    state.selectable = true;
    state.selected = index_ == list->Selection();
    state.focusable = true;
    state.focused = state.selected && list->IsOpen();
    state.invisible = !list->IsOpen();
    state.disabled = !list->Widget()->isEnabled();
    return state;
}

}  // namespace platform
