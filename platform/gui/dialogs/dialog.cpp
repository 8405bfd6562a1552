#include "platform/gui/dialogs/dialog.h"

#include <QApplication>
#include <QEventLoop>
#include <QPointer>
#include <QPushButton>

#include "platform/base/fail.h"
#include "platform/gui/accessibility/accessible_factory.h"
#include "platform/gui/controls/button_control.h"
#include "platform/gui/controls/control_factory.h"
#include "platform/gui/controls/focus.h"
#include "platform/gui/controls/up_down.h"
#include "platform/gui/dialogs/dialog_frame.h"
#include "platform/gui/dialogs/dialog_keyboard.h"
#include "platform/gui/dialogs/scrolled_frame.h"
#include "platform/gui/windows/active_window.h"
#include "platform/gui/windows/application.h"
#include "platform/user/user.h"

namespace platform {

Dialog::Dialog(const DialogTemplate& made, Window* owner, DLGPROC procedure)
    : ControlOwner(WindowKind::kDialog, owner, 0),
      procedure_(procedure),
      frame_(new Frame(*this, owner == nullptr ? nullptr : owner->Widget(),
                       (made.ExtendedStyle & WS_EX_CONTEXTHELP) != 0)) {
    Adopt(frame_);
    frame_->setStyle(DialogStyle());
    frame_->setWindowTitle(QString::fromStdU16String(made.Caption));
}

std::unique_ptr<Dialog> Dialog::Make(const DialogTemplate& made, Window* owner, DLGPROC procedure) {
    EnsureApplication();
    FollowFocus();
    DescribeDialogsToReaders();
    const DialogUnits units(made);
    std::unique_ptr<Dialog> dialog(new Dialog(made, owner, procedure));
    dialog->frame_->setFont(units.Font());
    dialog->frame_->setFixedSize(units.ToPixels(0, 0, made.Width, made.Height).size());
    if (ScrolledFrame::IsNeededFor(*dialog->frame_)) {
        dialog->scroller_ = std::make_unique<ScrolledFrame>(*dialog->frame_);
    }
    if (!dialog->MakeControls(made, units)) return nullptr;
    dialog->ShowDefaultButton(nullptr);
    return dialog;
}

bool Dialog::MakeControls(const DialogTemplate& made, const DialogUnits& units) {
    for (const ControlTemplate& each : made.Controls) {
        auto control =
            MakeControl(*this, each, units.ToPixels(each.X, each.Y, each.Width, each.Height));
        if (control == nullptr) return false;
        Control& added = *control;
        Add(std::move(control));
        if (added.Kind() == WindowKind::kUpDown) static_cast<UpDown&>(added).FindBuddy();
    }
    return true;
}

Dialog::~Dialog() {
    Receive(WM_DESTROY, 0, 0);
    goingAway_ = true;
}

Dialog* Dialog::Require(HWND handle) {
    Window* window = RequireWindow(handle);
    if (window != nullptr && window->Kind() != WindowKind::kDialog) {
        return Fail<Dialog*>(ERROR_INVALID_WINDOW_HANDLE);
    }
    return static_cast<Dialog*>(window);
}

INT_PTR Dialog::Run(LPARAM parameter) {
    const Control* first = FirstTabStop(*this);
    const HWND defaultFocus = first == nullptr ? nullptr : first->Handle();
    const bool takesDefaultFocus =
        Receive(WM_INITDIALOG, reinterpret_cast<WPARAM>(defaultFocus), parameter) != 0;
    if (ended_) return result_;
    const QPointer<QWidget> before = QApplication::activeWindow();
    const FocusAway ownerLosesFocus;
    // The program's own choice holds only when it says that it made one.
    if (takesDefaultFocus || frame_->focusWidget() == nullptr) {
        MoveToTabStop(*this, nullptr, true);
    }
    Show();
    if (!ended_) CurrentUser().WorkInDialog(Handle());
    if (!ended_) Cancel();
    if (!ended_) End(-1);  // a program that does not take no for an answer
    if (before != nullptr) Activate(*before);
    return result_;
}

void Dialog::Show() {
    frame_->window()->show();
    paintRequested_ = true;  // below, once
    // Offscreen and in tests nobody else makes a window the active one.
    Activate(*frame_->window());
    paintRequested_ = false;
    if (!ended_) Receive(WM_PAINT, 0, 0);
}

void Dialog::End(INT_PTR result) {
    if (ended_) return;
    result_ = result;
    if (FocusedControl() != nullptr && &FocusedControl()->Owner() == this) ReportFocus(nullptr);
    ended_ = true;
    frame_->window()->hide();
    if (loop_ != nullptr) loop_->quit();
}

void Dialog::WaitForEnd() {
    if (ended_) return;
    QEventLoop loop;
    loop_ = &loop;
    loop.exec();
    loop_ = nullptr;
}

void Dialog::Command(int controlId, int code, HWND control) {
    if (goingAway_) return;
    Receive(WM_COMMAND, MAKEWPARAM(controlId, code), reinterpret_cast<LPARAM>(control));
}

void Dialog::PressDefault() {
    Control* focused = FocusedControl();
    if (focused != nullptr && focused->IsPushButton()) return focused->Press();
    for (const auto& each : Controls()) {
        if (!each->IsPushButton() || !static_cast<ButtonControl&>(*each).IsDefault()) continue;
        if (each->Widget()->isEnabled()) Command(each->ControlId(), BN_CLICKED, each->Handle());
        return;
    }
    Command(IDOK, BN_CLICKED, nullptr);
}

void Dialog::Cancel() {
    const Control* button = Find(IDCANCEL);
    if (button != nullptr && !button->Widget()->isEnabled()) return;
    Command(IDCANCEL, BN_CLICKED, button == nullptr ? nullptr : button->Handle());
}

void Dialog::ShowDefaultButton(Control* button) {
    for (const auto& each : Controls()) {
        if (!each->IsPushButton()) continue;
        const auto& known = static_cast<const ButtonControl&>(*each);
        const bool shown = button == nullptr ? known.IsDefault() : button == &known;
        static_cast<QPushButton*>(each->Widget())->setDefault(shown);
    }
}

bool Dialog::HandleKey(Control* focused, const QKeyEvent& event) {
    return HandleDialogKey(*this, focused, event);
}

QString Dialog::Text() const {
    return frame_->windowTitle();
}

void Dialog::SetText(const QString& text) {
    frame_->setWindowTitle(text);
}

LRESULT Dialog::Receive(UINT message, WPARAM first, LPARAM second) {
    const LRESULT answer = procedure_ == nullptr ? 0 : procedure_(Handle(), message, first, second);
    if (answer == 0 && message == WM_NEXTDLGCTL) MoveFocus(first, LOWORD(second) != 0);
    return answer;
}

void Dialog::MoveFocus(WPARAM target, bool isControl) {
    if (!isControl) return MoveToTabStop(*this, FocusedControl(), target == 0);
    for (const auto& each : Controls()) {
        if (reinterpret_cast<WPARAM>(each->Handle()) == target && each->TakesFocus())
            each->GiveFocus();
    }
}

void Dialog::Place(const QRect& place) {
    frame_->setFixedSize(place.size());
    frame_->window()->move(place.topLeft());
}

void Dialog::AskHelp(int controlId) {
    const QPoint mouse = QCursor::pos();
    HELPINFO request = {};
    request.cbSize = sizeof(request);
    request.iContextType = HELPINFO_WINDOW;
    request.iCtrlId = controlId;
    const Control* control = Find(controlId);
    request.hItemHandle = control == nullptr ? Handle() : control->Handle();
    request.MousePos = {mouse.x(), mouse.y()};
    Receive(WM_HELP, 0, reinterpret_cast<LPARAM>(&request));
}

void Dialog::AwaitHelpClick() {
    frame_->AwaitHelpClick();
}

void Dialog::RequestPaint() {
    if (paintRequested_ || ended_) return;
    paintRequested_ = true;
    QMetaObject::invokeMethod(
        frame_,
        [this] {
            paintRequested_ = false;
            if (!ended_) Receive(WM_PAINT, 0, 0);
        },
        Qt::QueuedConnection);
}

}  // namespace platform
