#include <gtest/gtest.h>
#include <malloc.h>
#include <windows.h>

#include <climits>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "platform/faults/failure_points.h"
#include "platform/faults/live_objects.h"
#include "platform/gui/drawing/device_context.h"
#include "platform/gui/windows/application.h"
#include "platform/gui/windows/window.h"
#include "tests/support/machine_fixture.h"
#include "tests/support/test_printer.h"

namespace {

constexpr COLORREF kBlack = RGB(0, 0, 0);
constexpr COLORREF kWhite = RGB(255, 255, 255);
constexpr COLORREF kRed = RGB(255, 0, 0);

HBRUSH Brush(int stock) {
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

LOGFONTW FontNamed(std::u16string_view face, LONG height, LONG escapement = 0) {
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

BOOL Write(HDC context, const LOGFONTW& asked, int x, int y, std::u16string_view text) {
    BOOL result = FALSE;
    WithFont(context, asked,
             [&] { result = TextOutW(context, x, y, text.data(), static_cast<int>(text.size())); });
    return result;
}

SIZE Extent(HDC context, const LOGFONTW& asked, std::u16string_view text) {
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

TEST_F(Drawing, FillsLieInsideTheBitmapWhateverTheRectangle) {
    const Canvas canvas(20, 10);
    const RECT inner = {3, 2, 7, 5};
    ASSERT_EQ(FillRect(canvas, &inner, Brush(DKGRAY_BRUSH)), 1);
    EXPECT_EQ(canvas.Drawn(), QRect(3, 2, 4, 3));
    EXPECT_EQ(canvas.At(3, 2), RGB(64, 64, 64));
    for (const RECT& nothing : {RECT{7, 5, 3, 2}, RECT{INT_MAX, 0, INT_MIN, 9}}) {
        FillRect(canvas, &nothing, Brush(WHITE_BRUSH));
    }
    EXPECT_EQ(canvas.Drawn(), QRect(3, 2, 4, 3));
    const RECT everything = {INT_MIN, INT_MIN, INT_MAX, INT_MAX};
    FillRect(canvas, &everything, Brush(DKGRAY_BRUSH));
    EXPECT_EQ(canvas.Drawn(), QRect(0, 0, 20, 10));
}

TEST_F(Drawing, CopiesAreCutToBothBitmaps) {
    const Canvas source(10, 10);
    const RECT all = {0, 0, 10, 10};
    FillRect(source, &all, Brush(DKGRAY_BRUSH));
    struct Row {
        int x, y, width, height, sourceX, sourceY;
        QRect drawn;
    };
    const Row rows[] = {
        {0, 0, 10, 10, 0, 0, QRect(0, 0, 10, 10)},
        {15, 15, 10, 10, 0, 0, QRect(15, 15, 5, 5)},
        {-4, 2, 10, 10, 0, 0, QRect(0, 2, 6, 10)},
        {2, 2, 10, 10, 6, -3, QRect(2, 5, 4, 7)},
        {INT_MIN, 0, INT_MAX, 5, 0, 0, QRect()},
        {INT_MAX, INT_MAX, 5, 5, INT_MAX, INT_MAX, QRect()},
        {0, 0, -3, 5, 0, 0, QRect()},
    };
    for (const Row& row : rows) {
        const Canvas target(20, 20);
        EXPECT_TRUE(BitBlt(target, row.x, row.y, row.width, row.height, source, row.sourceX,
                           row.sourceY, SRCCOPY));
        EXPECT_EQ(target.Drawn(), row.drawn) << row.x << ' ' << row.width;
    }
    EXPECT_FALSE(BitBlt(source, 0, 0, 1, 1, source, 0, 0, SRCCOPY + 1));
    const RECT corner = {0, 0, 1, 1};
    FillRect(source, &corner, Brush(WHITE_BRUSH));
    EXPECT_TRUE(BitBlt(source, 1, 0, 9, 1, source, 0, 0, SRCCOPY));  // overlaps itself
    EXPECT_EQ(source.At(1, 0), kWhite);
    EXPECT_EQ(source.At(2, 0), RGB(64, 64, 64));
}

TEST_F(Drawing, WrongStaleAndSelectedHandlesAreRefused) {
    const HDC context = CreateCompatibleDC(nullptr);
    const HBITMAP bitmap = CreateCompatibleBitmap(context, 4, 4);
    const LOGFONTW asked = FontNamed(u"Arial", 12);
    const HFONT font = CreateFontIndirectW(&asked);
    const HDC other = CreateCompatibleDC(context);
    EXPECT_TRUE(TextOutW(context, 0, 0, u"text", 4));  // to a pixel that nobody sees
    const HGDIOBJ before = SelectObject(context, bitmap);
    EXPECT_FALSE(DeleteObject(bitmap));
    EXPECT_EQ(SelectObject(other, bitmap), nullptr);
    EXPECT_EQ(SelectObject(context, context), nullptr);
    EXPECT_EQ(FillRect(context, nullptr, Brush(WHITE_BRUSH)), 0);
    EXPECT_FALSE(DeleteObject(context));
    EXPECT_TRUE(DeleteObject(GetStockObject(DKGRAY_BRUSH)));
    EXPECT_TRUE(DeleteObject(before));
    EXPECT_NE(SelectObject(context, font), nullptr);
    EXPECT_TRUE(DeleteDC(context));
    EXPECT_TRUE(DeleteObject(font));
    EXPECT_TRUE(DeleteObject(bitmap));
    EXPECT_TRUE(DeleteDC(other));
    int notAHandle = 0;
    for (void* handle : {static_cast<void*>(context), static_cast<void*>(font),
                         static_cast<void*>(&notAHandle), static_cast<void*>(nullptr)}) {
        SetLastError(0);
        EXPECT_FALSE(TextOutW(static_cast<HDC>(handle), 0, 0, u"a", 1));
        EXPECT_EQ(GetLastError(), DWORD{ERROR_INVALID_HANDLE});
        EXPECT_FALSE(DeleteObject(handle));
        EXPECT_FALSE(DeleteDC(static_cast<HDC>(handle)));
    }
    EXPECT_EQ(CreateCompatibleBitmap(nullptr, 4, 4), nullptr);
    const Canvas canvas(0, 7);  // becomes one pixel
    for (const SIZE& size : {SIZE{-1, 5}, SIZE{INT_MAX, 1}, SIZE{32767, 32767}}) {
        EXPECT_EQ(CreateCompatibleBitmap(canvas, size.cx, size.cy), nullptr);
    }
}

TEST_F(Drawing, TextTurnsCounterClockwiseAboutItsTopCentre) {
    constexpr std::u16string_view kText = u"WATERMARK";
    struct Row {
        LONG escapement;
        int left, top;    // of the line's cell, from the reference point
        bool lengthwise;  // as wide as the text, else as high
    };
    const Canvas measure(1, 1);
    const SIZE size = Extent(measure, FontNamed(u"Arial", 20), kText);
    ASSERT_GT(size.cx, 40);
    EXPECT_EQ(size.cy, 20);
    const Row rows[] = {{0, -size.cx / 2, 0, true},
                        {900, 0, -(size.cx - size.cx / 2), false},
                        {1800, -(size.cx - size.cx / 2), -20, true},
                        {-900, -20, -size.cx / 2, false}};
    for (const Row& row : rows) {
        const Canvas canvas(400, 400);
        SetTextAlign(canvas, TA_CENTER | TA_TOP);
        SetBkColor(canvas, kRed);
        EXPECT_TRUE(Write(canvas, FontNamed(u"Arial", 20, row.escapement), 200, 200, kText));
        const QRect drawn = canvas.Drawn();
        EXPECT_EQ(drawn.topLeft(), QPoint(200 + row.left, 200 + row.top)) << row.escapement;
        EXPECT_EQ(drawn.size(), row.lengthwise ? QSize(size.cx, 20) : QSize(20, size.cx))
            << row.escapement;
    }
}

TEST_F(Drawing, TheInkStaysInTheTurnedCellInTheTextColour) {
    const Canvas canvas(200, 200);
    SetTextAlign(canvas, TA_CENTER | TA_TOP);
    EXPECT_EQ(SetTextColor(canvas, kRed), kBlack);
    EXPECT_EQ(SetBkColor(canvas, kWhite), kWhite);
    // Stepping back half a line along the text's upward direction puts the line on the centre.
    EXPECT_TRUE(Write(canvas, FontNamed(u"Arial", 30, 450), 100 - 10, 100 - 10, u"HHHH"));
    const QRect ink = canvas.Drawn();
    EXPECT_LE(std::abs(ink.center().x() - 100), 3);
    EXPECT_LE(std::abs(ink.center().y() - 100), 3);
    EXPECT_LE(std::abs(ink.width() - ink.height()), 4);
    int fullRed = 0;
    for (int x = 0; x < 200; ++x) fullRed += canvas.At(x, 199 - x) == kRed;
    EXPECT_GT(fullRed, 0);
}

TEST_F(Drawing, HeightsAreOfTheCellOrOfTheCharacters) {
    const Canvas canvas(60, 60);
    SetBkColor(canvas, kRed);
    Write(canvas, FontNamed(u"Arial", 20), 5, 6, u"x");  // from the top left corner at first
    EXPECT_EQ(canvas.Drawn().topLeft(), QPoint(5, 6));
    const SIZE cell = Extent(canvas, FontNamed(u"Arial", 100), u"mmmm");
    const SIZE characters = Extent(canvas, FontNamed(u"Arial", -100), u"mmmm");
    EXPECT_EQ(cell.cy, 100);
    EXPECT_GT(characters.cy, 105);
    EXPECT_GT(characters.cx, cell.cx);
    EXPECT_EQ(Extent(canvas, FontNamed(u"Arial", 0), u"m").cy, 16);
}

TEST_F(Drawing, FacesAreFoundByNameWithSubstituteAndFallback) {
    const Canvas canvas(300, 60);
    const auto width = [&](std::u16string_view face, std::u16string_view text) {
        return Extent(canvas, FontNamed(face, 40), text).cx;
    };
    EXPECT_EQ(width(u"Courier New", u"iiii"), width(u"Courier New", u"WWWW"));
    EXPECT_EQ(width(u"aRIAL", u"Watermark"), width(u"Liberation Sans", u"Watermark"));
    EXPECT_NE(width(u"Arial", u"Watermark"), width(u"Times New Roman", u"Watermark"));
    for (const auto* unknown : {u"No Such Face", u"", u"\xD800"}) {
        EXPECT_EQ(width(unknown, u"Watermark"), width(u"Times New Roman", u"Watermark"));
    }
    LOGFONTW bold = FontNamed(u"Arial", 40);
    bold.lfWeight = FW_BOLD;
    EXPECT_GT(Extent(canvas, bold, u"Watermark").cx, width(u"Arial", u"Watermark"));
    LOGFONTW font = FontNamed(u"Arial", 40);
    Write(canvas, font, 5, 5, u"I");
    const int upright = canvas.Drawn().width();
    font.lfItalic = 1;
    Write(canvas, font, 5, 5, u"I");
    EXPECT_GT(canvas.Drawn().width(), upright);
}

TEST_F(Drawing, AnyFontAndTextIsSafe) {
    const Canvas canvas(60, 60);
    SetTextAlign(canvas, TA_CENTER);
    for (const LONG height : {INT_MIN, -1, 447392426, INT_MAX}) {
        for (const LONG escapement : {INT_MIN, -1, 450, INT_MAX}) {
            LOGFONTW font = FontNamed(u"Arial", height, escapement);
            font.lfWeight = height;
            EXPECT_TRUE(Write(canvas, font, 30, 30, u"Watermark String"));
        }
    }
    LOGFONTW unterminated = FontNamed(u"", 12);
    std::fill_n(unterminated.lfFaceName, LF_FACESIZE, u'A');
    const std::u16string texts[] = {
        u"", u"\xDE00\xD83D", u"\u05E9\u05DC\u05D5\u05DD abc \u0645\u0631\u062D",
        std::u16string(u"a\0b\t\r\n\u202E\uFFFF", 8), std::u16string(8192, u'm')};
    for (const std::u16string& text : texts) {
        for (const int place : {INT_MIN, 30, INT_MAX}) {
            EXPECT_TRUE(Write(canvas, unterminated, place, place, text));
        }
    }
    EXPECT_FALSE(TextOutW(canvas, 0, 0, texts[4].data(), 8193));
    EXPECT_FALSE(TextOutW(canvas, 0, 0, u"a", -1));
    EXPECT_FALSE(TextOutW(canvas, 0, 0, nullptr, 1));
}

struct Enumerated {
    std::map<std::u16string, DWORD> types;
    int calls = 0;
    int most = INT_MAX;
};

int CALLBACK Remember(const LOGFONTW* font, const TEXTMETRICW* metrics, DWORD type,
                      LPARAM argument) {
    auto& seen = *reinterpret_cast<Enumerated*>(argument);
    ++seen.calls;
    seen.types[font->lfFaceName] = type;
    EXPECT_EQ(type == TRUETYPE_FONTTYPE, (metrics->tmPitchAndFamily & TMPF_TRUETYPE) != 0);
    return seen.calls < seen.most ? 7 : 0;
}

TEST_F(Drawing, FamiliesAreEnumeratedOnceEachUntilTheCallbackHasEnough) {
    const Canvas canvas(1, 1);
    Enumerated all;
    const auto argument = [](Enumerated& seen) { return reinterpret_cast<LPARAM>(&seen); };
    EXPECT_EQ(EnumFontFamiliesW(canvas, nullptr, Remember, argument(all)), 7);
    EXPECT_EQ(all.calls, static_cast<int>(all.types.size()));
    for (const auto* face : {u"Arial", u"Times New Roman", u"Courier New", u"Liberation Sans"}) {
        EXPECT_EQ(all.types[face], DWORD{TRUETYPE_FONTTYPE});
    }
    Enumerated two;
    two.most = 2;
    EXPECT_EQ(EnumFontFamiliesW(canvas, nullptr, Remember, argument(two)), 0);
    EXPECT_EQ(EnumFontFamiliesW(canvas, u"Arial", Remember, argument(two)), 0);
    EXPECT_EQ(two.calls, 2);
}

/// A window of its own, as a control of a dialog is one.
struct Pane : platform::Window {
    Pane() : Window(platform::WindowKind::kStatic, nullptr, 7) {
        platform::gui::EnsureApplication();
        Adopt(new QWidget);
        Widget()->resize(30, 20);
    }
};

TEST_F(Drawing, AWindowsContextDrawsIntoItsImageWhileTheWindowLives) {
    HDC context = nullptr;
    HWND window = nullptr;
    const RECT all = {0, 0, 100, 100};
    {
        Pane pane;
        window = pane.Handle();
        PAINTSTRUCT paint = {};
        const HDC reference = BeginPaint(window, &paint);
        EXPECT_NE(reference, nullptr);
        EXPECT_EQ(paint.rcPaint.bottom, 20);
        EXPECT_TRUE(EndPaint(window, &paint));
        EXPECT_FALSE(EndPaint(window, &paint));
        EXPECT_FALSE(pane.HasDrawing());

        context = GetDC(window);
        EXPECT_EQ(FillRect(context, &all, Brush(DKGRAY_BRUSH)), 1);
        EXPECT_EQ(pane.Backing().pixel(29, 19), qRgb(64, 64, 64));
        const Canvas white(10, 10);
        EXPECT_TRUE(BitBlt(context, 5, 5, 10, 10, white, 0, 0, SRCCOPY));
        EXPECT_EQ(pane.Backing().pixel(14, 14), qRgb(255, 255, 255));
        EXPECT_EQ(SelectObject(context, white.Bitmap()), nullptr);
        EXPECT_FALSE(DeleteDC(context));
        EXPECT_EQ(ReleaseDC(nullptr, context), 0);
    }
    EXPECT_EQ(FillRect(context, &all, Brush(DKGRAY_BRUSH)), 0);
    EXPECT_EQ(ReleaseDC(window, context), 1);
    EXPECT_EQ(ReleaseDC(window, context), 0);
    EXPECT_EQ(GetDC(window), nullptr);
    EXPECT_EQ(GetLastError(), DWORD{ERROR_INVALID_WINDOW_HANDLE});
}

using PrinterContext = MachineTest;

TEST_F(PrinterContext, MeasuresTheDefaultPageInDotsAndTurnsItForLandscape) {
    constexpr const char16_t* kKey = u"System\\CurrentControlSet\\Control\\Print\\Printers\\Office";
    const tests::TestPrinter printer(u"Office");
    const auto page = [] {
        const HDC context = CreateDCW(nullptr, u"Office", nullptr, nullptr);
        const std::pair size(GetDeviceCaps(context, PHYSICALWIDTH),
                             GetDeviceCaps(context, PHYSICALHEIGHT));
        EXPECT_EQ(FillRect(context, nullptr, Brush(0)), 0);
        EXPECT_TRUE(DeleteDC(context));
        return size;
    };
    EXPECT_EQ(page(), std::pair(4961, 7016));  // A4 without a devmode
    DEVMODEW devmode = {};
    devmode.dmSpecVersion = DM_SPECVERSION;
    devmode.dmSize = sizeof devmode;
    devmode.dmFields = DM_PAPERSIZE | DM_ORIENTATION;
    devmode.dmPaperSize = 1;  // Letter
    for (const auto& [orientation, size] : {std::pair{DMORIENT_PORTRAIT, std::pair{5100, 6600}},
                                            {DMORIENT_LANDSCAPE, {6600, 5100}}}) {
        devmode.dmOrientation = static_cast<SHORT>(orientation);
        tests::WriteRegistryValue(kKey, u"Default DevMode", REG_BINARY, &devmode, sizeof devmode);
        EXPECT_EQ(page(), size);
    }
    EXPECT_EQ(CreateDCW(nullptr, u"Nobody", nullptr, nullptr), nullptr);
    EXPECT_EQ(GetLastError(), DWORD{ERROR_INVALID_PRINTER_NAME});
    EXPECT_EQ(CreateDCW(nullptr, nullptr, nullptr, nullptr), nullptr);
}

/// What the editor's preview does at every change.
void PaintPreview(HDC screen) {
    for (const int brush : {DKGRAY_BRUSH, WHITE_BRUSH}) {
        const RECT area = {0, 0, 115, 163};
        const HBITMAP bitmap = CreateCompatibleBitmap(screen, 115, 163);
        const HDC memory = CreateCompatibleDC(screen);
        SelectObject(memory, bitmap);
        FillRect(memory, &area, Brush(brush));
        const LOGFONTW asked = FontNamed(u"Arial", 15, 450);
        const HFONT font = CreateFontIndirectW(&asked);
        SelectObject(memory, font);
        SetTextAlign(memory, TA_CENTER | TA_TOP);
        SetTextColor(memory, kRed);
        SetBkColor(memory, kWhite);
        if (brush == WHITE_BRUSH) {
            TextOutW(memory, 52, 76, std::u16string(63, u'W').data(), 63);
        }
        BitBlt(screen, 0, 0, 115, 163, memory, 0, 0, SRCCOPY);
        DeleteDC(memory);
        DeleteObject(bitmap);
        DeleteObject(font);
    }
}

TEST_F(Drawing, EveryCallOfARepaintMayFailWithoutALeak) {
    const Canvas screen(115, 163);
    int calls = 0;
    {
        const platform::FailurePlan counting;
        PaintPreview(screen);
        calls = counting.Calls();
    }
    ASSERT_GT(calls, 20);
    const auto held = platform::LiveObjects();
    for (int call = 1; call <= calls; ++call) {
        const platform::FailurePlan plan(call, ERROR_NOT_ENOUGH_MEMORY);
        PaintPreview(screen);
        EXPECT_TRUE(plan.Fired());
        EXPECT_EQ(platform::LiveObjects(), held) << call;
    }
}

/// Bytes allocated; meaningless under a sanitizer, which reports leaks itself.
std::size_t BytesAllocated() {
    const struct mallinfo2 heap = mallinfo2();
    return heap.uordblks + heap.hblkhd;
}

TEST_F(Drawing, MemoryIsFlatOverTenThousandRepaints) {
    const Canvas screen(115, 163);
    const auto paint = [&](int times) {
        for (int time = 0; time < times; ++time) PaintPreview(screen);
        return BytesAllocated();
    };
    const std::size_t before = paint(500);
    EXPECT_LT(paint(10000), before + 16384);
}

}  // namespace
