/// Edits as assistive programs see them. What they put in goes through the control's rules for what
/// a user types. For the user-interface thread only.
#pragma once

#include "platform/gui/accessibility/accessible_control.h"

class QLineEdit;

namespace platform {

/// Offsets from outside are cut to the text.
class AccessibleEdit : public AccessibleControl,
                       public QAccessibleTextInterface,
                       public QAccessibleEditableTextInterface {
public:
    explicit AccessibleEdit(QWidget* face) : AccessibleControl(face, QAccessible::EditableText) {}
    void* interface_cast(QAccessible::InterfaceType type) override;
    [[nodiscard]] QAccessible::State state() const override;

    using AccessibleControl::text;
    [[nodiscard]] QString text(int start, int end) const override;
    [[nodiscard]] int characterCount() const override;
    [[nodiscard]] int cursorPosition() const override;
    void setCursorPosition(int position) override;
    void selection(int index, int* start, int* end) const override;
    [[nodiscard]] int selectionCount() const override;
    void addSelection(int start, int end) override { setSelection(0, start, end); }
    void removeSelection(int index) override;
    void setSelection(int index, int start, int end) override;
    [[nodiscard]] QRect characterRect(int offset) const override;
    [[nodiscard]] int offsetAtPoint(const QPoint& point) const override;
    void scrollToSubstring(int start, int end) override;
    QString attributes(int offset, int* start, int* end) const override;

    void deleteText(int start, int end) override { replaceText(start, end, {}); }
    void insertText(int offset, const QString& text) override { replaceText(offset, offset, text); }
    void replaceText(int start, int end, const QString& text) override;

protected:
    [[nodiscard]] QString Value() const override;

private:
    [[nodiscard]] QLineEdit& Line() const;
    [[nodiscard]] int Within(int offset) const;
};

}  // namespace platform
