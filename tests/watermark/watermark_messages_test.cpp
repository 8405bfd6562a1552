#include "common/current_printer.h"
#include "platform/faults/failure_points.h"
#include "resources/resource_ids.h"
#include "tests/support/plugin_fixture.h"
#include "tests/support/scripted_user.h"
#include "tests/support/test_printer.h"
#include "watermark/default_watermarks.h"
#include "watermark/watermark_angle.h"
#include "watermark/watermark_store.h"

using namespace oemui;
using tests::ShownBox;

namespace {

class WatermarkMessages : public tests::PluginTest {
protected:
    tests::TestPrinter printer_{TEXT("Messages Test")};
    tests::ScriptedUser user_;
};

TEST_F(WatermarkMessages, UnopenablePrinterIsTold) {
    WritePrinterWatermarkList(TEXT("No Such Printer"), {}, IDS_LIST_NOT_STORED);
    InitPrinterWatermarkList(TEXT("No Such Printer"));
    const ShownBox expected = {"Failed to open printer.", "Error"};
    EXPECT_EQ(user_.Boxes(), (tests::ShownBoxes{expected, expected}));
}

TEST_F(WatermarkMessages, RefusedWriteIsToldAndKeepsTheStoredList) {
    printer_.StoreValue(TEXT("WaterMarkList"), "old");
    const platform::FailurePlan refused("SetPrinterDataW", 0, ERROR_ACCESS_DENIED);
    WritePrinterWatermarkList(printer_.Name().c_str(), {}, IDS_LIST_NOT_STORED);
    InitPrinterWatermarkList(printer_.Name().c_str());
    EXPECT_EQ(user_.Boxes(), (tests::ShownBoxes{{"Failed to set data in registry.", "Error"},
                                                {"Failed to load default watermark.", "Error"}}));
    EXPECT_EQ(printer_.StoredValue(TEXT("WaterMarkList")), "old");
}

TEST_F(WatermarkMessages, DiagonalFollowsThePrintersPage) {
    SetCurrentPrinter(printer_.Name().c_str());
    // A4: atan2(297, 210).
    EXPECT_NEAR(DiagonalAngleDegrees(), 54.7, 0.1);
    for (const char* step : {"OpenPrinterW", "CreateDCW"}) {
        const platform::FailurePlan failing(step, 0, ERROR_NOT_ENOUGH_MEMORY);
        EXPECT_EQ(DiagonalAngleDegrees(), 45.0) << step;
    }
}

}  // namespace
