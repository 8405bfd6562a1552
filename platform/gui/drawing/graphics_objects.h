/// Bitmaps, fonts and brushes behind their handles. For the user-interface thread only.
#pragma once

#include <windows.h>

#include <QImage>
#include <optional>

#include "platform/base/fail.h"
#include "platform/gui/drawing/fonts.h"

namespace platform {

enum class GraphicsKind { kDeviceContext, kBitmap, kFont, kBrush };

/// What stands behind a graphics handle. Every object carries its kind, and its handle is a number
/// that is never given out again: a stale handle, or one of another kind, is refused.
class GraphicsObject {
public:
    enum class Lifetime { kCounted, kStock };

    /// Makes the handle valid; counted objects show up in `LiveObjects`, stock objects never do.
    GraphicsObject(GraphicsKind kind, Lifetime lifetime);
    virtual ~GraphicsObject();
    GraphicsObject(const GraphicsObject&) = delete;
    GraphicsObject& operator=(const GraphicsObject&) = delete;

    [[nodiscard]] GraphicsKind Kind() const { return kind_; }
    [[nodiscard]] bool IsStock() const { return lifetime_ == Lifetime::kStock; }
    [[nodiscard]] HGDIOBJ Handle() const { return handle_; }

    int selections = 0;  ///< contexts that hold the object now

private:
    GraphicsKind kind_;
    Lifetime lifetime_;
    HGDIOBJ handle_;
};

struct Bitmap : GraphicsObject {
    static constexpr GraphicsKind kKind = GraphicsKind::kBitmap;
    explicit Bitmap(QImage image, Lifetime lifetime = Lifetime::kCounted)
        : GraphicsObject(kKind, lifetime), pixels(std::move(image)) {}

    QImage pixels;  ///< `QImage::Format_RGB32`, as fine as its screen
    QString words;  ///< the text in it
};

struct Font : GraphicsObject {
    static constexpr GraphicsKind kKind = GraphicsKind::kFont;
    explicit Font(const LOGFONTW& font, Lifetime lifetime = Lifetime::kCounted)
        : GraphicsObject(kKind, lifetime), asked(font) {}

    /// The face and its measures, settled at the first use.
    const SettledFont& Settled();

    LOGFONTW asked;

private:
    std::optional<SettledFont> settled_;
};

struct Brush : GraphicsObject {
    static constexpr GraphicsKind kKind = GraphicsKind::kBrush;
    Brush(COLORREF paint, Lifetime lifetime) : GraphicsObject(kKind, lifetime), color(paint) {}

    COLORREF color;
};

/// The object behind a handle, whatever its kind; null with ERROR_INVALID_HANDLE as last error.
[[nodiscard]] GraphicsObject* FindGraphicsObject(const void* handle);

/// The object of one kind behind a handle; null with ERROR_INVALID_HANDLE as last error.
template <typename Object>
[[nodiscard]] Object* FindGraphicsObject(const void* handle) {
    GraphicsObject* object = FindGraphicsObject(handle);
    if (object == nullptr || object->Kind() == Object::kKind) return static_cast<Object*>(object);
    return Fail<Object*>(ERROR_INVALID_HANDLE);
}

/// What every new context holds: a bitmap of one pixel, the system's font, the white brush.
Bitmap& StockBitmap();
Font& StockFont();
Brush& StockWhiteBrush();

}  // namespace platform
