/// Dialogs and controls as assistive programs see them: role, name, state, what stands in what.
/// Each looks its control up anew, for its widget may outlive it. For the user-interface thread
/// only.
#pragma once

#include <QAccessibleWidget>
#include <vector>

#include "platform/gui/controls/control_owner.h"

namespace platform {

/// What has controls in it: a dialog, or a group box by its place.
class AccessiblePlace : public QAccessibleWidget {
public:
    using QAccessibleWidget::QAccessibleWidget;
    [[nodiscard]] int childCount() const override;
    [[nodiscard]] QAccessibleInterface* child(int index) const override;
    int indexOfChild(const QAccessibleInterface* child) const override;

protected:
    [[nodiscard]] virtual std::vector<Control*> Members() const = 0;
};

class AccessibleDialog : public AccessiblePlace {
public:
    explicit AccessibleDialog(QWidget* frame) : AccessiblePlace(frame, QAccessible::Dialog) {}
    [[nodiscard]] QAccessible::State state() const override;

protected:
    [[nodiscard]] std::vector<Control*> Members() const override;
};

class AccessibleControl : public AccessiblePlace {
public:
    using Relations = QList<QPair<QAccessibleInterface*, QAccessible::Relation>>;

    using AccessiblePlace::AccessiblePlace;
    [[nodiscard]] bool isValid() const override { return Shown() != nullptr; }
    [[nodiscard]] QAccessibleInterface* parent() const override;
    [[nodiscard]] QString text(QAccessible::Text kind) const override;
    [[nodiscard]] Relations relations(QAccessible::Relation match) const override;

protected:
    [[nodiscard]] std::vector<Control*> Members() const override;
    /// The control; null when it is gone.
    [[nodiscard]] Control* Shown() const;
    /// Whether a person could work with it now: it is enabled, and no other window is in front.
    [[nodiscard]] bool IsInReach() const;
    [[nodiscard]] virtual QString Value() const { return {}; }
};

/// What assistive programs do to it the dialog's program hears of, as of a click.
class AccessibleButton : public AccessibleControl {
public:
    using AccessibleControl::AccessibleControl;
    [[nodiscard]] QAccessible::State state() const override;
    [[nodiscard]] QStringList actionNames() const override;
    void doAction(const QString& actionName) override;
};

class AccessibleUpDown : public AccessibleControl, public QAccessibleValueInterface {
public:
    explicit AccessibleUpDown(QWidget* face) : AccessibleControl(face, QAccessible::SpinBox) {}
    void* interface_cast(QAccessible::InterfaceType type) override;
    [[nodiscard]] QVariant currentValue() const override;
    void setCurrentValue(const QVariant& value) override;
    [[nodiscard]] QVariant maximumValue() const override;
    [[nodiscard]] QVariant minimumValue() const override;
    [[nodiscard]] QVariant minimumStepSize() const override { return 1; }

protected:
    [[nodiscard]] QString Value() const override { return currentValue().toString(); }
};

}  // namespace platform
