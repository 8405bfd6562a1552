#include "platform/gui/windows/active_window.h"

#include <QApplication>
#include <QDeadlineTimer>
#include <QThread>
#include <QWidget>
#include <chrono>

namespace platform {

void Activate(QWidget& window) {
    constexpr auto kWindowSystemAlone = QEventLoop::ExcludeUserInputEvents |
                                        QEventLoop::ExcludeSocketNotifiers |
                                        QEventLoop::X11ExcludeTimers;
    if (!window.isVisible() || QApplication::activeWindow() == &window) return;
    window.activateWindow();
    const QDeadlineTimer patience(std::chrono::milliseconds(200));
    QCoreApplication::processEvents(kWindowSystemAlone);
    while (QApplication::activeWindow() != &window && !patience.hasExpired()) {
        QThread::msleep(1);
        QCoreApplication::processEvents(kWindowSystemAlone);
    }
}

}  // namespace platform
