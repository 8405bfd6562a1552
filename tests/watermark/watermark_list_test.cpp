#include "watermark/watermark_list.h"

#include <climits>
#include <cstring>

#include "tests/support/plugin_fixture.h"
#include "watermark/damaged_list.h"
#include "watermark/watermark_codec.h"

using namespace oemui;
using tests::Narrow;
using tests::Wide;

namespace {

WatermarkRecord FilledWith(int byte) {
    WatermarkRecord record;
    std::memset(static_cast<void*>(&record), byte, sizeof record);
    return record;
}

WatermarkRecord Parsed(const std::string& line, int before = 0) {
    WatermarkRecord record = FilledWith(before);
    ParseDefaultWatermarkLine(Wide(line), &record);
    return record;
}

/// The record's fields in the order of a default line, and the colour's index behind them.
std::string Readable(const WatermarkRecord& record) {
    std::string line = std::to_string(record.Index);
    for (const TextView text : {TextIn(record.Name), TextIn(record.Text), TextIn(record.FaceName)})
        line += "," + Narrow(text);
    for (const INT32 number : std::initializer_list<INT32>{
             record.PointSize, record.Bold, record.Italic, record.Red, record.Green, record.Blue,
             static_cast<INT32>(record.AngleKind), record.AngleDegrees,
             static_cast<INT32>(record.PositionKind), record.OffsetX, record.OffsetY,
             static_cast<INT32>(record.ColorIndex), static_cast<INT32>(record.InUse)})
        line += "," + std::to_string(number);
    return line;
}

TEST(ParseIntegerTest, ReadsDigitsAndSkipsEverythingElse) {
    struct Row {
        const char* text;
        int radix;
        INT32 value;
    };
    constexpr Row kRows[] = {
        {" 7 2", 10, 72}, {"-30", 10, 30}, {"1e3", 10, 13},       {"", 10, 0},
        {"fF", 16, 255},  {"19", 8, 1},    {"4294967298", 10, 2}, {"2147483648", 10, INT_MIN},
        {"z", 36, 35},
    };
    for (const Row& row : kRows) {
        EXPECT_EQ(ParseInteger(Wide(row.text), row.radix), row.value) << row.text;
    }
    EXPECT_EQ(ParseInteger(TextView(TEXT("1\0002"), 3), 10), 1);
    EXPECT_EQ(ParseInteger(Wide(std::string(254, '0') + "123"), 10), 1);
}

TEST(DefaultWatermarkLineTest, FifteenFieldsInOrder) {
    const WatermarkRecord record =
        Parsed("3, Copy,COPY ,Arial,72,1,2,300,4,255,257,-45,1,-36,18,more,,", 0x5A);
    EXPECT_EQ(Readable(record), "3, Copy,COPY ,Arial,72,1,2,44,4,255,1,45,1,36,18,1515870810,1");
}

TEST(DefaultWatermarkLineTest, MissingFieldsAreEmptyAndLongTextsAreCut) {
    for (const char* line : {"7", "7,"})
        EXPECT_EQ(Readable(Parsed(line)), "7,,,,0,0,0,0,0,0,0,0,0,0,0,0,1");
    EXPECT_EQ(Readable(Parsed("", 0x5A)), "0,,,,0,0,0,0,0,0,0,0,0,0,0,1515870810,1");
    const std::string word(100, 'w');
    EXPECT_EQ(Readable(Parsed("1," + word + "," + word + "," + word + ",12")),
              "1," + word.substr(0, 31) + "," + word.substr(0, 63) + "," + word.substr(0, 31) +
                  ",12,0,0,0,0,0,0,0,0,0,0,0,1");
}

TEST(CopyWatermarkTest, CopiesEveryFieldAndNothingBehindTheTerminators) {
    const WatermarkRecord source = Parsed("3,Copy,COPY,Arial,72,1,1,10,20,30,3,45,1,36,18");
    WatermarkRecord copy = FilledWith(0x5A);
    CopyWatermark(&copy, source);
    EXPECT_EQ(copy.Name[5], FilledWith(0x5A).Name[5]);
    EXPECT_EQ(copy.Padding[0], 0x5A);
    WatermarkRecord expected = source;
    for (WatermarkRecord* record : {&copy, &expected}) {
        std::fill(record->Name + 5, std::end(record->Name), WCHAR{0});
        std::fill(record->Text + 5, std::end(record->Text), WCHAR{0});
        std::fill(record->FaceName + 6, std::end(record->FaceName), WCHAR{0});
        std::fill(std::begin(record->Padding), std::end(record->Padding), BYTE{0});
    }
    EXPECT_EQ(std::memcmp(&copy, &expected, sizeof copy), 0);
}

TEST(SanitizeWatermarkListTest, HeaderAndTextsAreMadeSafe) {
    struct Row {
        INT32 count;
        INT32 selected;
        INT32 safeCount;
        INT32 safeSelected;
    };
    constexpr Row kRows[] = {{0, 5, 0, 0},  {16, 15, 16, 15},   {3, 3, 3, 0},
                             {3, -1, 3, 0}, {3, 2, 3, 2},       {17, 4, 5, 4},
                             {-1, 5, 5, 0}, {1 << 30, 0, 5, 0}, {INT_MIN, 1, 5, 1}};
    WatermarkList list = {};
    list.Entries[4].InUse = list.Entries[1].InUse = 1;
    for (const Row& row : kRows) {
        list.Count = row.count;
        list.Selected = row.selected;
        SanitizeWatermarkList(&list);
        EXPECT_EQ(list.Count, row.safeCount) << row.count;
        EXPECT_EQ(list.Selected, row.safeSelected) << row.count;
    }
    for (WatermarkRecord& record : list.Entries) record = FilledWith(0x41);
    SanitizeWatermarkList(&list);
    for (const WatermarkRecord& record : list.Entries) {
        EXPECT_EQ(TextIn(record.Name).size(), 31U);
        EXPECT_EQ(TextIn(record.Text).size(), 63U);
        EXPECT_EQ(TextIn(record.FaceName).size(), 31U);
    }
}

}  // namespace
