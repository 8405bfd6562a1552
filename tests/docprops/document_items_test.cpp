#include "docprops/document_items.h"

#include <cstring>

#include "common/page_state.h"
#include "docprops/document_callback.h"
#include "tests/support/document_page.h"
#include "tests/support/plugin_fixture.h"
#include "tests/support/test_printer.h"

using namespace oemui;
using tests::DocumentPage;
using tests::Narrow;

namespace {

class DocumentItems : public tests::PluginTest {
protected:
    ~DocumentItems() override { tests::WriteIniFile(TEXT("QVRT__WM.INI"), ""); }

    tests::TestPrinter printer_{TEXT("Items Test")};
    DocumentPage page_{printer_.Name()};
};

struct ShownChoice {
    const char* text;
    ULONG_PTR icon;
    LPARAM highest;
};

struct ShownItem {
    const char* name;
    BYTE type;
    ShownChoice choices[2];
    LONG selection;
    DWORD flags;
    DWORD help;
};

constexpr ShownItem kShown[] = {
    {"Scaling", TVOT_UDARROW, {{"%", 0, 0}, {"", 20, 200}}, 100, 0x10009, 1212},
    {"Watermark", TVOT_COMBOBOX, {{"Enabled", 64008, 0}, {"Disabled", 64007, 0}}, 1, 0x1040D, 1114},
    {"Transmit Once", TVOT_COMBOBOX, {{"Off", 64007, 0}, {"On", 64008, 0}}, 0, 0x10029, 1115},
    {"Rendering Intent",
     TVOT_COMBOBOX,
     {{"Saturation", 0, 0}, {"Perceptual", 0, 0}},
     0,
     0x10000,
     1123},
};

std::string Shown(LPCWSTR text) {
    return text == nullptr ? "" : Narrow(text);
}

void ExpectShown(const OPTITEM& item, const ShownItem& expected) {
    SCOPED_TRACE(expected.name);
    EXPECT_EQ(item.cbSize, 88);
    EXPECT_EQ(item.Level, 1);
    EXPECT_EQ(Shown(item.pName), expected.name);
    EXPECT_EQ(item.Sel, expected.selection);
    EXPECT_EQ(item.Flags, expected.flags);
    EXPECT_EQ(item.HelpIndex, expected.help);
    EXPECT_EQ(item.DMPubID, DMPUB_NONE);
    ASSERT_NE(item.pOptType, nullptr);
    EXPECT_EQ(item.pOptType->cbSize, 48);
    EXPECT_EQ(item.pOptType->Type, expected.type);
    ASSERT_EQ(item.pOptType->Count, 2);
    for (std::size_t i = 0; i < 2; ++i) {
        const OPTPARAM& choice = item.pOptType->pOptParam[i];
        EXPECT_EQ(choice.cbSize, 48);
        EXPECT_EQ(Shown(choice.pData), expected.choices[i].text);
        EXPECT_EQ(choice.IconID, expected.choices[i].icon);
        EXPECT_EQ(choice.lParam, expected.choices[i].highest);
    }
    ASSERT_NE(item.pOIExt, nullptr);
    EXPECT_EQ(item.pOIExt->cbSize, 56);
    EXPECT_TRUE(Shown(item.pOIExt->pHelpFile).ends_with("\\3\\QVRT_HLP.HLP"))
        << Shown(item.pOIExt->pHelpFile);
}

TEST_F(DocumentItems, FourItemsAsTheDriverShowsThem) {
    page_.Build();
    for (const DocumentItem place :
         {kScalingItem, kWatermarkItem, kTransmitOnceItem, kRenderingIntentItem}) {
        ExpectShown(page_.Own(place), kShown[place]);
    }
    const EXTPUSH* button = page_.Own(kWatermarkItem).pExtPush;
    ASSERT_NE(button, nullptr);
    EXPECT_EQ(button->cbSize, 64);
    EXPECT_EQ(Shown(button->pTitle), "Edit");
    EXPECT_EQ(button->IconID, 1002U);
    EXPECT_EQ(button->pfnCallBack, nullptr);
    EXPECT_TRUE(page_.Params().OEMCUIPCallback == DocumentPropertyCallback);
    EXPECT_EQ(Narrow(CurrentPrinterName), "Items Test");
}

TEST_F(DocumentItems, DevmodeDecidesWhatIsSelected) {
    struct Row {
        UINT32 scaling;
        SHORT copies;
        SHORT collate;
        UINT32 shownScaling;
        UINT32 transmitOnce;
        DWORD transmitFlags;
    };
    constexpr Row kRows[] = {
        {19, 1, 1, 100, 0, 0x10029},          {20, 2, 1, 20, 1, 0x10009},
        {200, 2, 0, 200, 0, 0x10009},         {201, 0, 1, 100, 0, 0x10029},
        {0xFFFFFFFF, -1, 1, 100, 0, 0x10029},
    };
    for (const Row& row : kRows) {
        SCOPED_TRACE(row.scaling);
        page_.privateDevmode.Scaling = row.scaling;
        page_.privateDevmode.TransmitOnce = 1;
        page_.publicDevmode.dmCopies = row.copies;
        page_.publicDevmode.dmCollate = row.collate;
        page_.Build();
        EXPECT_EQ(page_.privateDevmode.Scaling, row.shownScaling);
        EXPECT_EQ(page_.Own(kScalingItem).Sel, static_cast<LONG>(row.shownScaling));
        EXPECT_EQ(page_.privateDevmode.TransmitOnce, row.transmitOnce);
        EXPECT_EQ(page_.Own(kTransmitOnceItem).Sel, static_cast<LONG>(row.transmitOnce));
        EXPECT_EQ(page_.Own(kTransmitOnceItem).Flags, row.transmitFlags);
    }
    for (const UINT32 intent : {0U, 1U, 2U, 3U}) {
        page_.privateDevmode.RenderingIntent = intent;
        page_.privateDevmode.WatermarkOn = intent;
        page_.Build();
        EXPECT_EQ(page_.Own(kRenderingIntentItem).Sel, intent == 2 ? 1 : 0);
        EXPECT_EQ(page_.Own(kWatermarkItem).Sel, intent == 0 ? 1 : 0);
        EXPECT_EQ(page_.privateDevmode.RenderingIntent, intent);
    }
}

TEST_F(DocumentItems, FirstPageOfAPrinterStoresTheDefaultList) {
    tests::WriteIniFile(TEXT("QVRT__WM.INI"),
                        "[WatermarkInfo]\r\nNUM=1\r\ndat0=0,<NONE>,,Arial,72,0,0,0,0,0,0,0,0,0,0");
    page_.Build();
    EXPECT_EQ(printer_.StoredValue(TEXT("WaterMarkList")).size(), 4816U);
    EXPECT_EQ(Narrow(TextIn(page_.privateDevmode.Watermark.Name)), "<NONE>");

    tests::WriteIniFile(TEXT("QVRT__WM.INI"), "");
    struct Row {
        UINT32 index;
        const char* name;
    };
    // An index that cannot be one counts as none.
    for (const Row& row : {Row{3, "Mine"}, Row{15, "Mine"}, Row{16, "<NONE>"}, Row{0, "<NONE>"}}) {
        page_.privateDevmode.WatermarkIndex = row.index;
        CopyText(page_.privateDevmode.Watermark.Name, TEXT("Mine"));
        page_.Build();
        EXPECT_EQ(Narrow(TextIn(page_.privateDevmode.Watermark.Name)), row.name) << row.index;
        EXPECT_EQ(page_.privateDevmode.WatermarkIndex, row.index);
    }
}

TEST_F(DocumentItems, UnopenablePrinterLeavesTheDevmodesWatermark) {
    DocumentPage page;
    CopyText(page.privateDevmode.Watermark.Name, TEXT("Mine"));
    page.Build();
    EXPECT_EQ(Narrow(TextIn(page.privateDevmode.Watermark.Name)), "Mine");
    const OPTITEM& item = page.Own(kWatermarkItem);
    EXPECT_EQ(Shown(item.pName), "Watermark");
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

    OPTITEM cleared = {};
    cleared.cbSize = sizeof cleared;
    for (const DocumentItem place :
         {kScalingItem, kWatermarkItem, kTransmitOnceItem, kRenderingIntentItem}) {
        EXPECT_EQ(std::memcmp(&page_.Own(place), &cleared, sizeof cleared), 0);
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
