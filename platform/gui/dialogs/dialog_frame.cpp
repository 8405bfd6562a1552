#include "platform/gui/dialogs/dialog_frame.h"

#include <QApplication>
#include <QKeyEvent>
#include <QPainter>
#include <QStyle>
#include <QWindow>

#include "platform/gui/dialogs/dialog_keyboard.h"

namespace platform {

Dialog::Frame::Frame(Dialog& dialog, QWidget* owner, bool withHelpMark)
    : QWidget(owner, Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint |
                         Qt::WindowSystemMenuHint | Qt::WindowCloseButtonHint),
      dialog_(dialog) {
    setWindowFlag(Qt::WindowContextHelpButtonHint, withHelpMark);
    setWindowModality(Qt::ApplicationModal);
    setFocusPolicy(Qt::NoFocus);
}

Dialog::Frame::~Frame() {
    StopAwaiting();
}

void Dialog::Frame::paintEvent(QPaintEvent*) {
    if (dialog_.HasDrawing()) QPainter(this).drawImage(0, 0, dialog_.Backing());
}

void Dialog::Frame::resizeEvent(QResizeEvent*) {
    dialog_.RequestPaint();
}

void Dialog::Frame::showEvent(QShowEvent*) {
    // What another window covered or the screen lost shows up as an exposure.
    window()->windowHandle()->installEventFilter(this);
}

void Dialog::Frame::closeEvent(QCloseEvent* event) {
    event->ignore();
    dialog_.Cancel();
}

void Dialog::Frame::keyPressEvent(QKeyEvent* event) {
    HandleDialogKey(dialog_, nullptr, *event);
}

bool Dialog::Frame::event(QEvent* event) {
    if (event->type() == QEvent::EnterWhatsThisMode) {
        AwaitHelpClick();
        return true;
    }
    return QWidget::event(event);
}

bool Dialog::Frame::eventFilter(QObject* watched, QEvent* event) {
    if (awaitsHelpClick_ && TakeHelpClick(*event)) return true;
    if (const auto* screenWindow = qobject_cast<QWindow*>(watched)) {
        if (event->type() == QEvent::Expose && screenWindow->isExposed()) dialog_.RequestPaint();
        return false;
    }
    if (event->type() != QEvent::KeyPress || !watched->isWidgetType()) return false;
    Control* control = Control::Of(static_cast<QWidget*>(watched));
    return control != nullptr && &control->Owner() == &dialog_ &&
           HandleDialogKey(dialog_, control, *static_cast<QKeyEvent*>(event));
}

void Dialog::Frame::AwaitHelpClick() {
    if (awaitsHelpClick_) return;
    awaitsHelpClick_ = true;
    QApplication::setOverrideCursor(Qt::WhatsThisCursor);
    qApp->installEventFilter(this);  // disabled controls do not get clicks of their own
}

void Dialog::Frame::StopAwaiting() {
    if (!awaitsHelpClick_) return;
    awaitsHelpClick_ = false;
    qApp->removeEventFilter(this);
    QApplication::restoreOverrideCursor();
}

bool Dialog::Frame::TakeHelpClick(const QEvent& event) {
    if (event.type() == QEvent::KeyPress) {
        StopAwaiting();
        return static_cast<const QKeyEvent&>(event).key() == Qt::Key_Escape;
    }
    if (event.type() != QEvent::MouseButtonPress) return false;
    StopAwaiting();
    const auto& click = static_cast<const QMouseEvent&>(event);
    const QPoint place = mapFromGlobal(click.globalPosition().toPoint());
    const Control* hit = nullptr;
    for (const auto& control : dialog_.Controls()) {
        const QWidget* face = control->Widget();
        if (face->isHidden() || !face->geometry().contains(place)) continue;
        // Of controls that lie over each other the smallest is meant, not the box around them.
        if (hit == nullptr ||
            face->width() * face->height() <= hit->Widget()->width() * hit->Widget()->height()) {
            hit = control.get();
        }
    }
    dialog_.AskHelp(hit == nullptr ? 0 : hit->ControlId());
    return true;
}

}  // namespace platform
