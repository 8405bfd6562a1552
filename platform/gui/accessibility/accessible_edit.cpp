#include "platform/gui/accessibility/accessible_edit.h"

#include <QLineEdit>
#include <algorithm>

#include "platform/gui/controls/edit_control.h"

namespace platform {

void* AccessibleEdit::interface_cast(QAccessible::InterfaceType type) {
    if (type == QAccessible::TextInterface) return static_cast<QAccessibleTextInterface*>(this);
    if (type == QAccessible::EditableTextInterface) {
        return static_cast<QAccessibleEditableTextInterface*>(this);
    }
    return AccessibleControl::interface_cast(type);
}

QAccessible::State AccessibleEdit::state() const {
    QAccessible::State state = AccessibleControl::state();
    state.editable = true;
    state.selectableText = true;
    return state;
}

QLineEdit& AccessibleEdit::Line() const {
    return static_cast<QLineEdit&>(*widget());
}

int AccessibleEdit::Within(int offset) const {
    return std::clamp(offset, 0, characterCount());
}

QString AccessibleEdit::Value() const {
    return Line().text();
}

QString AccessibleEdit::text(int start, int end) const {
    return Line().text().mid(Within(start), std::max(Within(end) - Within(start), 0));
}

int AccessibleEdit::characterCount() const {
    return static_cast<int>(Line().text().size());
}

int AccessibleEdit::cursorPosition() const {
    return Line().cursorPosition();
}

void AccessibleEdit::setCursorPosition(int position) {
    Line().setCursorPosition(Within(position));
}

void AccessibleEdit::selection(int index, int* start, int* end) const {
    const bool known = index == 0 && Line().hasSelectedText();
    *start = known ? Line().selectionStart() : 0;
    *end = known ? Line().selectionEnd() : 0;
}

int AccessibleEdit::selectionCount() const {
    return Line().hasSelectedText() ? 1 : 0;
}

void AccessibleEdit::removeSelection(int index) {
    if (index == 0) Line().deselect();
}

void AccessibleEdit::setSelection(int index, int start, int end) {
    if (index == 0) Line().setSelection(Within(start), Within(end) - Within(start));
}

QRect AccessibleEdit::characterRect(int offset) const {
    const QString text = Line().text();
    const QFontMetrics metrics = Line().fontMetrics();
    const auto advance = [&](int length) { return metrics.horizontalAdvance(text.left(length)); };
    const int first = Within(offset);
    // The line tells where its cursor is, however far it has scrolled.
    QRect place = Line().inputMethodQuery(Qt::ImCursorRectangle).toRect();
    place.moveLeft(place.center().x() + advance(first) - advance(cursorPosition()));
    place.setWidth(advance(Within(first + 1)) - advance(first));
    return place.translated(Line().mapToGlobal(QPoint(0, 0)));
}

int AccessibleEdit::offsetAtPoint(const QPoint& point) const {
    return Line().cursorPositionAt(Line().mapFromGlobal(point));
}

void AccessibleEdit::scrollToSubstring(int start, int end) {
    setCursorPosition(end);
    setCursorPosition(start);
}

QString AccessibleEdit::attributes(int, int* start, int* end) const {
    *start = 0;
    *end = characterCount();
    return {};
}

void AccessibleEdit::replaceText(int start, int end, const QString& text) {
    if (!IsInReach()) return;
    const int cursor = Within(start);
    setCursorPosition(cursor);
    if (end > start) setSelection(0, start, end);
    if (text.isEmpty() && end > start) Line().del();
    static_cast<EditControl*>(Shown())->Type(text);
}

}  // namespace platform
