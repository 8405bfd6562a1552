/// Drop-down lists as assistive programs see them: the closed face, in it the list, in it the
/// items, which are there whether the list is open or not. For the user-interface thread only.
#pragma once

#include "platform/gui/accessibility/accessible_control.h"

class QListWidget;

namespace platform {

class DropDownList;

class AccessibleDropDown : public AccessibleControl {
public:
    explicit AccessibleDropDown(QWidget* face) : AccessibleControl(face, QAccessible::ComboBox) {}
    [[nodiscard]] int childCount() const override { return child(0) == nullptr ? 0 : 1; }
    [[nodiscard]] QAccessibleInterface* child(int index) const override;
    int indexOfChild(const QAccessibleInterface* child) const override;
    [[nodiscard]] QAccessible::State state() const override;

protected:
    [[nodiscard]] QString Value() const override;
};

/// The list whose items a widget shows when it is open; null for any other widget. Also while both
/// are being made, for the widget tells of itself before the list knows it.
[[nodiscard]] DropDownList* ListShownBy(const QWidget* items);

class AccessibleItems : public QAccessibleWidget {
public:
    explicit AccessibleItems(QWidget* items) : QAccessibleWidget(items, QAccessible::List) {}
    [[nodiscard]] bool isValid() const override { return ListShownBy(widget()) != nullptr; }
    [[nodiscard]] QAccessibleInterface* parent() const override;
    [[nodiscard]] int childCount() const override;
    [[nodiscard]] QAccessibleInterface* child(int index) const override;
    int indexOfChild(const QAccessibleInterface* child) const override;
    [[nodiscard]] QString text(QAccessible::Text kind) const override;

protected:
    ~AccessibleItems() override;

private:
    mutable std::vector<QAccessible::Id> items_;  ///< made as they are asked for
};

/// The item at one place of a list, whichever it is at the time.
class AccessibleItem : public QAccessibleInterface {
public:
    AccessibleItem(const QListWidget& items, int index) : items_(items), index_(index) {}
    [[nodiscard]] bool isValid() const override { return List() != nullptr; }
    [[nodiscard]] QObject* object() const override { return nullptr; }
    [[nodiscard]] QWindow* window() const override;
    [[nodiscard]] QAccessibleInterface* parent() const override;
    [[nodiscard]] QAccessibleInterface* child(int) const override { return nullptr; }
    [[nodiscard]] QAccessibleInterface* childAt(int, int) const override { return nullptr; }
    [[nodiscard]] int childCount() const override { return 0; }
    int indexOfChild(const QAccessibleInterface*) const override { return -1; }
    [[nodiscard]] QString text(QAccessible::Text kind) const override;
    void setText(QAccessible::Text, const QString&) override {}  // nobody renames an item
    [[nodiscard]] QRect rect() const override;
    [[nodiscard]] QAccessible::Role role() const override { return QAccessible::ListItem; }
    [[nodiscard]] QAccessible::State state() const override;

private:
    /// Null when the list is gone or has become shorter.
    [[nodiscard]] const DropDownList* List() const;

    const QListWidget& items_;
    int index_;
};

}  // namespace platform
