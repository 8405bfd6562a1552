#include "docprops/document_items.h"

#include <climits>
#include <cstring>
#include <sstream>

#include "common/current_printer.h"
#include "docprops/document_callback.h"
#include "tests/support/document_page.h"
#include "tests/support/plugin_fixture.h"
#include "tests/support/test_printer.h"

using namespace oemui;
using tests::DocumentPage;
using tests::Narrow;

namespace {

constexpr DocumentItem kAllItems[] = {kScalingItem, kWatermarkItem, kTransmitOnceItem,
                                      kRenderingIntentItem};

class DocumentItems : public tests::PluginTest {
protected:
    ~DocumentItems() override { WriteFile("Windows/QVRT__WM.INI", ""); }

    tests::TestPrinter printer_{TEXT("Items Test")};
    DocumentPage page_{printer_.Name()};
};

std::string Shown(LPCWSTR text) {
    return text == nullptr ? "" : Narrow(text);
}

/// What the driver shows of an item: name, type, choices with icon and highest value, selection,
/// flags, help topic.
std::string Shown(const OPTITEM& item) {
    std::ostringstream shown;
    shown << Shown(item.pName) << " type " << int{item.pOptType->Type};
    for (WORD i = 0; i < item.pOptType->Count; ++i) {
        const OPTPARAM& choice = item.pOptType->pOptParam[i];
        shown << " [" << Shown(choice.pData) << " " << choice.IconID << " " << choice.lParam << "]";
    }
    shown << " shows " << item.Sel << std::hex << " flags " << item.Flags << std::dec << " help "
          << item.HelpIndex;
    return shown.str();
}

TEST_F(DocumentItems, FourItemsAsTheDriverShowsThem) {
    page_.Build();
    constexpr const char* kShown[] = {
        "Scaling type 2 [% 0 0] [ 20 200] shows 100 flags 10009 help 1212",
        "Watermark type 6 [Enabled 64008 0] [Disabled 64007 0] shows 1 flags 1040d help 1114",
        "Transmit Once type 6 [Off 64007 0] [On 64008 0] shows 0 flags 10029 help 1115",
        "Rendering Intent type 6 [Saturation 0 0] [Perceptual 0 0] shows 0 flags 10000 help 1123"};
    for (const DocumentItem place : kAllItems) {
        const OPTITEM& item = page_.Own(place);
        EXPECT_EQ(Shown(item), kShown[place]);
        EXPECT_EQ(item.cbSize + item.pOptType->cbSize + item.pOptType->pOptParam[1].cbSize +
                      item.pOIExt->cbSize,
                  88 + 48 + 48 + 56);
        EXPECT_EQ(item.Level, 1);
        EXPECT_TRUE(Shown(item.pOIExt->pHelpFile).ends_with("\\3\\QVRT_HLP.HLP"));
    }
    const EXTPUSH* button = page_.Own(kWatermarkItem).pExtPush;
    ASSERT_NE(button, nullptr);
    EXPECT_EQ(Shown(button->pTitle), "Edit");
    const LPCWSTR title = button->pTitle;
    DocumentPage another(printer_.Name());
    another.Build();
    EXPECT_EQ(title, another.Own(kWatermarkItem).pExtPush->pTitle) << "outlives its page";
    EXPECT_EQ(button->cbSize, 64);
    EXPECT_EQ(button->IconID, 1002U);
    EXPECT_EQ(page_.Params().OEMCUIPCallback, DocumentPropertyCallback);
    page_.Params().pPrinterName[0] = 0;  // the driver's text, good only while its page is there
    EXPECT_EQ(Narrow(CurrentPrinterName()), "Items Test");
}

TEST_F(DocumentItems, DevmodeDecidesWhatIsSelected) {
    // Scaling, copies, collation; scaling and "transmit once" as shown, flags of the latter.
    constexpr int kRows[][6] = {{19, 1, 1, 100, 0, 0x10029},
                                {20, 2, 1, 20, 1, 0x10009},
                                {200, 2, 0, 200, 0, 0x10009},
                                {201, 0, 1, 100, 0, 0x10029},
                                {-1, -1, 1, 100, 0, 0x10029}};
    PrivateDevmode& devmode = page_.privateDevmode;
    for (const auto& [scaling, copies, collate, shownScaling, shownOnce, flags] : kRows) {
        SCOPED_TRACE(scaling);
        devmode.Scaling = static_cast<UINT32>(scaling);
        devmode.TransmitOnce = 1;
        page_.publicDevmode.dmCopies = static_cast<SHORT>(copies);
        page_.publicDevmode.dmCollate = static_cast<SHORT>(collate);
        page_.Build();
        EXPECT_EQ(devmode.Scaling, static_cast<UINT32>(shownScaling));
        EXPECT_EQ(page_.Own(kScalingItem).Sel, shownScaling);
        EXPECT_EQ(devmode.TransmitOnce, static_cast<UINT32>(shownOnce));
        EXPECT_EQ(page_.Own(kTransmitOnceItem).Sel, shownOnce);
        EXPECT_EQ(page_.Own(kTransmitOnceItem).Flags, static_cast<DWORD>(flags));
    }
    for (const UINT32 intent : {0U, 1U, 2U, 3U}) {
        devmode.RenderingIntent = devmode.WatermarkOn = intent;
        page_.Build();
        EXPECT_EQ(page_.Own(kRenderingIntentItem).Sel, intent == 2 ? 1 : 0);
        EXPECT_EQ(page_.Own(kWatermarkItem).Sel, intent == 0 ? 1 : 0);
        EXPECT_EQ(devmode.RenderingIntent, intent);
    }
}

TEST_F(DocumentItems, FirstPageOfAPrinterStoresTheDefaultList) {
    WriteFile("Windows/QVRT__WM.INI",
              "[WatermarkInfo]\r\nNUM=1\r\ndat0=0,<NONE>,,Arial,72,0,0,0,0,0,0,0,0,0,0");
    page_.Build();
    EXPECT_EQ(printer_.StoredValue(TEXT("WaterMarkList")).size(), 4816U);
    EXPECT_EQ(Narrow(TextIn(page_.privateDevmode.Watermark.Name)), "<NONE>");

    WriteFile("Windows/QVRT__WM.INI", "");
    // An index that cannot be one counts as none.
    for (const UINT32 index : {15U, 16U, 0U}) {
        page_.privateDevmode.WatermarkIndex = index;
        CopyText(page_.privateDevmode.Watermark.Name, TEXT("Mine"));
        page_.Build();
        EXPECT_EQ(Narrow(TextIn(page_.privateDevmode.Watermark.Name)),
                  index == 15 ? "Mine" : "<NONE>");
        EXPECT_EQ(page_.privateDevmode.WatermarkIndex, index);
    }
}

TEST_F(DocumentItems, ADamagedListIsNotReplacedByTheDefaults) {
    WatermarkList list = {};
    list.Entries[0].InUse = list.Entries[1].InUse = 1;
    CopyText(list.Entries[0].Name, TEXT("Kept"));
    for (const INT32 count : {2 | (1 << 4), 2 | (1 << 30), INT_MIN | 2}) {
        list.Count = count;
        const std::string bytes(reinterpret_cast<const char*>(&list), sizeof list);
        printer_.StoreValue(TEXT("WaterMarkList"), bytes);
        page_.Build();
        EXPECT_EQ(printer_.StoredValue(TEXT("WaterMarkList")), bytes);
        EXPECT_EQ(Narrow(TextIn(page_.privateDevmode.Watermark.Name)), "Kept");
    }
}

TEST_F(DocumentItems, UnopenablePrinterLeavesTheDevmodesWatermark) {
    DocumentPage page;
    CopyText(page.privateDevmode.Watermark.Name, TEXT("Mine"));
    page.Build();
    EXPECT_EQ(Narrow(TextIn(page.privateDevmode.Watermark.Name)), "Mine");
    const OPTITEM& item = page.Own(kWatermarkItem);
    EXPECT_EQ(item.Flags, 0x1040DU);
    ASSERT_NE(item.pOIExt, nullptr);
    EXPECT_EQ(item.pOIExt->pHelpFile, nullptr);
}

TEST_F(DocumentItems, WithoutPrivateDevmodeOnlyTheDriversItemsAreAdjusted) {
    page_.With(DMPUB_ICMMETHOD, 0).With(DMPUB_ICMINTENT, 1).With(DMPUB_DUPLEX, 1);
    page_.Setting("DuplexUnit", "No");
    page_.Driver(DMPUB_ICMMETHOD).Flags = 0x9;
    page_.MakeRoom();
    std::memset(static_cast<void*>(&page_.Own(kWatermarkItem)), 0x5A, sizeof(OPTITEM));
    OEMCUIPPARAM& params = page_.Params();
    params.pOEMDM = nullptr;
    EXPECT_EQ(BuildDocumentItems(OEMCUIP_DOCPROP, &params), S_OK);

    // Only the size is left of each.
    constexpr char kCleared[sizeof(OPTITEM)] = {sizeof(OPTITEM)};
    for (const DocumentItem place : kAllItems) {
        EXPECT_EQ(std::string_view(reinterpret_cast<const char*>(&page_.Own(place)), 88),
                  std::string_view(kCleared, 88));
    }
    EXPECT_EQ(page_.Driver(DMPUB_ICMMETHOD).Flags, static_cast<DWORD>(OPTIF_HIDE));
    EXPECT_EQ(page_.Driver(DMPUB_ICMMETHOD).Sel, 2);
    EXPECT_EQ(page_.publicDevmode.dmICMMethod, 3U);
    EXPECT_EQ(page_.Driver(DMPUB_ICMINTENT).Flags, static_cast<DWORD>(OPTIF_HIDE));
    EXPECT_EQ(page_.Driver(DMPUB_ICMINTENT).Sel, 1);
    EXPECT_EQ(page_.Driver(DMPUB_DUPLEX).Flags, static_cast<DWORD>(OPTIF_DISABLED));
}

TEST_F(DocumentItems, NothingIsBuiltBeyondTheRoomGiven) {
    page_.MakeRoom(3);
    OEMCUIPPARAM& params = page_.Params();
    params.cOEMOptItems = 2;
    EXPECT_EQ(BuildDocumentItems(OEMCUIP_DOCPROP, &params), S_OK);
    EXPECT_EQ(Shown(page_.Own(kWatermarkItem).pName), "Watermark");
    EXPECT_EQ(page_.Own(kTransmitOnceItem).cbSize, 0);
}

}  // namespace
