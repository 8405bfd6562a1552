#include <windows.h>

#include <QApplication>
#include <QScreen>
#include <algorithm>

#include "platform/base/fail.h"
#include "platform/faults/failure_points.h"
#include "platform/gui/controls/control.h"
#include "platform/gui/controls/focus.h"
#include "platform/gui/windows/application.h"
#include "platform/gui/windows/window.h"
#include "platform/gui/windows/window_text.h"

using platform::Control;
using platform::Window;

namespace {

/// Passes the failure point and finds the window; null with the last error set.
Window* WindowForCall(const char* point, HWND window) {
    if (const auto error = platform::InjectedFailure(point)) return platform::Fail<Window*>(*error);
    return platform::RequireWindow(window);
}

QRect ScreenArea() {
    platform::EnsureApplication();
    const QScreen* screen = QGuiApplication::primaryScreen();
    return screen == nullptr ? QRect() : screen->geometry();
}

QRect PlaceOnScreen(const Window& window) {
    if (window.Widget() == nullptr) return ScreenArea();
    if (window.Widget()->isWindow()) return window.Widget()->frameGeometry();
    return {window.ClientOrigin(), window.ClientSize()};
}

RECT ToRect(const QRect& area) {
    return {area.left(), area.top(), area.left() + area.width(), area.top() + area.height()};
}

HWND FocusHandle() {
    const Control* focused = platform::FocusedControl();
    return focused == nullptr ? nullptr : focused->Handle();
}

}  // namespace

LRESULT WINAPI SendMessageW(HWND window, UINT message, WPARAM first, LPARAM second) try {
    Window* found = platform::RequireWindow(window);
    return found == nullptr ? 0 : found->Receive(message, first, second);
} catch (...) {
    return platform::FailCaught<LRESULT>();
}

BOOL WINAPI EnableWindow(HWND window, BOOL enable) try {
    const Window* found = platform::RequireWindow(window);
    if (found == nullptr || found->Widget() == nullptr) return FALSE;
    QWidget* widget = found->Widget();
    const BOOL wasDisabled = widget->isEnabled() ? FALSE : TRUE;
    // Who hears that the focus has gone finds the window disabled already.
    const platform::FocusReportHeld disabledFirst;
    // Left to itself, the widget would pass the focus on to the next one.
    if (enable == FALSE && widget->window()->focusWidget() == widget) widget->clearFocus();
    widget->setEnabled(enable != FALSE);
    return wasDisabled;
} catch (...) {
    return platform::FailCaught();
}

BOOL WINAPI IsWindowEnabled(HWND window) {
    const Window* found = platform::RequireWindow(window);
    if (found == nullptr) return FALSE;
    return found->Widget() == nullptr || found->Widget()->isEnabled() ? TRUE : FALSE;
}

HWND WINAPI SetFocus(HWND window) try {
    const HWND before = FocusHandle();
    if (window == nullptr) {
        if (QWidget* focused = QApplication::focusWidget()) focused->clearFocus();
        return before;
    }
    const Window* found = WindowForCall("SetFocus", window);
    if (found == nullptr || found->Widget() == nullptr || !found->Widget()->isEnabled()) {
        return nullptr;
    }
    found->Widget()->setFocus(Qt::OtherFocusReason);
    return before;
} catch (...) {
    return platform::FailCaught<HWND>();
}

HWND WINAPI GetFocus() {
    return FocusHandle();
}

int WINAPI GetWindowTextW(HWND window, LPWSTR text, int capacity) try {
    if (text != nullptr && capacity > 0) text[0] = 0;
    const Window* found = WindowForCall("GetWindowTextW", window);
    return found == nullptr ? 0 : platform::CopyOut(found->Text(), text, capacity);
} catch (...) {
    return platform::FailCaught<int>();
}

int WINAPI GetWindowTextLengthW(HWND window) try {
    const Window* found = WindowForCall("GetWindowTextLengthW", window);
    return found == nullptr ? 0 : static_cast<int>(found->Text().size());
} catch (...) {
    return platform::FailCaught<int>();
}

HWND WINAPI GetParent(HWND window) {
    const Window* found = WindowForCall("GetParent", window);
    if (found == nullptr || found->Parent() == nullptr) return nullptr;
    return found->Parent()->Handle();
}

HWND WINAPI GetDesktopWindow() try { return Window::Desktop().Handle(); } catch (...) {
    return platform::FailCaught<HWND>();
}

BOOL WINAPI GetClientRect(HWND window, RECT* rectangle) try {
    const Window* found = WindowForCall("GetClientRect", window);
    if (found == nullptr) return FALSE;
    const QSize size = found->Widget() == nullptr ? ScreenArea().size() : found->ClientSize();
    *rectangle = {0, 0, size.width(), size.height()};
    return TRUE;
} catch (...) {
    return platform::FailCaught();
}

BOOL WINAPI GetWindowRect(HWND window, RECT* rectangle) try {
    const Window* found = WindowForCall("GetWindowRect", window);
    if (found == nullptr) return FALSE;
    *rectangle = ToRect(PlaceOnScreen(*found));
    return TRUE;
} catch (...) {
    return platform::FailCaught();
}

BOOL WINAPI ClientToScreen(HWND window, POINT* point) {
    const Window* found = WindowForCall("ClientToScreen", window);
    if (found == nullptr) return FALSE;
    const QPoint origin = found->ClientOrigin();
    point->x += origin.x();
    point->y += origin.y();
    return TRUE;
}

BOOL WINAPI MoveWindow(HWND window, int x, int y, int width, int height, BOOL repaint) try {
    Window* found = WindowForCall("MoveWindow", window);
    if (found == nullptr || found->Widget() == nullptr) return FALSE;
    found->Place(QRect(x, y, std::max(width, 0), std::max(height, 0)));
    if (repaint != FALSE) found->Widget()->update();
    return TRUE;
} catch (...) {
    return platform::FailCaught();
}
