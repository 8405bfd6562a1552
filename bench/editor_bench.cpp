// The watermark editor: a repaint of its preview, a keystroke, its opening.

#include <benchmark/benchmark.h>
#include <windows.h>

#include <QFile>
#include <QFontDatabase>

#include <algorithm>
#include <string>

#include "bench/limits.h"
#include "common/current_printer.h"
#include "platform/faults/live_objects.h"
#include "platform/gui/windows/application.h"
#include "resources/resource_ids.h"
#include "tests/support/plugin_fixture.h"
#include "tests/support/scripted_user.h"
#include "watermark/watermark_angle.h"
#include "wmeditor/editor_dialog.h"
#include "wmeditor/watermark_preview.h"

namespace {

using oemui::WatermarkList;
using oemui::WatermarkRecord;

WatermarkRecord LongDiagonal() {
    WatermarkRecord record{};
    record.InUse = 1;
    oemui::CopyText(record.Name, TEXT("Diagonal"));
    oemui::CopyText(record.Text,
                    TEXT("THE QUICK BROWN FOX JUMPS OVER THE LAZY DOG AND RUNS AWAY AGAIN"));
    oemui::CopyText(record.FaceName, TEXT("Arial"));
    record.PointSize = 72;
    record.AngleKind = oemui::StoredValue(oemui::AngleKind::kUserDefine);
    record.AngleDegrees = 45;
    return record;
}

WatermarkList FullList() {
    WatermarkList list{};
    list.Count = oemui::kWatermarkCapacity;
    list.Selected = 1;
    list.Orientation = 1;
    for (WatermarkRecord& entry : list.Entries) entry = LongDiagonal();
    return list;
}

/// Runs a piece of work in an open editor.
template <typename Work>
void InEditor(Work work) {
    tests::LoadPlugin();
    oemui::PreviewPaperSize = {2100, 2970};
    WatermarkList list = FullList();
    tests::ScriptedUser user;
    user.Open(IDD_WATERMARK_EDITOR, oemui::WatermarkEditorProc, reinterpret_cast<LPARAM>(&list),
              [&] { work(user); });
}

void RepaintPreview(benchmark::State& state) {
    InEditor([&](const tests::ScriptedUser& user) {
        const WatermarkRecord record = LongDiagonal();
        constexpr auto kPortrait = oemui::PageOrientation::kPortrait;
        oemui::PaintWatermarkPreview(user.Dialog(), record, kPortrait);
        const auto before = platform::LiveObjects();
        for (auto _ : state) oemui::PaintWatermarkPreview(user.Dialog(), record, kPortrait);
        if (platform::LiveObjects() != before) state.SkipWithError("a repaint leaves handles open");
    });
}

/// The fill, the text if any and the copy of one control, with the platform's calls and no more.
void DrawBare(HWND control, HDC reference, int brush, const WatermarkRecord* record) {
    RECT area{};
    ::GetClientRect(control, &area);
    const HDC target = ::GetDC(control);
    const HBITMAP bitmap = ::CreateCompatibleBitmap(reference, area.right, area.bottom);
    const HDC memory = ::CreateCompatibleDC(target);
    ::SelectObject(memory, bitmap);
    ::FillRect(memory, &area, static_cast<HBRUSH>(::GetStockObject(brush)));
    HFONT font = nullptr;
    if (record != nullptr) {
        const LOGFONTW request = oemui::MakePreviewFont(*record);
        font = ::CreateFontIndirectW(&request);
        ::SelectObject(memory, font);
        ::SetTextAlign(memory, TA_CENTER | TA_TOP);
        ::SetTextColor(memory, RGB(0, 0, 0));
        ::SetBkColor(memory, RGB(255, 255, 255));
        ::TextOutW(memory, 52, 76, record->Text, 63);
    }
    ::BitBlt(target, 0, 0, area.right, area.bottom, memory, 0, 0, SRCCOPY);
    ::DeleteDC(memory);
    ::DeleteObject(bitmap);
    if (font != nullptr) ::DeleteObject(font);
    ::ReleaseDC(control, target);
}

void DrawPreviewBare(benchmark::State& state) {
    InEditor([&](const tests::ScriptedUser& user) {
        const WatermarkRecord record = LongDiagonal();
        const HWND area = ::GetDlgItem(user.Dialog(), IDC_PREVIEW_AREA);
        const HWND page = ::GetDlgItem(user.Dialog(), IDC_PREVIEW_PAGE);
        for (auto _ : state) {
            PAINTSTRUCT paint{};
            const HDC reference = ::BeginPaint(user.Dialog(), &paint);
            DrawBare(area, reference, DKGRAY_BRUSH, nullptr);
            DrawBare(page, reference, WHITE_BRUSH, &record);
            ::EndPaint(user.Dialog(), &paint);
        }
    });
}

void TypeCharacter(benchmark::State& state) {
    InEditor([&](tests::ScriptedUser& user) {
        for (auto _ : state) {
            // Selecting what is there is part of the typing, so one key is a little less than this.
            if (!user.TypeText(IDC_TEXT, TEXT("X"))) state.SkipWithError("the edit takes no key");
        }
    });
}

/// Two hundred families that differ in their names alone, made from one installed font.
bool InstallFamilies(int first, int count) {
    QFile file(QStringLiteral("/usr/share/fonts/truetype/liberation/LiberationSans-Regular.ttf"));
    if (!file.open(QIODevice::ReadOnly)) return false;
    const QByteArray original = file.readAll();
    const auto replace = [](QByteArray* bytes, const QString& from, const QString& to) {
        QByteArray wideFrom;
        QByteArray wideTo;
        for (const QChar c : from) wideFrom.append('\0').append(c.toLatin1());
        for (const QChar c : to) wideTo.append('\0').append(c.toLatin1());
        bytes->replace(wideFrom, wideTo);
        bytes->replace(from.toLatin1(), to.toLatin1());
    };
    for (int number = first; number < count; ++number) {
        QByteArray copy = original;
        replace(&copy, QStringLiteral("Liberation Sans"),
                QStringLiteral("Bench Fam %1 X").arg(1000 + number));
        if (QFontDatabase::addApplicationFontFromData(copy) < 0) return false;
    }
    return true;
}

void OpenEditor(benchmark::State& state) {
    platform::EnsureApplication();
    static int installed = 0;
    const int wanted = static_cast<int>(state.range(0));
    if (installed < wanted && !InstallFamilies(installed, wanted)) {
        state.SkipWithError("the font to make families from is not installed");
        return;
    }
    installed = std::max(installed, wanted);
    LRESULT families = 0;
    for (auto _ : state) {
        InEditor([&](const tests::ScriptedUser& user) {
            families = ::SendDlgItemMessageW(user.Dialog(), IDC_TYPEFACE, CB_GETCOUNT, 0, 0);
        });
    }
    state.counters["families"] = static_cast<double>(families);
}

BENCHMARK(DrawPreviewBare)->Unit(benchmark::kMicrosecond);
BENCHMARK(RepaintPreview)->Unit(benchmark::kMicrosecond);
BENCHMARK(TypeCharacter)->Unit(benchmark::kMicrosecond);
BENCHMARK(OpenEditor)->Arg(0)->Arg(100)->Arg(200)->Unit(benchmark::kMillisecond);

const bench::DeclareLimit repaint({"RepaintPreview", "DrawPreviewBare", 1.25});
const bench::DeclareLimit repaintTime({"RepaintPreview", nullptr, 5e6});
const bench::DeclareLimit keystroke({"TypeCharacter", nullptr, 16.7e6});
const bench::DeclareLimit open({"OpenEditor", nullptr, 150e6});

}  // namespace
