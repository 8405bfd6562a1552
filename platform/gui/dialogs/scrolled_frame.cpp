#include "platform/gui/dialogs/scrolled_frame.h"

#include <QApplication>
#include <QScreen>
#include <QScrollBar>

namespace platform {
namespace {

constexpr QSize kDecoration(8, 32);  // pixels that the window system may add: borders and caption

QSize RoomFor(const QWidget& frame) {
    return frame.screen()->availableSize() - kDecoration;
}

bool Fits(const QSize& size, const QSize& room) {
    return size.width() <= room.width() && size.height() <= room.height();
}

}  // namespace

bool ScrolledFrame::IsNeededFor(const QWidget& frame) {
    return !Fits(frame.size(), RoomFor(frame));
}

ScrolledFrame::ScrolledFrame(QWidget& frame) : QScrollArea(frame.parentWidget()) {
    const QSize room = RoomFor(frame);
    setWindowFlags(frame.windowFlags());
    setWindowModality(frame.windowModality());
    setWindowTitle(frame.windowTitle());
    connect(&frame, &QWidget::windowTitleChanged, this, &QWidget::setWindowTitle);
    setStyle(frame.style());
    setFrameShape(QFrame::NoFrame);
    setFocusPolicy(Qt::NoFocus);
    setMaximumSize(frame.size());
    const QSize bars(verticalScrollBar()->sizeHint().width(),
                     horizontalScrollBar()->sizeHint().height());
    resize((frame.size() + bars).boundedTo(room));
    setWidget(&frame);
    connect(qApp, &QApplication::focusChanged, this, [this](QWidget*, QWidget* now) {
        if (now != nullptr && widget()->isAncestorOf(now)) ensureWidgetVisible(now);
    });
}

ScrolledFrame::~ScrolledFrame() {
    takeWidget();
}

// What concerns the window is the dialog's business.
bool ScrolledFrame::event(QEvent* event) {
    switch (event->type()) {
        case QEvent::Close:
        case QEvent::KeyPress:
        case QEvent::EnterWhatsThisMode:
            return QCoreApplication::sendEvent(widget(), event);
        default:
            return QScrollArea::event(event);
    }
}

}  // namespace platform
