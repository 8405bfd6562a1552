#include "wmeditor/watermark_preview.h"

#include "tests/support/plugin_fixture.h"

namespace oemui {
namespace {

class Preview : public tests::PluginTest {};

TEST_F(Preview, PagesKeepTheirProportions) {
    struct Row {
        PaperSize paper;
        INT32 scale, width, height;
    };
    constexpr Row kPages[] = {
        {{2100, 2970}, 14, 115, 163},   // A4
        {{2159, 2794}, 15, 126, 164},   // Letter
        {{2970, 4200}, 10, 116, 165},   // A3
        {{2970, 2100}, 14, 163, 115},   // wider than long
        {{10, 10}, 4318, 170, 170},     // one millimetre
        {{5, 2970}, 14, 0, 163},        // less than a whole millimetre wide
        {{2100, 500000}, 0, 0, 0},      // fifty metres
        {{INT_MAX, INT_MAX}, 0, 0, 0},  // without end
        {{0, 2970}, 14, 115, 163},      // without a size: A4
        {{INT_MIN, INT_MIN}, 14, 115, 163},
        {{9, 9}, 14, 115, 163},
    };
    for (const Row& row : kPages) {
        SCOPED_TRACE(std::to_string(row.paper.Width) + "x" + std::to_string(row.paper.Length));
        for (const UINT32 orientation : {1u, 2u, 3u}) {
            const auto page =
                ScalePreviewPage(row.paper, static_cast<PageOrientation>(orientation));
            EXPECT_EQ(page.scale, row.scale);
            EXPECT_EQ(page.width, orientation == 2 ? row.height : row.width);
            EXPECT_EQ(page.height, orientation == 2 ? row.width : row.height);
        }
    }
}

TEST_F(Preview, TextTurnsAboutThePagesCentre) {
    struct Row {
        INT32 degrees, offsetX, offsetY;
        LONG x, y;
    };
    constexpr Row kPlaces[] = {
        {0, 0, 0, 57, 74},   {45, 0, 0, 52, 76},  {90, 0, 0, 50, 81},
        {180, 0, 0, 57, 88}, {-90, 0, 0, 64, 81}, {0, 72, 0, 71, 74},
        {0, 0, -72, 57, 88}, {0, 5, 5, 57, 74},   {0, -72, 0, 43, 74},
    };
    for (const Row& row : kPlaces) {
        WatermarkRecord record{};
        record.AngleDegrees = row.degrees;
        record.OffsetX = row.offsetX;
        record.OffsetY = row.offsetY;
        const POINT origin = ComputeTextOrigin({0, 0, 115, 163}, 15, 14, record);
        EXPECT_EQ(origin.x, row.x) << row.degrees << " " << row.offsetX;
        EXPECT_EQ(origin.y, row.y) << row.degrees << " " << row.offsetY;
    }
}

TEST_F(Preview, WithoutAScaleOffsetsCountInTwentieths) {
    WatermarkRecord record{};
    record.OffsetX = 2;
    record.OffsetY = 1;
    // 31 pixels: one and 11 left, rounded up; 30: 10 left, rounded down.
    const POINT origin = ComputeTextOrigin({0, 0, 31, 30}, 3, 0, record);
    EXPECT_EQ(origin.x, 15 + 2 * 2);
    EXPECT_EQ(origin.y, 15 - 1 - 1);
}

TEST_F(Preview, FontsFollowThePointsNotTheScale) {
    constexpr std::pair<INT32, LONG> kHeights[] = {{INT_MIN, 3}, {8, 3},         {12, 3},
                                                   {72, 15},     {200, 42},      {9825, 2047},
                                                   {9830, 2048}, {INT_MAX, 2048}};
    for (const auto& [points, height] : kHeights) {
        WatermarkRecord record{};
        record.PointSize = points;
        EXPECT_EQ(MakePreviewFont(record).lfHeight, height) << points;
    }
}

TEST_F(Preview, AnyRecordIsCalculatedInThirtyTwoBits) {
    WatermarkRecord record{};
    for (const INT32 extreme : {INT_MIN, INT_MIN + 1, -999, INT_MAX}) {
        record.AngleDegrees = record.OffsetX = record.OffsetY = extreme;
        for (const INT32 scale : {0, 14, 4318}) {
            static_cast<void>(ComputeTextOrigin({0, 0, 115, 163}, INT_MAX / 5, scale, record));
        }
        EXPECT_EQ(MakePreviewFont(record).lfHeight, 3);
    }
    record = {};
    record.OffsetX = 0x10000000;  // times 16 leaves nothing of it
    EXPECT_EQ(ComputeTextOrigin({0, 0, 100, 100}, 0, 16, record).x, 50);
}

}  // namespace
}  // namespace oemui
