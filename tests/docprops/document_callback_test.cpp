#include "docprops/document_callback.h"

#include <array>

#include "common/current_printer.h"
#include "common/plugin_module.h"
#include "docprops/watermark_button.h"
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
    /// Scaling, watermark, transmit once, intent, pages per sheet.
    std::array<UINT32, 5> Stored() const {
        const PrivateDevmode& stored = page_.privateDevmode;
        return {stored.Scaling, stored.WatermarkOn, stored.TransmitOnce, stored.RenderingIntent,
                stored.PagesPerSheet};
    }

    DocumentPage page_;
};

TEST_F(DocumentCallback, ChangesAreStoredAtOnceButTheIntentOnlyByApply) {
    Document(2, 1);
    Show(150, 0, 1, 1);
    EXPECT_EQ(page_.Report(CPSUICB_REASON_SEL_CHANGED), CPSUICB_ACTION_OPTIF_CHANGED);
    EXPECT_EQ(Stored(), (std::array<UINT32, 5>{150, 1, 1, 1, 1}));
    for (const DocumentItem place : {kScalingItem, kWatermarkItem, kTransmitOnceItem}) {
        EXPECT_EQ(page_.Own(place).Flags, static_cast<DWORD>(OPTIF_CHANGED)) << place;
        page_.Own(place).Flags = 0;
    }
    page_.Report(CPSUICB_REASON_SEL_CHANGED);
    EXPECT_EQ(page_.Own(kScalingItem).Flags, 0U);
    EXPECT_EQ(page_.Own(kWatermarkItem).Flags, 0U);

    Show(70, 1, 1, 1);
    Document(2, 0);
    EXPECT_EQ(ApplySilently(), CPSUICB_ACTION_ITEMS_APPLIED);
    EXPECT_EQ(Stored(), (std::array<UINT32, 5>{70, 0, 1, 2, 1}));
    Show(70, 1, 1, 2);
    Document(1, 1);
    ApplySilently();
    EXPECT_EQ(Stored(), (std::array<UINT32, 5>{70, 0, 0, 2, 1}));
}

TEST_F(DocumentCallback, CopiesAndColourDecideWhatIsEnabled) {
    OPTITEM& once = page_.Own(kTransmitOnceItem);
    OPTITEM& intent = page_.Own(kRenderingIntentItem);
    once.Flags = intent.Flags = 0x10029;
    Document(2, 1);
    page_.Report(CPSUICB_REASON_SEL_CHANGED);
    EXPECT_EQ(once.Flags, 0x10009U);
    EXPECT_EQ(intent.Flags, 0x10009U);
    Document(1, 1, DMCOLOR_MONOCHROME);
    once.Sel = 1;
    page_.Report(CPSUICB_REASON_SEL_CHANGED);
    EXPECT_EQ(once.Flags, 0x28U);
    EXPECT_EQ(page_.privateDevmode.TransmitOnce, 1U);
    EXPECT_EQ(intent.Flags, 0x20U);
}

TEST_F(DocumentCallback, ActivationShowsWhatIsStored) {
    page_.privateDevmode.Scaling = 70;
    page_.privateDevmode.WatermarkOn = 5;
    page_.privateDevmode.TransmitOnce = 1;
    constexpr SHORT kRows[][3] = {{1, 1, 0}, {2, 0, 0}, {2, 1, 1}, {0, 1, 1}};
    for (const auto& [copies, collate, shown] : kRows) {
        Document(copies, collate, DMCOLOR_MONOCHROME);
        EXPECT_EQ(page_.Report(CPSUICB_REASON_SETACTIVE), CPSUICB_ACTION_REINIT_ITEMS);
        EXPECT_EQ(page_.Own(kTransmitOnceItem).Sel, shown) << copies;
    }
    EXPECT_EQ(page_.Own(kScalingItem).Sel, 70);
    EXPECT_EQ(page_.Own(kWatermarkItem).Sel, 0);
    EXPECT_EQ(page_.Own(kRenderingIntentItem).Flags, 0x20U);
}

TEST_F(DocumentCallback, NupResetsScalingAndGivesThePagesPerSheet) {
    constexpr int kRows[][3] = {{0, 1, 150},  {1, 2, 100}, {2, 4, 100}, {3, 6, 100}, {4, 9, 100},
                                {5, 16, 100}, {6, 2, 100}, {7, 1, 100}, {-1, 1, 100}};
    page_.With(DMPUB_NUP, 0).With(DMPUB_DUPLEX, 1);
    for (const auto& [nup, pages, scaling] : kRows) {
        SCOPED_TRACE(nup);
        page_.Driver(DMPUB_NUP).Sel = nup;
        page_.Own(kScalingItem).Flags = 0;
        Show(150, 1, 0, 0);
        ApplySilently();
        EXPECT_EQ(page_.privateDevmode.PagesPerSheet, static_cast<UINT32>(pages));
        EXPECT_EQ(page_.privateDevmode.Scaling, static_cast<UINT32>(scaling));
        EXPECT_EQ(page_.Own(kScalingItem).Sel, scaling);
        EXPECT_EQ(page_.Own(kScalingItem).Flags, scaling == 100 ? 8U : 0U);
    }
    EXPECT_TRUE(page_.toldAbout.empty());

    // A booklet without duplex falls back to one page, and counts none.
    page_.Driver(DMPUB_NUP).Sel = 6;
    page_.Driver(DMPUB_DUPLEX).Sel = 0;
    Show(150, 1, 0, 0);
    ApplySilently();
    EXPECT_EQ(page_.Driver(DMPUB_NUP).Sel, 0);
    EXPECT_EQ(page_.Driver(DMPUB_NUP).Flags, static_cast<DWORD>(OPTIF_CHANGED));
    EXPECT_EQ(page_.toldAbout, std::vector<BYTE>{DMPUB_NUP});
    EXPECT_EQ(page_.privateDevmode.PagesPerSheet, 0U);
    EXPECT_EQ(page_.privateDevmode.Scaling, 100U);
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
    CPSUICBPARAM callback = {};
    for (const LONG action : {1, 0, 0, 0, 0, 0, 4, 0, 0, 0, 2, 0}) {
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
