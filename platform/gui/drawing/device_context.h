/// Device contexts: where drawing goes, and with what. For the user-interface thread only.
#pragma once

#include <windows.h>

#include <QColor>
#include <QImage>

#include "platform/gui/drawing/graphics_objects.h"

namespace platform {

struct DeviceContext : GraphicsObject {
    static constexpr GraphicsKind kKind = GraphicsKind::kDeviceContext;
    enum class Surface { kPrinter, kMemory, kWindow };

    explicit DeviceContext(Surface surface);
    ~DeviceContext() override;

    /// The image that drawing changes; null for a printer and for a window that is gone.
    QImage* Pixels();
    /// Pixels of that image in a pixel at 96 dots per inch; 1 where there is none.
    qreal Fineness();
    /// The text in the image that was drawn last; empty when there is none.
    [[nodiscard]] QString Words() const;
    void SetWords(const QString& words);
    /// Brings what was drawn into a window's image onto the screen, at once.
    void Show();

    const Surface surface;
    HWND window = nullptr;  ///< window contexts
    SIZE page = {};         ///< printers: the whole sheet in device units
    Bitmap* bitmap;
    Font* font;
    Brush* brush;
    UINT textAlign = TA_LEFT | TA_TOP;
    COLORREF textColor = RGB(0, 0, 0);
    COLORREF backgroundColor = RGB(255, 255, 255);
};

/// The context of a drawing call: passes the call's failure point, then looks up the handle. Null
/// with the last error set.
[[nodiscard]] DeviceContext* ContextForCall(const char* point, HDC context);

QColor ColorOf(COLORREF color);

}  // namespace platform
