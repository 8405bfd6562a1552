#include "platform/gui/drawing/device_context.h"

#include <QPainter>
#include <algorithm>
#include <cstdint>
#include <utility>

#include "platform/faults/failure_points.h"
#include "platform/gui/windows/fine_image.h"
#include "platform/gui/windows/window.h"
#include "platform/spooler/printer_page.h"

namespace platform {
namespace {

constexpr int kPrinterDotsPerInch = 600;

/// One direction of a copy, cut to both images. In 64 bits: callers pass any 32-bit values.
struct CopySpan {
    std::int64_t to;
    std::int64_t from;
    std::int64_t length;

    void CutTo(int toLimit, int fromLimit) {
        const std::int64_t before = std::max({std::int64_t{0}, -to, -from});
        to += before;
        from += before;
        length = std::min({length - before, toLimit - to, fromLimit - from});
    }
};

void CopyPixels(QImage& target, QImage& source, CopySpan columns, CopySpan rows) {
    const QSize targetSize = LogicalSize(target);
    const QSize sourceSize = LogicalSize(source);
    columns.CutTo(targetSize.width(), sourceSize.width());
    rows.CutTo(targetSize.height(), sourceSize.height());
    if (columns.length <= 0 || rows.length <= 0) return;
    const QSize size(static_cast<int>(columns.length), static_cast<int>(rows.length));
    const QPoint from(static_cast<int>(columns.from), static_cast<int>(rows.from));
    const QPoint to(static_cast<int>(columns.to), static_cast<int>(rows.to));
    QRect part = FinePixels(source, QRect(from, size));
    QImage copied = PixelView(source);
    if (&target == &source) {
        copied = copied.copy(part);
        part.moveTo(0, 0);
    }
    QImage pixels = PixelView(target);
    QPainter painter(&pixels);
    painter.setCompositionMode(QPainter::CompositionMode_Source);
    painter.drawImage(FinePixels(target, QRect(to, size)), copied, part);
}

/// The part of a rectangle (right and bottom outside) that lies in an image.
QRect PartInside(const QImage& image, const RECT& rectangle) {
    const QSize size = LogicalSize(image);
    const QPoint first(std::max(rectangle.left, 0), std::max(rectangle.top, 0));
    const QPoint outside(std::clamp(rectangle.right, 0, size.width()),
                         std::clamp(rectangle.bottom, 0, size.height()));
    return QRect(first, outside - QPoint(1, 1));
}

void FillPixels(QImage& image, const QRect& area, const QColor& color) {
    QImage pixels = PixelView(image);
    QPainter(&pixels).fillRect(FinePixels(image, area), color);
}

/// Device units, rounded to nearest, of a length in tenths of a millimetre.
LONG PrinterDots(LONG length) {
    constexpr std::int64_t kTenthsPerInch = 254;
    const std::int64_t dots =
        (std::int64_t{length} * kPrinterDotsPerInch + kTenthsPerInch / 2) / kTenthsPerInch;
    return static_cast<LONG>(std::clamp<std::int64_t>(dots, 0, INT32_MAX));
}

/// Exchanges what is selected, and keeps count of it. \return the object before.
template <typename Object>
HGDIOBJ Exchange(Object*& selected, GraphicsObject& next) {
    --selected->selections;
    ++next.selections;
    return std::exchange(selected, static_cast<Object*>(&next))->Handle();
}

HDC HandleOf(DeviceContext* context) {
    return static_cast<HDC>(context->Handle());
}

HDC MakeWindowContext(HWND window) {
    if (RequireWindow(window) == nullptr) return nullptr;
    auto* context = new DeviceContext(DeviceContext::Surface::kWindow);
    context->window = window;
    return HandleOf(context);
}

}  // namespace

QColor ColorOf(COLORREF color) {
    return QColor(GetRValue(color), GetGValue(color), GetBValue(color));
}

DeviceContext::DeviceContext(Surface where)
    : GraphicsObject(kKind, Lifetime::kCounted),
      surface(where),
      bitmap(&StockBitmap()),
      font(&StockFont()),
      brush(&StockWhiteBrush()) {
    ++bitmap->selections;
    ++font->selections;
    ++brush->selections;
}

DeviceContext::~DeviceContext() {
    --bitmap->selections;
    --font->selections;
    --brush->selections;
}

QImage* DeviceContext::Pixels() {
    if (surface == Surface::kMemory) return &bitmap->pixels;
    if (surface != Surface::kWindow) return nullptr;
    Window* target = Window::From(window);
    return target == nullptr ? nullptr : &target->Backing();
}

qreal DeviceContext::Fineness() {
    const QImage* pixels = Pixels();
    return pixels == nullptr ? 1.0 : pixels->devicePixelRatio();
}

QString DeviceContext::Words() const {
    if (surface == Surface::kMemory) return bitmap->words;
    const Window* target = surface == Surface::kWindow ? Window::From(window) : nullptr;
    return target == nullptr ? QString() : target->DrawnText();
}

void DeviceContext::SetWords(const QString& words) {
    if (surface == Surface::kMemory) bitmap->words = words;
    Window* target = surface == Surface::kWindow ? Window::From(window) : nullptr;
    if (target != nullptr) target->SetDrawnText(words);
}

void DeviceContext::Show() {
    if (surface != Surface::kWindow) return;
    if (Window* target = Window::From(window)) target->ShowBacking();
}

DeviceContext* ContextForCall(const char* point, HDC context) {
    if (const auto error = InjectedFailure(point)) return Fail<DeviceContext*>(*error);
    return FindGraphicsObject<DeviceContext>(context);
}

}  // namespace platform

using platform::DeviceContext;
using platform::Fail;
using platform::InjectedFailure;

HDC WINAPI CreateDCW(LPCWSTR driver, LPCWSTR device, LPCWSTR output, const DEVMODEW* devmode) try {
    if (const auto error = InjectedFailure("CreateDCW")) return Fail<HDC>(*error);
    if (driver != nullptr || device == nullptr || output != nullptr || devmode != nullptr) {
        return Fail<HDC>(ERROR_INVALID_PARAMETER);
    }
    platform::spooler::PageSize page = {};
    if (!platform::spooler::PrinterPage(device, &page)) {
        return Fail<HDC>(ERROR_INVALID_PRINTER_NAME);
    }
    auto* context = new DeviceContext(DeviceContext::Surface::kPrinter);
    context->page = {platform::PrinterDots(page.width), platform::PrinterDots(page.height)};
    if (page.landscape) std::swap(context->page.cx, context->page.cy);
    return platform::HandleOf(context);
} catch (...) {
    return platform::FailCaught<HDC>();
}

int WINAPI GetDeviceCaps(HDC context, int index) {
    const DeviceContext* found = platform::ContextForCall("GetDeviceCaps", context);
    if (found == nullptr || found->surface != DeviceContext::Surface::kPrinter) return 0;
    if (index == PHYSICALWIDTH) return found->page.cx;
    return index == PHYSICALHEIGHT ? found->page.cy : 0;
}

HDC WINAPI CreateCompatibleDC(HDC context) try {
    if (const auto error = InjectedFailure("CreateCompatibleDC")) return Fail<HDC>(*error);
    if (context != nullptr && !platform::FindGraphicsObject<DeviceContext>(context)) return nullptr;
    return platform::HandleOf(new DeviceContext(DeviceContext::Surface::kMemory));
} catch (...) {
    return platform::FailCaught<HDC>();
}

HDC WINAPI GetDC(HWND window) try {
    if (const auto error = InjectedFailure("GetDC")) return Fail<HDC>(*error);
    return platform::MakeWindowContext(window);
} catch (...) {
    return platform::FailCaught<HDC>();
}

int WINAPI ReleaseDC(HWND window, HDC context) {
    const DeviceContext* found = platform::FindGraphicsObject<DeviceContext>(context);
    if (found == nullptr || found->surface != DeviceContext::Surface::kWindow ||
        found->window != window) {
        return 0;
    }
    delete found;
    return 1;
}

HDC WINAPI BeginPaint(HWND window, PAINTSTRUCT* paint) try {
    if (const auto error = InjectedFailure("BeginPaint")) return Fail<HDC>(*error);
    if (paint == nullptr) return nullptr;
    *paint = {};
    paint->hdc = platform::MakeWindowContext(window);
    if (paint->hdc == nullptr) return nullptr;
    const QSize client = platform::Window::From(window)->ClientSize();
    paint->rcPaint = {0, 0, client.width(), client.height()};
    return paint->hdc;
} catch (...) {
    return platform::FailCaught<HDC>();
}

BOOL WINAPI EndPaint(HWND window, const PAINTSTRUCT* paint) {
    return paint != nullptr && ReleaseDC(window, paint->hdc) == 1;
}

BOOL WINAPI DeleteDC(HDC context) {
    const DeviceContext* found = platform::FindGraphicsObject<DeviceContext>(context);
    if (found == nullptr || found->surface == DeviceContext::Surface::kWindow) return FALSE;
    delete found;
    return TRUE;
}

HGDIOBJ WINAPI SelectObject(HDC context, HGDIOBJ object) {
    DeviceContext* target = platform::ContextForCall("SelectObject", context);
    if (target == nullptr) return nullptr;
    platform::GraphicsObject* next = platform::FindGraphicsObject(object);
    if (next == nullptr) return nullptr;
    switch (next->Kind()) {
        case platform::GraphicsKind::kFont:
            return platform::Exchange(target->font, *next);
        case platform::GraphicsKind::kBrush:
            return platform::Exchange(target->brush, *next);
        case platform::GraphicsKind::kBitmap:
            if (target->surface != DeviceContext::Surface::kMemory ||
                (next->selections > 0 && !next->IsStock() && next != target->bitmap)) {
                return nullptr;
            }
            return platform::Exchange(target->bitmap, *next);
        case platform::GraphicsKind::kDeviceContext:
            break;
    }
    return Fail<HGDIOBJ>(ERROR_INVALID_HANDLE);
}

int WINAPI FillRect(HDC context, const RECT* rectangle, HBRUSH brush) try {
    DeviceContext* target = platform::ContextForCall("FillRect", context);
    const auto* paint = platform::FindGraphicsObject<platform::Brush>(brush);
    if (target == nullptr || paint == nullptr || rectangle == nullptr) return 0;
    QImage* pixels = target->Pixels();
    if (pixels == nullptr) return 0;
    const QRect area = platform::PartInside(*pixels, *rectangle);
    if (!area.isEmpty()) platform::FillPixels(*pixels, area, platform::ColorOf(paint->color));
    if (area.size() == pixels->deviceIndependentSize().toSize()) target->SetWords({});
    target->Show();
    return 1;
} catch (...) {
    return platform::FailCaught<int>();
}

BOOL WINAPI BitBlt(HDC target, int x, int y, int width, int height, HDC source, int sourceX,
                   int sourceY, DWORD operation) try {
    DeviceContext* to = platform::ContextForCall("BitBlt", target);
    DeviceContext* from = platform::FindGraphicsObject<DeviceContext>(source);
    if (to == nullptr || from == nullptr) return FALSE;
    QImage* toPixels = to->Pixels();
    QImage* fromPixels = from->Pixels();
    if (operation != SRCCOPY || toPixels == nullptr || fromPixels == nullptr) {
        return Fail(ERROR_INVALID_PARAMETER);
    }
    platform::CopyPixels(*toPixels, *fromPixels, {x, sourceX, width}, {y, sourceY, height});
    to->SetWords(from->Words());
    to->Show();
    return TRUE;
} catch (...) {
    return platform::FailCaught();
}
