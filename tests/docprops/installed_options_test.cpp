#include "docprops/duplex_and_trays.h"

#include "tests/support/document_page.h"
#include "tests/support/plugin_fixture.h"

using namespace oemui;
using tests::DocumentPage;

namespace {

constexpr DWORD kStopped = 0x12;

class InstalledOptionsTest : public tests::PluginTest {};

/// A driver's page with everything that depends on the options.
void AddDriverItems(DocumentPage* page) {
    page->With(DMPUB_DUPLEX, 1, {"None", "Long edge", "Short edge"})
        .With(DMPUB_NUP, 0, {"1", "2", "4", "6", "9", "16", "Booklet"})
        .With(DMPUB_DEFSOURCE, 0, {"Tray 2", "Tray 1", "TRAY 2", "Tray 2", "Tray 3"});
    page->publicDevmode.dmDuplex = DMDUP_VERTICAL;
}

TEST_F(InstalledOptionsTest, DriversSettingsDecideWhenThePrinterIsNotAsked) {
    // Second tray, duplex unit, third tray; which of them there are.
    constexpr const char* kRows[][4] = {{"Yes", "Yes", "Yes", "2D3"}, {"No", "Yes", "Yes", "D"},
                                        {"Yes", "None", "N", "2"},    {"no", "Yes", "", "2D"},
                                        {"", "", "Yes", "2D3"},       {"N", "N", "N", ""}};
    for (const auto& [tray2, duplex, tray3, installed] : kRows) {
        DocumentPage page;
        page.Setting("Tray2", tray2).Setting("DuplexUnit", duplex).Setting("Tray3", tray3);
        const InstalledOptions options = ReadInstalledOptions(page.Params());
        EXPECT_EQ(std::string(options.Tray2 ? "2" : "") + (options.Duplex ? "D" : "") +
                      (options.Tray3 ? "3" : ""),
                  installed);
        // A missing second tray settles the third one unasked.
        EXPECT_EQ(page.asked.size(), options.Tray2 ? 3U : 2U);
    }
}

TEST_F(InstalledOptionsTest, EverythingInstalledIsOfferedAgain) {
    DocumentPage page;
    AddDriverItems(&page);
    page.Driver(DMPUB_DUPLEX).Flags = OPTIF_DISABLED | OPTIF_CALLBACK;
    page.Choice(DMPUB_NUP, 6).Flags = OPTPF_HIDE | 0x80;
    page.Choice(DMPUB_DEFSOURCE, 2).Flags = kStopped | 0x80;
    page.Choice(DMPUB_DEFSOURCE, 4).Flags = kStopped;
    page.Setting("Tray3", "");
    AdjustDriverItems(&page.Params());
    // A driver that does not know the third tray keeps its choice as it is.
    EXPECT_EQ(page.Choice(DMPUB_DEFSOURCE, 4).Flags, kStopped);
    page.Setting("Tray3", "Yes");
    AdjustDriverItems(&page.Params());
    EXPECT_EQ(page.Driver(DMPUB_DUPLEX).Flags, static_cast<DWORD>(OPTIF_CALLBACK));
    EXPECT_EQ(page.Driver(DMPUB_DUPLEX).Sel, 1);
    EXPECT_EQ(page.publicDevmode.dmDuplex, DMDUP_VERTICAL);
    EXPECT_EQ(page.Choice(DMPUB_NUP, 6).Flags, 0x80);
    EXPECT_EQ(page.Choice(DMPUB_DEFSOURCE, 2).Flags, 0x80);
    EXPECT_EQ(page.Choice(DMPUB_DEFSOURCE, 4).Flags, 0);
    EXPECT_TRUE(page.toldAbout.empty());
}

TEST_F(InstalledOptionsTest, NothingInstalledLeavesSimplexAndTheFirstTray) {
    DocumentPage page;
    AddDriverItems(&page);
    page.Setting("Tray2", "No").Setting("DuplexUnit", "No");
    page.Driver(DMPUB_DUPLEX).Flags = OPTIF_CALLBACK | OPTIF_CHANGED;
    page.Choice(DMPUB_NUP, 6).Flags = 0x80;
    page.Choice(DMPUB_DEFSOURCE, 2).Flags = 0x80;
    AdjustDriverItems(&page.Params());
    EXPECT_EQ(page.Driver(DMPUB_DUPLEX).Flags, static_cast<DWORD>(OPTIF_DISABLED));
    EXPECT_EQ(page.Driver(DMPUB_DUPLEX).Sel, 0);
    EXPECT_EQ(page.publicDevmode.dmDuplex, DMDUP_SIMPLEX);
    EXPECT_EQ(page.toldAbout, std::vector<BYTE>{DMPUB_DUPLEX});
    EXPECT_EQ(page.Choice(DMPUB_NUP, 6).Flags, OPTPF_HIDE);
    // The first choice is never taken for the tray, nor is a second one of the same name.
    EXPECT_EQ(page.Choice(DMPUB_DEFSOURCE, 0).Flags, 0);
    EXPECT_EQ(page.Choice(DMPUB_DEFSOURCE, 2).Flags, kStopped);
    EXPECT_EQ(page.Choice(DMPUB_DEFSOURCE, 3).Flags, 0);
    EXPECT_EQ(page.Choice(DMPUB_DEFSOURCE, 4).Flags, kStopped);
}

TEST_F(InstalledOptionsTest, ItemsThatAreNotThereAreLeftAlone) {
    DocumentPage shortNup;
    shortNup.With(DMPUB_DUPLEX, 1).With(DMPUB_NUP, 0, {"1", "2"}).Setting("DuplexUnit", "No");
    AdjustDriverItems(&shortNup.Params());
    EXPECT_EQ(shortNup.Choice(DMPUB_NUP, 1).Flags, 0);

    DocumentPage silent;
    AddDriverItems(&silent);
    silent.WithoutFunctions();
    silent.Driver(DMPUB_DUPLEX).Flags = OPTIF_DISABLED;
    silent.Choice(DMPUB_DEFSOURCE, 4).Flags = kStopped;
    AdjustDriverItems(&silent.Params());
    EXPECT_EQ(silent.Driver(DMPUB_DUPLEX).Flags, 0U);
    EXPECT_EQ(silent.Choice(DMPUB_DEFSOURCE, 4).Flags, kStopped);
}

}  // namespace
