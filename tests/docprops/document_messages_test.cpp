#include <climits>
#include <cstring>
#include <filesystem>

#include "common/current_printer.h"
#include "docprops/document_callback.h"
#include "docprops/exempt_papers.h"
#include "docprops/paper_length_limits.h"
#include "docprops/watermark_button.h"
#include "platform/base/machine.h"
#include "platform/base/paths.h"
#include "platform/faults/failure_points.h"
#include "resources/resource_ids.h"
#include "tests/support/document_page.h"
#include "tests/support/plugin_fixture.h"
#include "tests/support/scripted_user.h"
#include "tests/support/test_printer.h"
#include "watermark/watermark_store.h"

using namespace oemui;
using tests::DocumentPage;
using tests::ShownBox;
using Texts = std::vector<std::string>;

namespace {

class DocumentMessages : public tests::PluginTest {
protected:
    DocumentMessages() {
        tests::BecomeModel('U');
        page_.With(DMPUB_FORMNAME, 3, {"First paper whose name is longer than a devmode holds"})
            .With(DMPUB_MEDIATYPE, 0, {"plain paper", "LETTERHEAD", "Recycled Paper", "Glossy"})
            .With(DMPUB_DUPLEX, 0)
            .With(DMPUB_NUP, 0);
    }

    /// The driver has its strings loaded before it loads a plug-in.
    void LoadDriverStrings() {
        const auto file = platform::DriverFolder() / "UNIRES.DLL";
        std::filesystem::copy_file(DRIVER_STRINGS, file);
        driverStrings_ = UniqueLibrary(LoadLibraryW(platform::PlatformPath(file).c_str()));
    }
    /// Makes a paper of this length, in thousandths of a millimetre, and selects it.
    void SelectPaper(LONG length) {
        auto wide = tests::Wide("Custom" + std::to_string(length));
        FORM_INFO_1W form = {};
        form.pName = wide.data();
        form.Size = {210000, length};
        form.ImageableArea = {0, 0, 210000, length};
        const UniquePrinter printer = OpenPrinterFor(printer_.Name().c_str(), PRINTER_ALL_ACCESS);
        ::AddFormW(printer.Get(), 1, reinterpret_cast<LPBYTE>(&form));
        CopyText(page_.publicDevmode.dmFormName, wide);
    }
    /// Builds the page, selects media and sides, applies, and tells what was said meanwhile.
    Texts Apply(LONG media, LONG duplex) {
        const tests::ScriptedUser user;
        page_.Build();
        page_.Driver(DMPUB_MEDIATYPE).Sel = media;
        page_.Driver(DMPUB_DUPLEX).Sel = duplex;
        page_.Driver(DMPUB_FORMNAME).Sel = 3;
        page_.toldAbout.clear();
        EXPECT_EQ(page_.Report(CPSUICB_REASON_APPLYNOW), CPSUICB_ACTION_ITEMS_APPLIED);
        Texts texts;
        for (const ShownBox& message : user.Boxes()) {
            EXPECT_EQ(message.caption, "Conflict!");
            texts.push_back(message.text);
        }
        return texts;
    }
    UniqueLibrary driverStrings_;

    tests::TestPrinter printer_{TEXT("Conflict Test")};
    DocumentPage page_{printer_.Name()};
};

const std::string kTooLong =
    "Length of the selected custom paper size can not be longer than 297 mm. Paper size is reset "
    "to default. Set media type to either Plain paper, Letterhead or Recycled Paper.";
const std::string kTooShort =
    "Length of the selected custom paper size can not be shorter than 198 mm. Paper size is reset "
    "to default. Set media type to either Thick Stock, Transparency, Postcard, Lables, Glossy or "
    "Envelope.";
const std::string kTooShortForDuplex =
    "Length of the selected custom paper can not be shorter than 279 mm if printing in duplex "
    "mode. Paper size is reset to default.";

TEST_F(DocumentMessages, PaperLengthIsLimitedByMediaAndDuplex) {
    constexpr LONG kPlain = 0;
    constexpr LONG kGlossy = 3;
    struct Row {
        LONG length;
        LONG media;
        LONG duplex;
        Texts told;
    };
    const Row rows[] = {
        {297000, kGlossy, 0, {}},
        {297001, kGlossy, 0, {kTooLong}},
        {297001, 2, 0, {}},
        {198000, kPlain, 0, {}},
        {197999, kPlain, 0, {kTooShort}},
        {197999, 1, 0, {kTooShort}},
        {197999, kGlossy, 0, {}},
        {279400, kPlain, 2, {}},
        {279300, kPlain, 2, {kTooShortForDuplex}},
        {150000, kPlain, 1, {kTooShort, kTooShortForDuplex}},
    };
    // Without the driver's strings plain paper counts as special.
    SelectPaper(150000);
    EXPECT_EQ(Apply(kPlain, 0), Texts{});
    SelectPaper(300000);
    EXPECT_EQ(Apply(kPlain, 0), Texts{kTooLong});
    LoadDriverStrings();
    for (const Row& row : rows) {
        SCOPED_TRACE(row.length);
        SelectPaper(row.length);
        EXPECT_EQ(Apply(row.media, row.duplex), row.told);
        EXPECT_EQ(page_.Driver(DMPUB_FORMNAME).Sel == 0, !row.told.empty());
    }
    EXPECT_EQ(tests::Narrow(TextIn(page_.publicDevmode.dmFormName)),
              "First paper whose name is longe");
    EXPECT_EQ(page_.toldAbout, std::vector<BYTE>{DMPUB_FORMNAME});

    // The driver hears of it also when it answers no questions, and the first name may be empty.
    WCHAR none[] = TEXT("");
    page_.WithoutQuestions().Choice(DMPUB_FORMNAME, 0).pData = none;
    ResetPaperToFirstForm(page_.Params());
    EXPECT_EQ(page_.publicDevmode.dmFormName[0], 0);
    EXPECT_EQ(page_.toldAbout, std::vector<BYTE>(2, DMPUB_FORMNAME));
}

TEST_F(DocumentMessages, APaperListThatGrowsBetweenTwoCallsStaysInItsRoom) {
    page_.Driver(DMPUB_FORMNAME).Sel = INT_MAX;
    const platform::FailurePlan another("DeviceCapabilitiesW", 2, [this] {
        for (LONG i = 0; i < 200; ++i) SelectPaper(400000 + i);
    });
    PreviewPaperSize = {};
    CaptureEditorPageSetup(page_.Params());
    EXPECT_TRUE(another.Fired());
    EXPECT_GT(PreviewPaperSize.Length, 0);
}

TEST_F(DocumentMessages, OtherModelsAndExemptPapersAreNotChecked) {
    LoadDriverStrings();
    for (LPCWSTR paper : {TEXT("a5"), TEXT("No such paper")}) {
        CopyText(page_.publicDevmode.dmFormName, paper);
        EXPECT_EQ(Apply(0, 1), Texts{});
    }
    SelectPaper(150000);
    tests::BecomeModel('T');
    EXPECT_EQ(Apply(0, 1), Texts{});
    EXPECT_EQ(page_.Driver(DMPUB_FORMNAME).Sel, 3);
}

TEST_F(DocumentMessages, ScalingConflictComesFirstAndDropsABookletSilently) {
    page_.Build();
    page_.Driver(DMPUB_NUP).Sel = 6;
    page_.Own(kScalingItem).Sel = 150;
    const tests::ScriptedUser user;
    page_.Report(CPSUICB_REASON_APPLYNOW);
    EXPECT_EQ(user.Boxes(),
              (tests::ShownBoxes{{"Scaling cannot be used with N-up and Booklet. Scaling "
                                  "will be reset to default value (100%). ",
                                  "Conflict!"}}));
    EXPECT_EQ(page_.privateDevmode.PagesPerSheet, 0U);
}

TEST_F(DocumentMessages, EditorsChoiceReachesTheDevmodeOnlyWithOk) {
    WatermarkList list = {};
    list.Count = 3;
    LPCWSTR names[] = {TEXT("<NONE>"), TEXT("Copy"), TEXT("Draft")};
    for (std::size_t i = 0; i < 3; ++i) {
        list.Entries[i].Index = static_cast<UINT32>(i);
        list.Entries[i].InUse = 1;
        list.Entries[i].PointSize = 72;
        CopyText(list.Entries[i].Name, names[i]);
    }
    WritePrinterWatermarkList(printer_.Name().c_str(), list, IDS_LIST_NOT_STORED);
    page_.Build();
    page_.Own(kWatermarkItem).Sel = 0;
    page_.privateDevmode.WatermarkIndex = 99;
    const PrivateDevmode before = page_.privateDevmode;
    // Chooses the last entry of the editor's list and closes it.
    tests::ScriptedUser user;
    const auto willClose = [&user](int button) {
        user.InDialog([&user, button] {
            EXPECT_TRUE(user.Choose(IDC_WATERMARK_LIST, TEXT("Draft")));
            EXPECT_TRUE(user.Click(button));
        });
    };
    willClose(IDC_CANCEL);
    EXPECT_EQ(page_.Report(CPSUICB_REASON_EXTPUSH, &page_.Own(kWatermarkItem)),
              CPSUICB_ACTION_NONE);
    EXPECT_EQ(std::memcmp(&before, &page_.privateDevmode, sizeof before), 0);
    willClose(IDOK);
    EXPECT_EQ(page_.Report(CPSUICB_REASON_EXTPUSH, &page_.Own(kWatermarkItem)),
              CPSUICB_ACTION_ITEMS_APPLIED);
    EXPECT_EQ(page_.privateDevmode.WatermarkIndex, 2U);
    EXPECT_EQ(tests::Narrow(TextIn(page_.privateDevmode.Watermark.Name)), "Draft");
    // Selection 3 of the form item: the fourth of the printer's papers.
    EXPECT_GT(PreviewPaperSize.Length, PreviewPaperSize.Width);
}

}  // namespace
