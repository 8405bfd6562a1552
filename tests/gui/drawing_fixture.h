/// Bitmaps to draw on and to read, and fonts by name.
#pragma once

#include <gtest/gtest.h>
#include <windows.h>

#include <map>
#include <string>
#include <string_view>

#include "platform/faults/live_objects.h"
#include "platform/gui/drawing/device_context.h"
#include "platform/gui/windows/application.h"
#include "tests/support/machine_fixture.h"

inline constexpr COLORREF kBlack = RGB(0, 0, 0);
inline constexpr COLORREF kWhite = RGB(255, 255, 255);
inline constexpr COLORREF kRed = RGB(255, 0, 0);

inline HBRUSH Brush(int stock) {
    return static_cast<HBRUSH>(GetStockObject(stock));
}

/// A memory context with a white bitmap in it.
class Canvas {
public:
    Canvas(int width, int height)
        : context_(CreateCompatibleDC(nullptr)),
          bitmap_(CreateCompatibleBitmap(context_, width, height)),
          before_(SelectObject(context_, bitmap_)) {}
    ~Canvas() {
        SelectObject(context_, before_);
        DeleteDC(context_);
        DeleteObject(bitmap_);
    }
    Canvas(const Canvas&) = delete;
    Canvas& operator=(const Canvas&) = delete;

    operator HDC() const { return context_; }
    HBITMAP Bitmap() const { return bitmap_; }

    COLORREF At(int x, int y) const {
        const QRgb pixel = Pixels().pixel(x, y);
        return RGB(qRed(pixel), qGreen(pixel), qBlue(pixel));
    }

    /// The smallest rectangle around all pixels that are not white; empty when all are.
    QRect Drawn() const {
        QRect drawn;
        const QImage& pixels = Pixels();
        for (int y = 0; y < pixels.height(); ++y) {
            for (int x = 0; x < pixels.width(); ++x) {
                if (At(x, y) != kWhite) drawn |= QRect(x, y, 1, 1);
            }
        }
        return drawn;
    }

    const QImage& Pixels() const {
        return platform::FindGraphicsObject<platform::Bitmap>(bitmap_)->pixels;
    }

private:
    HDC context_;
    HBITMAP bitmap_;
    HGDIOBJ before_;
};

inline LOGFONTW FontNamed(std::u16string_view face, LONG height, LONG escapement = 0) {
    LOGFONTW font = {};
    font.lfHeight = height;
    font.lfEscapement = escapement;
    font.lfWeight = FW_NORMAL;
    font.lfPitchAndFamily = FF_ROMAN;
    face.copy(font.lfFaceName, LF_FACESIZE - 1);
    return font;
}

/// Calls the work with the font selected.
template <typename Work>
void WithFont(HDC context, const LOGFONTW& asked, const Work& work) {
    const HFONT font = CreateFontIndirectW(&asked);
    const HGDIOBJ before = SelectObject(context, font);
    work();
    SelectObject(context, before);
    DeleteObject(font);
}

inline BOOL Write(HDC context, const LOGFONTW& asked, int x, int y, std::u16string_view text) {
    BOOL result = FALSE;
    WithFont(context, asked,
             [&] { result = TextOutW(context, x, y, text.data(), static_cast<int>(text.size())); });
    return result;
}

inline SIZE Extent(HDC context, const LOGFONTW& asked, std::u16string_view text) {
    SIZE size = {};
    WithFont(context, asked, [&] {
        GetTextExtentPoint32W(context, text.data(), static_cast<int>(text.size()), &size);
    });
    return size;
}

/// Everything made in a case is given back by its end.
class Drawing : public testing::Test {
protected:
    void TearDown() override { EXPECT_EQ(platform::LiveObjects(), before_); }

private:
    std::map<std::string, int> before_ = platform::LiveObjects();
};
