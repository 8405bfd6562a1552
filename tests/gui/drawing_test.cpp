#include "tests/gui/drawing_fixture.h"

#include <malloc.h>

#include <climits>
#include <vector>

#include "platform/faults/failure_points.h"
#include "platform/faults/live_objects.h"
#include "platform/gui/windows/window.h"
#include "tests/support/test_printer.h"

namespace {

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

/// A window of its own, as a control of a dialog is one.
struct Pane : platform::Window {
    Pane() : Window(platform::WindowKind::kStatic, nullptr, 7) {
        platform::EnsureApplication();
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

/// What the preview does in small: text in a memory bitmap, copied to the screen, and a fill.
void DrawInSmall(HDC screen) {
    const HBITMAP bitmap = CreateCompatibleBitmap(screen, 30, 20);
    const HDC memory = CreateCompatibleDC(screen);
    const HGDIOBJ before = SelectObject(memory, bitmap);
    Write(memory, FontNamed(u"Arial", 16, 200), 2, 4, u"Wg");
    EXPECT_TRUE(BitBlt(screen, 0, 0, 30, 20, memory, 0, 0, SRCCOPY));
    const RECT right = {25, 0, 30, 20};
    FillRect(screen, &right, Brush(DKGRAY_BRUSH));
    SelectObject(memory, before);
    DeleteDC(memory);
    DeleteObject(bitmap);
}

QPointF InkCentre(const QImage& picture) {
    QPointF sum;
    double ink = 0;
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            const int darkness = 255 - qGray(picture.pixel(x, y));
            sum += QPointF(x + 0.5, y + 0.5) * darkness;
            ink += darkness;
        }
    }
    return sum / ink;
}

/// Run at several scales of the screen.
TEST_F(Drawing, AWindowIsDrawnAsFineAsItsScreenAndNothingMoves) {
    Pane pane;
    const Canvas coarse(30, 20);
    DrawInSmall(coarse);
    const HDC context = GetDC(pane.Handle());
    DrawInSmall(context);
    ReleaseDC(pane.Handle(), context);

    const double fineness = pane.Widget()->devicePixelRatioF();
    const QImage& fine = pane.Backing();
    ASSERT_EQ(fine.size(), QSize(30, 20) * fineness);
    EXPECT_EQ(fine.scaled(30, 20).scaled(fine.size()) == fine, fineness == 1) << "not blown up";
    EXPECT_LT((InkCentre(fine) / fineness - InkCentre(coarse.Pixels())).manhattanLength(), 0.3);
}

using PrinterContext = tests::MachineTest;

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
