// The printer page, and what the document page makes of the installed options.
#include "host/driver/installed_options.h"
#include "tests/host/host_fixture.h"

namespace host {
namespace {

using PrinterPage = HostTest;

TEST_F(PrinterPage, KeepsOptionsSetByHandForThePrinter) {
    Install("Office", "T");
    Do({"printer", "Office", "-o", "Tray 3=Not Installed", "--apply"});
    const nlohmann::json page = Do({"printer", "Office", "--json"}).Json();
    EXPECT_EQ(ItemNamed(page, "Auto Configure")["selection"], 1);
    EXPECT_EQ(ItemNamed(page, "Tray 2")["selection"], 0);
    EXPECT_EQ(ItemNamed(page, "Tray 3")["selection"], 1);
    // The plug-in's two empty items are not shown.
    for (const nlohmann::json& item : page["items"]) EXPECT_EQ(item["owner"], "driver");

    const nlohmann::json document = Do({"document", "Office", "--json"}).Json();
    const nlohmann::json source = ItemNamed(document, "Paper Source");
    EXPECT_EQ(ChoiceNamed(source, "Tray 3")["stop"], true);
    EXPECT_EQ(ChoiceNamed(source, "Tray 2")["enabled"], true);
    EXPECT_THAT(Do({"document", "Office", "-l"}).out, HasSubstr("Tray2 [Tray3] ManualFeed"));
    Do({"printer", "Office", "--defaults", "--apply"});
    EXPECT_THAT(Do({"document", "Office", "-l"}).out, HasSubstr("Tray2 Tray3 ManualFeed"));
}

TEST_F(PrinterPage, FollowsThePrintersAnswerOverBothRoutes) {
    PlayedPrinterOptions options;
    options.tray2 = options.duplex = true;
    PrinterThread printer(options);
    Install("Share", "T", "\\\\" + PrinterThread::Address() + "\\SMB_PRI1");
    Install("Port", "V", "IP_" + PrinterThread::Address(), "on");
    for (const char* name : {"Share", "Port"}) {
        SCOPED_TRACE(name);
        const nlohmann::json page = Do({"printer", name, "--json"}).Json();
        EXPECT_EQ(ItemNamed(page, "Tray 2")["selection"], 0);
        EXPECT_EQ(ItemNamed(page, "Tray 3")["selection"], 1);
        EXPECT_EQ(ItemNamed(page, "Duplex Option (Double-sided)")["selection"], 0);
        EXPECT_EQ(ItemNamed(page, "Tray 3")["enabled"], false);
        const nlohmann::json document = Do({"document", name, "--json"}).Json();
        EXPECT_EQ(ItemNamed(document, "Duplex")["enabled"], true);
        EXPECT_EQ(ChoiceNamed(ItemNamed(document, "Paper Source"), "Tray 3")["stop"], true);
    }
    printer.Stop();
    ASSERT_GE(printer.Lines().size(), 6u);
    EXPECT_EQ(printer.Lines()[5], "connection 1 closed after 36 bytes");
}

TEST_F(PrinterPage, KeepsItsOptionsWhenNothingListensOnTheNetworkPort) {
    Install("Port", "T", "IP_" + PrinterThread::Address(), "on");
    const nlohmann::json page = Do({"printer", "Port", "--json"}).Json();
    EXPECT_EQ(ItemNamed(page, "Auto Configure")["selection"], 0);
    for (const char* option : {"Tray 2", "Tray 3", "Duplex Option (Double-sided)"}) {
        EXPECT_EQ(ItemNamed(page, option)["selection"], 0) << option;
        EXPECT_EQ(ItemNamed(page, option)["enabled"], false) << option;
    }
}

TEST_F(PrinterPage, ModelWithoutThirdTrayHasNoItemForIt) {
    Install("Studio", "U");
    EXPECT_EQ(Do({"printer", "Studio", "-l"}).out.find("Tray3"), std::string::npos);
}

TEST_F(PrinterPage, DoesNotAskWhileAutomaticConfigurationIsOff) {
    PrinterThread printer({});
    Install("Share", "T", "\\\\" + PrinterThread::Address() + "\\SMB_PRI1");
    Do({"printer", "Share", "-o", "Auto Configure=Off", "-o", "Tray 2=Installed", "--apply"});
    Do({"document", "Share"});
    printer.Stop();
    int connections = 0;
    for (const std::string& line : printer.Lines()) connections += line.ends_with("bytes") ? 1 : 0;
    EXPECT_EQ(connections, 1);  // the printer page's own question, before the switch was off
}

TEST(InstalledOptions, AnswersAsADriverDoes) {
    const Model& third = *FindModel("T");
    const Model& two = *FindModel("u");
    InstalledOptions options;
    options.tray2 = false;
    char answer[260] = {};
    DWORD needed = 0;
    EXPECT_EQ(options.Answer(third, "Tray2", answer, 260, &needed, nullptr), TRUE);
    EXPECT_STREQ(answer, "NOTINSTALLED");
    EXPECT_EQ(needed, 13u);
    EXPECT_EQ(options.Answer(two, "Tray3", answer, 260, nullptr, nullptr), E_NOTIMPL);
    EXPECT_EQ(options.Answer(third, "Tray4", answer, 260, nullptr, nullptr), E_NOTIMPL);
    EXPECT_EQ(options.Answer(third, nullptr, answer, 260, nullptr, nullptr), E_NOTIMPL);
    EXPECT_EQ(options.Answer(third, "Tray2", answer, 12, &needed, nullptr), FALSE);
    EXPECT_EQ(::GetLastError(), static_cast<DWORD>(ERROR_INSUFFICIENT_BUFFER));
}

}  // namespace
}  // namespace host
