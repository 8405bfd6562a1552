#include <algorithm>
#include <array>
#include <cstring>

#include "tests/sessions/dice.h"
#include "tests/sessions/session.h"
#include "watermark/watermark_colors.h"

namespace sessions {
namespace {

using oemui::WatermarkList;
using oemui::WatermarkRecord;

constexpr auto kNames = std::to_array<LPCWSTR>({TEXT("Copy"),
                                                TEXT("Draft"),
                                                TEXT("draft"),
                                                TEXT("DRAFT 2"),
                                                TEXT("Internal Only"),
                                                TEXT("Top Secret"),
                                                TEXT("Watermark"),
                                                TEXT("Watermark - #1"),
                                                TEXT("Watermark - #2"),
                                                TEXT("Watermark - #10"),
                                                TEXT("co-op"),
                                                TEXT("coop"),
                                                TEXT("Zebra"),
                                                TEXT("a"),
                                                TEXT("B"),
                                                TEXT("10"),
                                                TEXT("9"),
                                                TEXT("<NONE>"),
                                                TEXT(" leading"),
                                                TEXT("\x00E9t\x00E9"),
                                                TEXT("Stra\x00DF"),
                                                TEXT("exactly twenty chars"),
                                                TEXT("more than twenty characters"),
                                                TEXT("")});
constexpr auto kTexts = std::to_array<LPCWSTR>(
    {TEXT("COPY"), TEXT("DRAFT"), TEXT("Internal Only"), TEXT("x"), TEXT(""), TEXT("  "),
     TEXT("a text of sixty-three characters, the longest that is ever kept")});
constexpr auto kFaces = std::to_array<LPCWSTR>(
    {TEXT("Arial"), TEXT("Courier New"), TEXT("Times New Roman"), TEXT("No Such Face"), TEXT("")});
constexpr auto kOddNumbers = std::to_array<INT32>(
    {0, -1, 1, 7, 8, 200, 201, 999, 1000, -180, 180, 181, -999, -1000, INT32_MAX, INT32_MIN});
constexpr auto kOddCounts = std::to_array<INT32>({-1, 0, 1, 2, 15, 16, 17, 1000, INT32_MAX});

INT32 Odd(Dice* dice) {
    return dice->Pick(kOddNumbers);
}

/// A record whose fields hold what no editor wrote.
void Spoil(Dice* dice, WatermarkRecord* record) {
    if (dice->Chance(50)) record->PointSize = Odd(dice);
    if (dice->Chance(30)) record->AngleDegrees = Odd(dice);
    if (dice->Chance(30)) record->AngleKind = static_cast<UINT32>(Odd(dice));
    if (dice->Chance(30)) record->ColorIndex = static_cast<UINT32>(Odd(dice));
    if (dice->Chance(30)) record->PositionKind = static_cast<UINT32>(Odd(dice));
    if (dice->Chance(30)) record->OffsetX = Odd(dice);
    if (dice->Chance(30)) record->OffsetY = Odd(dice);
    if (dice->Chance(30)) record->Bold = static_cast<BYTE>(Odd(dice));
    if (dice->Chance(30)) record->InUse = static_cast<UINT32>(dice->Below(3));
    if (dice->Chance(20)) std::ranges::fill(record->Name, TEXT('n'));
    if (dice->Chance(20)) std::ranges::fill(record->Text, TEXT('t'));
    if (dice->Chance(10)) std::ranges::fill(record->FaceName, TEXT('f'));
}

WatermarkList MakeWellFormed(Dice* dice) {
    WatermarkList list{};
    list.Count = dice->Chance(15) ? oemui::kWatermarkCapacity : dice->Between(1, 8);
    list.Selected = dice->Between(0, list.Count - 1);
    list.NoneSelected = list.Selected == 0 ? 1 : 0;
    list.Orientation = dice->Below(3);
    UINT32 index = 0;
    for (WatermarkRecord& entry : oemui::ListedEntries(list)) {
        entry = MakeRecord(dice);
        entry.Index = index++;
    }
    oemui::CopyText(list.Entries[0].Name, TEXT("<NONE>"));
    return list;
}

void Spoil(Dice* dice, WatermarkList* list) {
    for (WatermarkRecord& entry : list->Entries) {
        if (dice->Chance(50)) Spoil(dice, &entry);
    }
    if (dice->Chance(60)) list->Count = dice->Pick(kOddCounts);
    if (dice->Chance(40)) list->Selected = Odd(dice);
}

}  // namespace

WatermarkRecord MakeRecord(Dice* dice) {
    WatermarkRecord record{};
    record.InUse = 1;
    oemui::CopyText(record.Name, oemui::TextView(dice->Pick(kNames)));
    oemui::CopyText(record.Text, oemui::TextView(dice->Pick(kTexts)));
    oemui::CopyText(record.FaceName, oemui::TextView(dice->Pick(kFaces)));
    record.PointSize = dice->Between(oemui::kMinimumPointSize, oemui::kMaximumPointSize);
    record.Bold = static_cast<BYTE>(dice->Below(2));
    record.Italic = static_cast<BYTE>(dice->Below(2));
    record.ColorIndex = dice->Below(oemui::kWatermarkColors.size());
    oemui::SetColorFromIndex(&record, record.ColorIndex);
    record.AngleKind = dice->Below(4);
    record.AngleDegrees = dice->Between(-oemui::kLargestUserAngle, oemui::kLargestUserAngle);
    record.PositionKind = dice->Below(2);
    if (record.PositionKind != 0) {
        record.OffsetX = dice->Between(-oemui::kLargestOffset, oemui::kLargestOffset);
        record.OffsetY = dice->Between(-oemui::kLargestOffset, oemui::kLargestOffset);
    }
    return record;
}

std::string MakeStoredList(Dice* dice) {
    if (dice->Chance(10)) return {};
    WatermarkList list = MakeWellFormed(dice);
    const bool isForeign = dice->Chance(25);
    if (isForeign) Spoil(dice, &list);
    std::string bytes(reinterpret_cast<const char*>(&list), sizeof list);
    if (isForeign && dice->Chance(20)) bytes.resize(dice->Below(sizeof list + 100));
    return bytes;
}

}  // namespace sessions
