#include "wmeditor/watermark_preview.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <limits>
#include <utility>

#include "common/unique_handle.h"
#include "resources/resource_ids.h"
#include "watermark/watermark_angle.h"
#include "wmeditor/dialog_controls.h"

namespace oemui {
namespace {

constexpr double kMillimetresPerInch = 25.4;
constexpr double kLongerSidePixels = 170.0;
constexpr INT32 kPointsPerInch = 72;
constexpr INT32 kFontPixelsPerInch = 15;
constexpr LONG kSmallestFontHeight = 3;
/// Reached at 9,830 points. A document or a stored list may ask for any size, and the memory that
/// glyphs take grows with its square: 250,000 points took two gigabytes.
constexpr LONG kLargestFontHeight = 2048;
constexpr INT32 kFallbackStepsPerSide = 20;
constexpr PaperSize kA4 = {2100, 2970};

using UniqueBitmap = UniqueHandle<HBITMAP, ::DeleteObject>;
using UniqueFont = UniqueHandle<HFONT, ::DeleteObject>;
using UniqueMemoryContext = UniqueHandle<HDC, ::DeleteDC>;

/// The dialog's paint cycle; begun also outside `WM_PAINT`, for the reference device context.
class PaintCycle {
public:
    explicit PaintCycle(HWND window) : window_(window) { context_ = ::BeginPaint(window, &paint_); }
    PaintCycle(const PaintCycle&) = delete;
    PaintCycle& operator=(const PaintCycle&) = delete;
    ~PaintCycle() { ::EndPaint(window_, &paint_); }

    [[nodiscard]] HDC Get() const { return context_; }

private:
    HWND window_;
    PAINTSTRUCT paint_{};
    HDC context_;
};

/// The client area of a control, and a device context to draw on it.
class ControlSurface {
public:
    explicit ControlSurface(HWND control) : context_(control) {
        if (control != nullptr) ::GetClientRect(control, &area_);
    }

    [[nodiscard]] HDC Get() const { return context_.Get(); }
    [[nodiscard]] const RECT& Area() const { return area_; }
    [[nodiscard]] bool CanBeDrawn() const {
        return Get() != nullptr && area_.right > 0 && area_.bottom > 0;
    }

private:
    WindowContext context_;
    RECT area_{};
};

/// A picture in memory of the size of a control.
class MemoryPicture {
public:
    MemoryPicture(const ControlSurface& surface, HDC reference)
        : surface_(surface),
          bitmap_(::CreateCompatibleBitmap(reference, surface.Area().right, surface.Area().bottom)),
          context_(::CreateCompatibleDC(surface.Get())) {
        ::SelectObject(context_.Get(), bitmap_.Get());
    }

    [[nodiscard]] HDC Get() const { return context_.Get(); }

    void Fill(int stockBrush) {
        ::FillRect(Get(), &surface_.Area(), static_cast<HBRUSH>(::GetStockObject(stockBrush)));
    }

    void Show() {
        const RECT& area = surface_.Area();
        ::BitBlt(surface_.Get(), 0, 0, area.right, area.bottom, Get(), 0, 0, SRCCOPY);
    }

private:
    const ControlSurface& surface_;
    UniqueBitmap bitmap_;
    UniqueMemoryContext context_;  // goes before the bitmap that is selected into it
};

void DrawWatermark(HDC context, const RECT& page, INT32 fontHeight, INT32 scale,
                   const WatermarkRecord& record) {
    ::SetTextAlign(context, TA_CENTER | TA_TOP);
    ::SetTextColor(context, RGB(record.Red, record.Green, record.Blue));
    ::SetBkColor(context, RGB(255, 255, 255));
    const POINT origin = ComputeTextOrigin(page, fontHeight, scale, record);
    const TextView text = TextIn(record.Text);
    ::TextOutW(context, origin.x, origin.y, text.data(), static_cast<int>(text.size()));
}

void PaintPage(HWND page, HDC reference, INT32 scale, const WatermarkRecord& record) {
    const ControlSurface surface(page);
    if (!surface.CanBeDrawn()) return;
    const LOGFONTW fontRequest = MakePreviewFont(record);
    const UniqueFont font(::CreateFontIndirectW(&fontRequest));
    MemoryPicture picture(surface, reference);
    picture.Fill(WHITE_BRUSH);
    ::SelectObject(picture.Get(), font.Get());
    DrawWatermark(picture.Get(), surface.Area(), fontRequest.lfHeight, scale, record);
    picture.Show();
}

/// The preview area's rectangle in the client coordinates of its parent.
RECT PreviewArea(HWND dialog) {
    RECT rectangle{};
    const HWND area = ::GetDlgItem(dialog, IDC_PREVIEW_AREA);
    if (area == nullptr) return rectangle;
    ::GetWindowRect(area, &rectangle);
    const HWND parent = ::GetParent(area);
    POINT origin{};
    ::ClientToScreen(parent != nullptr ? parent : ::GetDesktopWindow(), &origin);
    return {rectangle.left - origin.x, rectangle.top - origin.y, rectangle.right - origin.x,
            rectangle.bottom - origin.y};
}

/// The settings may hold anything: their sums and products wrap in 32 bits, like the platform's.
constexpr INT32 Wrapped(std::int64_t number) {
    return static_cast<INT32>(number);
}

/// Cuts a number toward zero; 0 when the result does not fit, or when it is no number.
constexpr INT32 TruncatedToInt32(double number) {
    constexpr double kBelow = static_cast<double>(std::numeric_limits<INT32>::min()) - 1.0;
    constexpr double kAbove = static_cast<double>(std::numeric_limits<INT32>::max()) + 1.0;
    return number > kBelow && number < kAbove ? static_cast<INT32>(number) : 0;
}

INT32 WholeMillimetres(INT32 tenths) {
    return tenths / 10;
}

bool HasSize(const PaperSize& paper) {
    // The longer side must reach a whole millimetre: everything is measured by it.
    return paper.Width > 0 && paper.Length > 0 && (paper.Width >= 10 || paper.Length >= 10);
}

/// A twentieth of a side, rounded up past the half.
INT32 FallbackStep(INT32 side) {
    return side / kFallbackStepsPerSide + (side % kFallbackStepsPerSide > 10 ? 1 : 0);
}

/// How far an offset moves the text, in pixels.
INT32 OffsetInPixels(INT32 offset, INT32 scale, INT32 side) {
    if (scale != 0) return Wrapped(std::int64_t{offset} * scale) / kPointsPerInch;
    return Wrapped(std::int64_t{FallbackStep(side)} * offset);
}

}  // namespace

void PaintWatermarkPreview(HWND dialog, const WatermarkRecord& record,
                           PageOrientation orientation) {
    const PaintCycle paint(dialog);
    PaintPreviewBackground(dialog, paint.Get());
    const HWND page = ::GetDlgItem(dialog, IDC_PREVIEW_PAGE);
    if (page == nullptr) return;
    const PreviewPage placed = ComputePreviewPage(dialog, orientation);
    const RECT& rectangle = placed.rectangle;
    ::MoveWindow(page, rectangle.left, rectangle.top, rectangle.right - rectangle.left,
                 rectangle.bottom - rectangle.top, TRUE);
    PaintPage(page, paint.Get(), placed.scale, record);
}

void PaintPreviewBackground(HWND dialog, HDC reference) {
    const ControlSurface surface(::GetDlgItem(dialog, IDC_PREVIEW_AREA));
    if (!surface.CanBeDrawn()) return;
    MemoryPicture picture(surface, reference);
    picture.Fill(DKGRAY_BRUSH);
    picture.Show();
}

PreviewPageSize ScalePreviewPage(const PaperSize& paper, PageOrientation orientation) {
    const PaperSize& drawn = HasSize(paper) ? paper : kA4;
    const double width = WholeMillimetres(drawn.Width) / kMillimetresPerInch;
    const double length = WholeMillimetres(drawn.Length) / kMillimetresPerInch;
    const INT32 scale =
        TruncatedToInt32(kLongerSidePixels / (drawn.Width > drawn.Length ? width : length));
    PreviewPageSize page{TruncatedToInt32(scale * width), TruncatedToInt32(scale * length), scale};
    if (orientation == PageOrientation::kLandscape) std::swap(page.width, page.height);
    return page;
}

PreviewPage ComputePreviewPage(HWND dialog, PageOrientation orientation) {
    const PreviewPageSize size = ScalePreviewPage(PreviewPaperSize, orientation);
    const RECT area = PreviewArea(dialog);
    const LONG left = (area.left + area.right) / 2 - size.width / 2;
    const LONG top = (area.top + area.bottom) / 2 - size.height / 2;
    return {{left, top, left + size.width, top + size.height}, size.scale};
}

POINT ComputeTextOrigin(const RECT& page, INT32 fontHeight, INT32 scale,
                        const WatermarkRecord& record) {
    const double angle = record.AngleDegrees * kPi / 180.0;
    const double halfHeight = fontHeight * 0.5;
    const std::int64_t x =
        std::int64_t{(page.left + page.right) / 2} - TruncatedToInt32(std::sin(angle) * halfHeight);
    const std::int64_t y =
        std::int64_t{(page.top + page.bottom) / 2} - TruncatedToInt32(std::cos(angle) * halfHeight);
    const INT32 right = OffsetInPixels(record.OffsetX, scale, page.right - page.left);
    const INT32 up = OffsetInPixels(record.OffsetY, scale, page.bottom - page.top);
    return {Wrapped(x + right), Wrapped(y - up)};
}

LOGFONTW MakePreviewFont(const WatermarkRecord& record) {
    LOGFONTW font{};
    font.lfHeight = std::clamp<LONG>(::MulDiv(record.PointSize, kFontPixelsPerInch, kPointsPerInch),
                                     kSmallestFontHeight, kLargestFontHeight);
    font.lfEscapement = Wrapped(std::int64_t{record.AngleDegrees} * 10);
    font.lfWeight = record.Bold != 0 ? FW_BOLD : FW_NORMAL;
    font.lfItalic = record.Italic != 0 ? 1 : 0;
    font.lfCharSet = DEFAULT_CHARSET;
    font.lfOutPrecision = OUT_STRING_PRECIS;
    font.lfQuality = PROOF_QUALITY;
    font.lfPitchAndFamily = FF_ROMAN;
    CopyText(font.lfFaceName, TextIn(record.FaceName));
    return font;
}

}  // namespace oemui
