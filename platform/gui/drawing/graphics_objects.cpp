#include "platform/gui/drawing/graphics_objects.h"

#include <algorithm>
#include <cstdint>
#include <unordered_map>

#include "platform/base/handles.h"
#include "platform/faults/failure_points.h"
#include "platform/faults/live_objects.h"
#include "platform/gui/drawing/device_context.h"
#include "platform/gui/windows/fine_image.h"

namespace platform {
namespace {

constexpr int kLongestSide = 32767;
constexpr std::int64_t kMostPixels = std::int64_t{1} << 26;  // 256 MB at four bytes a pixel
constexpr COLORREF kWhite = RGB(255, 255, 255);
constexpr COLORREF kDarkGrey = RGB(64, 64, 64);

struct KindName {
    GraphicsKind kind;
    const char* name;
};
constexpr KindName kKindNames[] = {{GraphicsKind::kDeviceContext, "device context"},
                                   {GraphicsKind::kBitmap, "bitmap"},
                                   {GraphicsKind::kFont, "font"},
                                   {GraphicsKind::kBrush, "brush"}};

void Count(const GraphicsObject& object, int change) {
    if (object.IsStock()) return;
    CountObject(std::ranges::find(kKindNames, object.Kind(), &KindName::kind)->name, change);
}

/// Never destroyed: contexts may still be let go of while the process ends.
std::unordered_map<const void*, GraphicsObject*>& ObjectsAlive() {
    static auto& alive = *new std::unordered_map<const void*, GraphicsObject*>;
    return alive;
}

QImage WhiteImage(int width, int height, qreal fineness) {
    QImage image = FineImage(QSize(width, height), fineness);
    if (!image.isNull()) image.fill(Qt::white);
    return image;
}

}  // namespace

GraphicsObject::GraphicsObject(GraphicsKind kind, Lifetime lifetime)
    : kind_(kind), lifetime_(lifetime), handle_(reinterpret_cast<HGDIOBJ>(NextHandleValue())) {
    ObjectsAlive().emplace(handle_, this);
    Count(*this, 1);
}

GraphicsObject::~GraphicsObject() {
    ObjectsAlive().erase(handle_);
    Count(*this, -1);
}

const SettledFont& Font::Settled() {
    if (!settled_) settled_ = SettleFont(asked);
    return *settled_;
}

GraphicsObject* FindGraphicsObject(const void* handle) {
    const auto found = ObjectsAlive().find(handle);
    return found != ObjectsAlive().end() ? found->second
                                         : Fail<GraphicsObject*>(ERROR_INVALID_HANDLE);
}

Bitmap& StockBitmap() {
    static auto& bitmap = *new Bitmap(WhiteImage(1, 1, 1), GraphicsObject::Lifetime::kStock);
    return bitmap;
}

Font& StockFont() {
    static auto& font = *new Font(LOGFONTW{}, GraphicsObject::Lifetime::kStock);
    return font;
}

Brush& StockWhiteBrush() {
    static auto& brush = *new Brush(kWhite, GraphicsObject::Lifetime::kStock);
    return brush;
}

}  // namespace platform

using platform::Bitmap;
using platform::Brush;
using platform::Fail;
using platform::Font;
using platform::GraphicsObject;

// Calls that only give something back (`DeleteDC`, `DeleteObject`, `ReleaseDC`, `EndPaint`) have no
// failure point: nobody could mend their failure, and each would count as a leak.

HBITMAP WINAPI CreateCompatibleBitmap(HDC context, int width, int height) try {
    platform::DeviceContext* model = platform::ContextForCall("CreateCompatibleBitmap", context);
    if (model == nullptr) return nullptr;
    const int columns = width == 0 || height == 0 ? 1 : width;
    const int rows = width == 0 || height == 0 ? 1 : height;
    if (columns < 0 || rows < 0 || columns > platform::kLongestSide ||
        rows > platform::kLongestSide || std::int64_t{columns} * rows > platform::kMostPixels) {
        return Fail<HBITMAP>(ERROR_INVALID_PARAMETER);
    }
    QImage pixels = platform::WhiteImage(columns, rows, model->Fineness());
    if (pixels.isNull()) return Fail<HBITMAP>(ERROR_NOT_ENOUGH_MEMORY);
    return static_cast<HBITMAP>((new Bitmap(std::move(pixels)))->Handle());
} catch (...) {
    return platform::FailCaught<HBITMAP>();
}

HFONT WINAPI CreateFontIndirectW(const LOGFONTW* font) try {
    if (const auto error = platform::InjectedFailure("CreateFontIndirectW")) {
        return Fail<HFONT>(*error);
    }
    if (font == nullptr) return Fail<HFONT>(ERROR_INVALID_PARAMETER);
    return static_cast<HFONT>((new Font(*font))->Handle());
} catch (...) {
    return platform::FailCaught<HFONT>();
}

HGDIOBJ WINAPI GetStockObject(int object) try {
    static auto& darkGrey = *new Brush(platform::kDarkGrey, GraphicsObject::Lifetime::kStock);
    if (object == WHITE_BRUSH) return platform::StockWhiteBrush().Handle();
    return object == DKGRAY_BRUSH ? darkGrey.Handle() : nullptr;
} catch (...) {
    return platform::FailCaught<HGDIOBJ>();
}

BOOL WINAPI DeleteObject(HGDIOBJ object) {
    GraphicsObject* found = platform::FindGraphicsObject(object);
    if (found == nullptr) return FALSE;
    if (found->Kind() == platform::GraphicsKind::kDeviceContext) return Fail(ERROR_INVALID_HANDLE);
    if (found->IsStock()) return TRUE;
    if (found->selections > 0) return FALSE;
    delete found;
    return TRUE;
}
