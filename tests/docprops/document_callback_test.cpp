#include "docprops/document_callback.h"

#include <cstring>

#include "common/page_state.h"
#include "common/plugin_module.h"
#include "tests/support/document_page.h"
#include "tests/support/plugin_fixture.h"

using namespace oemui;
using tests::DocumentPage;

namespace {

class DocumentCallback : public tests::PluginTest {
protected:
    DocumentCallback() {
        page_.MakeRoom();
        Show(100, 1, 0, 0);
    }

    void Show(LONG scaling, LONG watermark, LONG transmitOnce, LONG intent) {
        page_.Own(kScalingItem).Sel = scaling;
        page_.Own(kWatermarkItem).Sel = watermark;
        page_.Own(kTransmitOnceItem).Sel = transmitOnce;
        page_.Own(kRenderingIntentItem).Sel = intent;
    }
    void Document(SHORT copies, SHORT collate, SHORT color = DMCOLOR_COLOR) {
        page_.publicDevmode.dmCopies = copies;
        page_.publicDevmode.dmCollate = collate;
        page_.publicDevmode.dmColor = color;
    }
    /// Without the module no message is shown; the rules hold all the same.
    LONG ApplySilently() {
        RecordPluginModule(nullptr);
        return page_.Report(CPSUICB_REASON_APPLYNOW);
    }
    const PrivateDevmode& Stored() const { return page_.privateDevmode; }

    DocumentPage page_;
};

TEST_F(DocumentCallback, ChangedSelectionsAreStoredAtOnceButTheIntent) {
    Document(2, 1);
    Show(150, 0, 1, 1);
    EXPECT_EQ(page_.Report(CPSUICB_REASON_SEL_CHANGED), CPSUICB_ACTION_OPTIF_CHANGED);
    EXPECT_EQ(Stored().Scaling, 150U);
    EXPECT_EQ(Stored().WatermarkOn, 1U);
    EXPECT_EQ(Stored().TransmitOnce, 1U);
    EXPECT_EQ(Stored().RenderingIntent, 1U);
    for (const DocumentItem place : {kScalingItem, kWatermarkItem, kTransmitOnceItem}) {
        EXPECT_EQ(page_.Own(place).Flags, static_cast<DWORD>(OPTIF_CHANGED)) << place;
        page_.Own(place).Flags = 0;
    }
    page_.Report(CPSUICB_REASON_SEL_CHANGED);
    EXPECT_EQ(page_.Own(kScalingItem).Flags, 0U);
    EXPECT_EQ(page_.Own(kWatermarkItem).Flags, 0U);
}

TEST_F(DocumentCallback, CopiesAndColourDecideWhatIsEnabled) {
    constexpr DWORD kAll = 0x10029;
    for (OPTITEM* item : {&page_.Own(kTransmitOnceItem), &page_.Own(kRenderingIntentItem)}) {
        item->Flags = kAll;
    }
    Document(2, 1);
    page_.Report(CPSUICB_REASON_SEL_CHANGED);
    EXPECT_EQ(page_.Own(kTransmitOnceItem).Flags, 0x10009U);
    EXPECT_EQ(page_.Own(kRenderingIntentItem).Flags, 0x10009U);

    Document(1, 1, DMCOLOR_MONOCHROME);
    page_.Own(kTransmitOnceItem).Sel = 1;
    page_.Report(CPSUICB_REASON_SEL_CHANGED);
    EXPECT_EQ(page_.Own(kTransmitOnceItem).Flags, 0x28U);
    EXPECT_EQ(Stored().TransmitOnce, 1U);
    EXPECT_EQ(page_.Own(kRenderingIntentItem).Flags, 0x20U);
}

TEST_F(DocumentCallback, ActivationShowsWhatIsStored) {
    page_.privateDevmode.Scaling = 70;
    page_.privateDevmode.WatermarkOn = 5;
    page_.privateDevmode.TransmitOnce = 1;
    struct Row {
        SHORT copies;
        SHORT collate;
        LONG shown;
    };
    for (const Row& row : {Row{1, 1, 0}, Row{2, 0, 0}, Row{2, 1, 1}, Row{0, 1, 1}}) {
        Document(row.copies, row.collate, DMCOLOR_MONOCHROME);
        EXPECT_EQ(page_.Report(CPSUICB_REASON_SETACTIVE), CPSUICB_ACTION_REINIT_ITEMS);
        EXPECT_EQ(page_.Own(kTransmitOnceItem).Sel, row.shown) << row.copies;
    }
    EXPECT_EQ(page_.Own(kScalingItem).Sel, 70);
    EXPECT_EQ(page_.Own(kWatermarkItem).Sel, 0);
    EXPECT_EQ(page_.Own(kRenderingIntentItem).Flags, 0x20U);
}

TEST_F(DocumentCallback, ApplyStoresWhatIsShown) {
    Document(2, 0);
    Show(150, 0, 1, 1);
    EXPECT_EQ(ApplySilently(), CPSUICB_ACTION_ITEMS_APPLIED);
    EXPECT_EQ(Stored().Scaling, 150U);
    EXPECT_EQ(Stored().WatermarkOn, 1U);
    EXPECT_EQ(Stored().TransmitOnce, 1U);
    EXPECT_EQ(Stored().RenderingIntent, 2U);
    EXPECT_EQ(Stored().PagesPerSheet, 1U);
    Document(1, 1);
    page_.Own(kRenderingIntentItem).Sel = 2;
    ApplySilently();
    EXPECT_EQ(Stored().TransmitOnce, 0U);
    EXPECT_EQ(Stored().RenderingIntent, 2U);
}

TEST_F(DocumentCallback, NupResetsScalingAndGivesThePagesPerSheet) {
    struct Row {
        LONG nup;
        UINT32 pages;
        UINT32 scaling;
    };
    constexpr Row kRows[] = {{0, 1, 150},  {1, 2, 100}, {2, 4, 100}, {3, 6, 100}, {4, 9, 100},
                             {5, 16, 100}, {6, 2, 100}, {7, 1, 100}, {-1, 1, 100}};
    page_.With(DMPUB_NUP, 0).With(DMPUB_DUPLEX, 1);
    for (const Row& row : kRows) {
        SCOPED_TRACE(row.nup);
        page_.Driver(DMPUB_NUP).Sel = row.nup;
        page_.Own(kScalingItem).Flags = 0;
        Show(150, 1, 0, 0);
        ApplySilently();
        EXPECT_EQ(Stored().PagesPerSheet, row.pages);
        EXPECT_EQ(Stored().Scaling, row.scaling);
        EXPECT_EQ(page_.Own(kScalingItem).Sel, static_cast<LONG>(row.scaling));
        EXPECT_EQ(page_.Own(kScalingItem).Flags, row.scaling == 100 ? 8U : 0U);
    }
    EXPECT_TRUE(page_.toldAbout.empty());
}

TEST_F(DocumentCallback, BookletWithoutDuplexFallsBackToOnePageAndReportsZeroPagesPerSheet) {
    page_.With(DMPUB_NUP, 6).With(DMPUB_DUPLEX, 0);
    Show(150, 1, 0, 0);
    ApplySilently();
    EXPECT_EQ(page_.Driver(DMPUB_NUP).Sel, 0);
    EXPECT_EQ(page_.Driver(DMPUB_NUP).Flags, static_cast<DWORD>(OPTIF_CHANGED));
    EXPECT_EQ(page_.toldAbout, std::vector<BYTE>{DMPUB_NUP});
    EXPECT_EQ(Stored().PagesPerSheet, 0U);
    EXPECT_EQ(Stored().Scaling, 100U);
}

TEST_F(DocumentCallback, EditButtonNeedsItsItemAndAnEnabledWatermark) {
    WCHAR watermark[] = TEXT("Watermark");
    WCHAR other[] = TEXT("watermark");
    OPTITEM current = {};
    EXPECT_EQ(page_.Report(CPSUICB_REASON_EXTPUSH), CPSUICB_ACTION_NONE);
    current.pName = watermark;
    EXPECT_EQ(page_.Report(CPSUICB_REASON_EXTPUSH, &current), CPSUICB_ACTION_NONE);
    page_.Own(kWatermarkItem).Sel = 0;
    current.pName = other;
    EXPECT_EQ(page_.Report(CPSUICB_REASON_EXTPUSH, &current), CPSUICB_ACTION_NONE);
}

TEST_F(DocumentCallback, WithoutPrivateDevmodeOnlyTheActionIsAnswered) {
    page_.With(DMPUB_NUP, 6).With(DMPUB_DUPLEX, 0);
    OEMCUIPPARAM params = page_.Params();
    params.pOEMDM = nullptr;
    constexpr LONG kActions[] = {1, 0, 0, 0, 0, 0, 4, 0, 0, 0, 2, 0};
    CPSUICBPARAM callback = {};
    for (const LONG action : kActions) {
        EXPECT_EQ(DocumentPropertyCallback(&callback, &params), action) << callback.Reason;
        ++callback.Reason;
    }
    EXPECT_EQ(page_.Driver(DMPUB_NUP).Sel, 6);
    EXPECT_EQ(page_.Own(kTransmitOnceItem).Flags, 0U);
}

TEST_F(DocumentCallback, OrientationIsTheDevmodesSignedSixteenBits) {
    EXPECT_EQ(CaptureEditorPageSetup(page_.Params()), 1U);
    page_.With(DMPUB_ORIENTATION, 1).With(DMPUB_FORMNAME, 0);
    EXPECT_EQ(CaptureEditorPageSetup(page_.Params()), 2U);
    page_.Driver(DMPUB_ORIENTATION).Sel = 0x7FFF;
    EXPECT_EQ(CaptureEditorPageSetup(page_.Params()), 0xFFFF8000U);
    page_.Driver(DMPUB_ORIENTATION).Sel = 0x10000;
    EXPECT_EQ(CaptureEditorPageSetup(page_.Params()), 1U);
    EXPECT_EQ(PreviewPaperSize.Width, 0);
}

}  // namespace
