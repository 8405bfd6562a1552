#include <climits>
#include <set>

#include "platform/base/heap.h"
#include "platform/faults/failure_points.h"
#include "platform/faults/live_objects.h"
#include "tests/support/document_page.h"
#include "tests/support/plugin_fixture.h"
#include "tests/support/scripted_user.h"
#include "tests/support/test_printer.h"
#include "watermark/watermark_list.h"

using namespace oemui;
using tests::DocumentPage;

namespace {

constexpr DocumentItem kAllItems[] = {kScalingItem, kWatermarkItem, kTransmitOnceItem,
                                      kRenderingIntentItem};

class DocumentFailures : public tests::PluginTest {
protected:
    DocumentFailures() {
        tests::BecomeModel('U');
        WriteFile("Windows/QVRU__WM.INI",
                  "[WatermarkInfo]\r\nNUM=2\r\ndat0=0,<NONE>,,Arial,72\r\n"
                  "dat1=1,Copy,COPY,Arial,72\r\n");
    }
};

/// An item is whole, or it is as it was cleared.
void ExpectItemUsable(const OPTITEM& item) {
    EXPECT_EQ(item.cbSize, 88);
    if (item.pOptType == nullptr) {
        EXPECT_EQ(item.Flags, 0U);
        EXPECT_EQ(item.pName, nullptr);
        return;
    }
    EXPECT_EQ(item.pOptType->Count, 2U);
    EXPECT_NE(item.pOptType->pOptParam, nullptr);
    EXPECT_EQ((item.Flags & OPTIF_HAS_POIEXT) != 0, item.pOIExt != nullptr);
}

/// Builds a printer's first page, with the n-th call of a point failing, or with 0 all. \return the
/// calls made, by name.
std::vector<std::string> BuildWithFailure(const std::string& point, int failing, DWORD error) {
    tests::TestPrinter printer(TEXT("Failures Test"));
    const tests::ScriptedUser user;
    std::vector<std::string> calls;
    {
        DocumentPage page(printer.Name());
        page.With(DMPUB_DUPLEX, 0).With(DMPUB_DEFSOURCE, 0, {"Auto", "Tray 2", "Tray 3"});
        const platform::FailurePlan plan(point, failing, error);
        page.Build();
        calls = plan.Passed();
        for (const DocumentItem place : kAllItems) ExpectItemUsable(page.Own(place));
    }
    const std::string stored = printer.StoredValue(TEXT("WaterMarkList"));
    EXPECT_EQ(stored.size(), stored.empty() ? 0 : sizeof(WatermarkList));
    EXPECT_LE(user.Boxes().size(), 1U);
    return calls;
}

TEST_F(DocumentFailures, PageComesUpWhicheverCallFails) {
    const std::vector<std::string> calls = BuildWithFailure("", INT_MAX, ERROR_GEN_FAILURE);
    ASSERT_GT(calls.size(), 30U);
    const auto open = platform::LiveObjects();
    for (const DWORD error : {DWORD{ERROR_NOT_ENOUGH_MEMORY}, DWORD{ERROR_INSUFFICIENT_BUFFER},
                              DWORD{ERROR_MORE_DATA}}) {
        for (std::size_t failing = 0; failing < calls.size(); ++failing) {
            SCOPED_TRACE(calls[failing]);
            BuildWithFailure("", static_cast<int>(failing) + 1, error);
            ASSERT_EQ(platform::LiveObjects(), open);
        }
        for (const std::string& point : std::set(calls.begin(), calls.end())) {
            SCOPED_TRACE(point + " for ever");
            BuildWithFailure(point, 0, error);
        }
    }
}

TEST_F(DocumentFailures, PageTakesLittleOfTheHeapAndExhaustedLeavesClearedItems) {
    tests::TestPrinter printer(TEXT("Failures Test"));
    DocumentPage page(printer.Name());
    page.Build();
    EXPECT_LE(platform::HeapBytes(page.Params().hOEMHeap), 8192U);
    const platform::FailurePlan plan("HeapAlloc", 0, ERROR_NOT_ENOUGH_MEMORY);
    page.Build();
    for (const DocumentItem place : kAllItems) {
        ExpectItemUsable(page.Own(place));
        EXPECT_EQ(page.Own(place).pOptType, nullptr);
    }
}

}  // namespace
