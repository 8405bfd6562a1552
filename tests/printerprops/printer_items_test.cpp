#include "printerprops/printer_items.h"

#include "common/unique_handle.h"
#include "tests/printerprops/printer_page.h"
#include "tests/support/loopback_printer.h"
#include "tests/support/test_printer.h"

using namespace oemui;
using namespace tests;

namespace {

constexpr DWORD kHidden = OPTIF_HIDE;
constexpr DWORD kGreyed = kHidden | 0x28;
using Four = std::array<LONG, 4>;
using FourFlags = std::array<DWORD, 4>;

class PrinterItems : public PluginTest {
protected:
    /// A printer behind a share on the played printer's address.
    void Share(const std::string& address) {
        printer_.SetPort(TEXT("\\\\") + Wide(address) + TEXT("\\SMB_PRI1"));
        handle_ = OpenPrinterFor(TEXT("Shared"), PRINTER_ACCESS_USE);
    }

    TestPrinter printer_{TEXT("Shared")};
    UniquePrinter handle_;
};

TEST_F(PrinterItems, ThePluginAddsTwoEmptyItems) {
    OPTITEM own[3];
    std::fill_n(reinterpret_cast<BYTE*>(own), sizeof own, BYTE{0xCC});
    OEMCUIPPARAM params = {};
    EXPECT_EQ(BuildPrinterItems(OEMCUIP_PRNPROP, &params), S_OK);
    EXPECT_EQ(params.cOEMOptItems, 2u);
    params.pOEMOptItems = own;
    EXPECT_EQ(BuildPrinterItems(OEMCUIP_PRNPROP, &params), S_OK);
    EXPECT_EQ(params.OEMCUIPCallback, PrinterPropertyCallback);
    EXPECT_EQ(own[1].cbSize, 88);
    EXPECT_EQ(own[1].DMPubID, 0);
    EXPECT_EQ(own[1].pName, nullptr);
    EXPECT_EQ(own[2].cbSize, 0xCCCC);
}

TEST_F(PrinterItems, APrinterThatCannotBeAskedTurnsTheSwitchOffAndOpensTheOptions) {
    PrinterPage page(nullptr);
    EXPECT_EQ(page.Report(CPSUICB_REASON_SETACTIVE), CPSUICB_ACTION_REINIT_ITEMS);
    EXPECT_EQ(page.Selections(), (Four{1, 5, 5, 5}));
    EXPECT_EQ(page.Flags(), (FourFlags{0x28, 0x0C, 0x0C, 0x0C}));
    for (const PrinterPageItem other : {kGroup, kYesTray2, kNumbered}) {
        EXPECT_EQ(page.items[other].Flags, kHidden) << other;
        EXPECT_EQ(page.items[other].Sel, 5) << other;
    }
}

TEST_F(PrinterItems, AReachablePrinterTurnsAGreyedSwitchOnAndSetsTheOptions) {
    LoopbackPrinter played({{"@PJL INFO CONFIG\r\nTRAY2=INSTALLED\r\n\f"}});
    Share(played.Address());
    PrinterPage page(handle_.Get());
    page.items[kSwitch].Flags = OPTIF_DISABLED | OPTIF_HIDE;
    EXPECT_EQ(page.Report(CPSUICB_REASON_SETACTIVE), CPSUICB_ACTION_REINIT_ITEMS);
    EXPECT_EQ(page.Selections(), (Four{0, 0, 1, 1}));
    EXPECT_EQ(page.Flags(), (FourFlags{kHidden | OPTIF_CHANGED, kGreyed, kGreyed, kGreyed}));
}

TEST_F(PrinterItems, ASwitchIsFollowedAlsoWhenThePrinterGivesNoAnswer) {
    LoopbackPrinter nobody({});
    Share(nobody.Address());
    for (const HANDLE printer : {HANDLE{}, handle_.Get()}) {
        PrinterPage page(printer);
        page.items[kSwitch].Sel = 0;
        EXPECT_EQ(page.Report(CPSUICB_REASON_SEL_CHANGED), CPSUICB_ACTION_OPTIF_CHANGED);
        EXPECT_EQ(page.Selections(), (Four{0, 5, 5, 5}));
        EXPECT_EQ(page.Flags(), (FourFlags{kHidden, kGreyed, kGreyed, kGreyed}));
    }
    PrinterPage page(handle_.Get());
    page.items[kSwitch].Sel = 1;
    page.Report(CPSUICB_REASON_SETACTIVE);
    EXPECT_EQ(page.Selections(), (Four{1, 5, 5, 5}));
    EXPECT_EQ(page.Flags(), (FourFlags{kHidden, 0x0C, 0x0C, 0x0C}));
}

TEST_F(PrinterItems, OnlyTheSwitchAsksAndOnlyWhatDiffersIsMarkedChanged) {
    LoopbackPrinter played({{"@PJL INFO CONFIG\f"}});
    Share(played.Address());
    PrinterPage page(handle_.Get());
    page.items[kSwitch].Sel = 0;
    page.items[kTray2].Sel = 0;
    page.items[kTray3].Sel = 1;
    page.Report(CPSUICB_REASON_SEL_CHANGED, kTray2);
    EXPECT_EQ(page.Selections(), (Four{0, 0, 1, 5}));
    page.items[kTray3].Flags = page.items[kDuplex].Flags = 0;
    PrinterLink link;
    bool isChanged = false;
    ASSERT_TRUE(DiscoverPrinterPort(handle_.Get(), &link));
    EXPECT_TRUE(AutoConfigure(&page.params, link, &isChanged));
    EXPECT_TRUE(isChanged);
    EXPECT_EQ(page.Selections(), (Four{0, 1, 1, 1}));
    EXPECT_EQ(page.items[kTray3].Flags, 0u);
    EXPECT_EQ(page.items[kDuplex].Flags, DWORD{OPTIF_CHANGED});
}

TEST_F(PrinterItems, OtherReasonsAndMissingItemsChangeNothing) {
    PrinterPage page(nullptr);
    EXPECT_EQ(page.Report(CPSUICB_REASON_APPLYNOW), CPSUICB_ACTION_ITEMS_APPLIED);
    EXPECT_EQ(page.Report(CPSUICB_REASON_EXTPUSH), CPSUICB_ACTION_NONE);
    EXPECT_EQ(PrinterPropertyCallback(nullptr, &page.params), CPSUICB_ACTION_NONE);
    CPSUICBPARAM report = {};
    EXPECT_EQ(PrinterPropertyCallback(&report, nullptr), CPSUICB_ACTION_NONE);
    page.params.pDrvOptItems = nullptr;
    page.Report(CPSUICB_REASON_SETACTIVE);
    page.params.pDrvOptItems = page.items.data();
    page.params.cDrvOptItems = kSwitch;
    page.Report(CPSUICB_REASON_SETACTIVE);
    EXPECT_EQ(page.Flags(), (FourFlags{kHidden, kHidden, kHidden, kHidden}));
    page.params.cDrvOptItems = kTray3;
    page.Report(CPSUICB_REASON_SETACTIVE);
    EXPECT_EQ(page.Flags(), (FourFlags{0x28, 0x0C, kHidden, kHidden}));
}

}  // namespace
