#include <QFontMetricsF>
#include <QPainter>
#include <QTransform>
#include <cmath>
#include <utility>

#include "platform/gui/drawing/device_context.h"
#include "platform/gui/windows/fine_image.h"

namespace platform {
namespace {

constexpr int kLongestText = 8192;  // WCHARs

bool IsDrawable(LPCWSTR text, int length) {
    const bool drawable = length >= 0 && length <= kLongestText && (text != nullptr || length == 0);
    return drawable || Fail(ERROR_INVALID_PARAMETER, false);
}

double WidthOf(const SettledFont& font, const QString& text) {
    return std::ceil(QFontMetricsF(font.font).horizontalAdvance(text));
}

/// The cell of a line of text, before it is turned, with its reference point at (0, 0).
QRectF LineCell(const SettledFont& font, double width, UINT align) {
    const double left = (align & TA_CENTER) == TA_CENTER ? -std::floor(width / 2) : 0;
    return QRectF(left, 0, width, font.ascent + font.descent);
}

/// Turns about the reference point; the escapement is counter-clockwise, the painter's turning is
/// clockwise.
QTransform LineTransform(int x, int y, LONG escapement) {
    QTransform transform;
    transform.translate(x, y);
    transform.rotate(-(escapement % 3600) / 10.0);
    return transform;
}

void DrawLine(QImage& pixels, const DeviceContext& context, int x, int y, const QString& text) {
    const SettledFont& font = context.font->Settled();
    const QRectF cell = LineCell(font, WidthOf(font, text), context.textAlign);
    const QTransform transform = LineTransform(x, y, context.font->asked.lfEscapement);
    // Far away the painter's own arithmetic would be out of its range.
    if (!transform.mapRect(cell).intersects(QRectF(QPointF(), LogicalSize(pixels)))) return;
    QPainter painter(&pixels);
    painter.setRenderHint(QPainter::TextAntialiasing);
    painter.setLayoutDirection(Qt::LeftToRight);
    painter.setTransform(transform);
    painter.fillRect(cell, ColorOf(context.backgroundColor));
    painter.setFont(font.font);
    painter.setPen(ColorOf(context.textColor));
    painter.drawText(cell.topLeft() + QPointF(0, font.ascent), text);
}

}  // namespace
}  // namespace platform

using platform::ContextForCall;
using platform::DeviceContext;

UINT WINAPI SetTextAlign(HDC context, UINT align) {
    DeviceContext* found = ContextForCall("SetTextAlign", context);
    return found == nullptr ? GDI_ERROR : std::exchange(found->textAlign, align);
}

COLORREF WINAPI SetTextColor(HDC context, COLORREF color) {
    DeviceContext* found = ContextForCall("SetTextColor", context);
    return found == nullptr ? CLR_INVALID : std::exchange(found->textColor, color);
}

COLORREF WINAPI SetBkColor(HDC context, COLORREF color) {
    DeviceContext* found = ContextForCall("SetBkColor", context);
    return found == nullptr ? CLR_INVALID : std::exchange(found->backgroundColor, color);
}

BOOL WINAPI TextOutW(HDC context, int x, int y, LPCWSTR text, int length) try {
    DeviceContext* found = ContextForCall("TextOutW", context);
    if (found == nullptr || !platform::IsDrawable(text, length)) return FALSE;
    QImage* pixels = found->Pixels();
    if (pixels == nullptr) return FALSE;
    if (length > 0) {
        const QString line = platform::WellFormedText(text, length);
        platform::DrawLine(*pixels, *found, x, y, line);
        found->SetWords(line);
        found->Show();
    }
    return TRUE;
} catch (...) {
    return platform::FailCaught();
}

BOOL WINAPI GetTextExtentPoint32W(HDC context, LPCWSTR text, int length, SIZE* size) try {
    DeviceContext* found = ContextForCall("GetTextExtentPoint32W", context);
    if (found == nullptr || size == nullptr || !platform::IsDrawable(text, length)) return FALSE;
    const platform::SettledFont& font = found->font->Settled();
    const QString line = platform::WellFormedText(text, length);
    *size = {static_cast<LONG>(platform::WidthOf(font, line)), font.ascent + font.descent};
    return TRUE;
} catch (...) {
    return platform::FailCaught();
}
