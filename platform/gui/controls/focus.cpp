#include "platform/gui/controls/focus.h"

#include <QApplication>
#include <utility>

#include "platform/gui/controls/control_owner.h"

namespace platform {
namespace {

Control* focusedControl = nullptr;
bool reportHeld = false;
bool movedWhileHeld = false;

/// The control behind a widget; null for one that cannot have the focus reported any more.
Control* ControlOf(const QWidget* widget) {
    Control* control = Control::Of(widget);
    return control == nullptr || control->Owner().HasEnded() ? nullptr : control;
}

}  // namespace

void FollowFocus() {
    static bool following = false;
    if (following) return;
    following = true;
    QObject::connect(qApp, &QApplication::focusChanged, [](QWidget*, QWidget* now) {
        movedWhileHeld = movedWhileHeld || reportHeld;
        if (!reportHeld) ReportFocus(ControlOf(now));
    });
}

Control* FocusedControl() {
    return focusedControl;
}

void ReportFocus(Control* now) {
    Control* const before = focusedControl;
    if (before == now) return;
    focusedControl = now;
    if (before != nullptr) before->FocusChanged(false);
    // The program may have moved the focus on when it heard of the loss.
    if (now != nullptr && focusedControl == now) now->FocusChanged(true);
}

void ForgetFocus(const Control& control) {
    if (focusedControl == &control) focusedControl = nullptr;
}

FocusReportHeld::FocusReportHeld() {
    reportHeld = true;
}

FocusReportHeld::~FocusReportHeld() {
    reportHeld = false;
    if (std::exchange(movedWhileHeld, false)) ReportFocus(ControlOf(QApplication::focusWidget()));
}

FocusAway::~FocusAway() {
    ReportFocus(ControlOf(QApplication::focusWidget()));
}

}  // namespace platform
