#include "platform/gui/windows/window.h"

#include <QAccessible>
#include <unordered_map>

#include "platform/base/fail.h"
#include "platform/base/handles.h"
#include "platform/faults/live_objects.h"
#include "platform/gui/windows/fine_image.h"

namespace platform {
namespace {

std::unordered_map<HWND, Window*>& Handles() {
    static std::unordered_map<HWND, Window*> handles;
    return handles;
}

std::unordered_map<const QWidget*, Window*>& Widgets() {
    static std::unordered_map<const QWidget*, Window*> widgets;
    return widgets;
}

}  // namespace

Window::Window(WindowKind kind, Window* parent, int controlId)
    : kind_(kind),
      parent_(parent),
      controlId_(controlId),
      handle_(reinterpret_cast<HWND>(NextHandleValue())) {
    Handles().emplace(handle_, this);
    if (kind_ != WindowKind::kDesktop) CountObject("window", 1);
}

Window::~Window() {
    Handles().erase(handle_);
    Widgets().erase(widget_);
    if (kind_ != WindowKind::kOwner) delete widget_;
    if (kind_ != WindowKind::kDesktop) CountObject("window", -1);
}

void Window::Adopt(QWidget* widget) {
    widget_ = widget;
    Widgets().emplace(widget, this);
}

Window* Window::From(HWND handle) {
    const auto found = Handles().find(handle);
    return found == Handles().end() ? nullptr : found->second;
}

Window* Window::Of(const QWidget* widget) {
    for (; widget != nullptr; widget = widget->parentWidget()) {
        const auto found = Widgets().find(widget);
        if (found != Widgets().end()) return found->second;
        if (widget->isWindow()) return nullptr;
    }
    return nullptr;
}

Window& Window::Desktop() {
    struct DesktopWindow : Window {
        DesktopWindow() : Window(WindowKind::kDesktop, nullptr, 0) {}
    };
    static auto* const desktop = new DesktopWindow;  // as long as the process, like the real one
    return *desktop;
}

QSize Window::ClientSize() const {
    return widget_ == nullptr ? QSize(0, 0) : widget_->size();
}

QPoint Window::ClientOrigin() const {
    return widget_ == nullptr ? QPoint(0, 0) : widget_->mapToGlobal(QPoint(0, 0));
}

QFont Window::Font() const {
    return widget_ == nullptr ? QFont() : widget_->font();
}

bool Window::BackingFits() const {
    return !backing_.isNull() && backing_.devicePixelRatio() == FinenessOf(widget_) &&
           LogicalSize(backing_) == ClientSize().expandedTo(QSize(1, 1));
}

QImage& Window::Backing() {
    if (!BackingFits()) {
        backing_ = FineImage(ClientSize().expandedTo(QSize(1, 1)), FinenessOf(widget_));
        backing_.fill(widget_ == nullptr ? Qt::white : widget_->palette().color(QPalette::Window));
        drawn_ = false;
    }
    return backing_;
}

void Window::ShowBacking() {
    if (widget_ == nullptr) return;
    drawn_ = true;
    widget_->setAttribute(Qt::WA_OpaquePaintEvent);
    if (widget_->isVisible()) widget_->repaint();
}

bool Window::HasDrawing() const {
    return drawn_ && BackingFits();
}

void Window::SetDrawnText(const QString& text) {
    if (widget_ == nullptr || text == drawnText_) return;
    drawnText_ = text;
    QAccessibleEvent changed(widget_, QAccessible::DescriptionChanged);
    QAccessible::updateAccessibility(&changed);
}

void Window::Place(const QRect& place) {
    if (widget_ == nullptr) return;
    widget_->setGeometry(place);
    if (drawn_ && !HasDrawing()) widget_->setAttribute(Qt::WA_OpaquePaintEvent, false);
}

Window* RequireWindow(HWND handle) {
    Window* window = Window::From(handle);
    return window == nullptr ? Fail<Window*>(ERROR_INVALID_WINDOW_HANDLE) : window;
}

}  // namespace platform
