#include "printerprops/pjl_query.h"

#include <optional>
#include <string>

#include "printerprops/pjl_connection.h"
#include "printerprops/pjl_exchange.h"
#include "printerprops/socket_library.h"
#include "tests/support/loopback_printer.h"
#include "tests/support/plugin_fixture.h"

using namespace oemui;
using tests::LoopbackPrinter;

namespace {

using Answer = std::optional<InstalledOptions>;
const std::string kExitLanguage = "\x1B%-12345X";
const std::string kAnswer =
    "@PJL INFO CONFIG\r\nIN TRAYS [3 ENUMERATED]\r\n\tTRAY2=INSTALLED\r\n\tDUPLEX=INSTALLED\r\n\f";

PrinterLink LinkTo(const std::string& address) {
    PrinterLink link = {};
    link.Found = ResolveHost(tests::Wide(address).c_str(), &link.Address) ? 1 : 0;
    link.Kind = PortKindShare;
    return link;
}

Answer Query(const std::string& address) {
    return QueryInstalledOptions(TEXT("none"), LinkTo(address));
}

class PjlQuery : public tests::PluginTest {};

TEST(PjlReply, OnlyWhatStandsBetweenEchoAndFormFeedCounts) {
    const struct {
        std::string reply;
        Answer expected;
    } rows[] = {
        {kAnswer, {{true, false, true}}},
        {kAnswer + "TRAY3=INSTALLED\f", {{true, false, true}}},
        {kAnswer + "@PJL INFO CONFIG\r\nTRAY3=INSTALLED\r\n\f", {{true, false, true}}},
        {"@PJL INFO STATUS\r\nTRAY3=INSTALLED\r\n\f" + kAnswer, {{true, false, true}}},
        {"\f@PJL INFO CONFIGTRAY3=INSTALLED\f", {{false, true, false}}},
        {"@PJL INFO CONFIG\r\ntray2=installed\r\n\f", {{false, false, false}}},
        {"@PJL INFO CONFIG\r\nTRAY2=INSTALLE\fD", {{false, false, false}}},
        {"@@PJL INFO CONFIGTRAY3=INSTALLEDTTRAY2=INSTALLEDUPLEX=INSTALLED\f", {{true, true, true}}},
        {"G@PJL INFO CONFIGDUPLEX=DUPLEX=INSTALLED\xFF\f", {{false, false, true}}},
        {"TRAY2=INSTALLED\r\n\f", {}},
        {std::string("@PJL INFO CONFIG\r\n\0TRAY2=INSTALLED\f", 35), {}},
    };
    for (const auto& row : rows)
        EXPECT_TRUE(ParseInstalledOptions(row.reply) == row.expected) << row.reply;
    for (std::size_t length = 0; length < kAnswer.size(); ++length) {
        // A copy of its own size: reading past the bytes received is seen.
        const std::string cut = kAnswer.substr(0, length);
        EXPECT_FALSE(ParseInstalledOptions(cut).has_value()) << length;
    }
}

TEST_F(PjlQuery, AskingSendsThirtySixBytesAndJoinsThePiecesOfTheAnswer) {
    LoopbackPrinter printer({{kAnswer.substr(0, 20), kAnswer.substr(20)}});
    EXPECT_EQ(Query(printer.Address()), Answer({true, false, true}));
    EXPECT_EQ(printer.Received(),
              std::vector<std::string>{kExitLanguage + "@PJL INFO CONFIG\r\n" + kExitLanguage});
}

TEST_F(PjlQuery, NobodyListeningFailsAtOnceAndChangesNothing) {
    LoopbackPrinter nobody({});
    EXPECT_FALSE(Query(nobody.Address()).has_value());
    PrinterLink notFound = {.Found = 0, .Address = {}, .Socket = 5, .Kind = {}, .OpenCount = 0};
    QueryTime time;
    EXPECT_FALSE(OpenPrinterConnection(&notFound, &time));
    EXPECT_EQ(notFound.Socket, INVALID_SOCKET);
}

TEST_F(PjlQuery, ReceivingNeverPassesItsBufferAndEndsWithTheConnection) {
    const SocketLibrary library;
    PrinterLink link;
    char reply[9] = {};
    DWORD count = 99;
    int error = 0;
    {
        LoopbackPrinter printer({{"0123456789"}});
        link = LinkTo(printer.Address());
        QueryTime time;
        ASSERT_TRUE(OpenPrinterConnection(&link, &time));
        DWORD flags = HANDLE_FLAG_INHERIT;
        EXPECT_TRUE(::GetHandleInformation(reinterpret_cast<HANDLE>(link.Socket), &flags));
        EXPECT_EQ(flags & HANDLE_FLAG_INHERIT, 0u) << "programs started meanwhile take it along";
        EXPECT_TRUE(ReceiveFromPrinter(&link, {reply, 8}, &count, &error));
        EXPECT_EQ(count, 0u);
        EXPECT_EQ(error, WSAEWOULDBLOCK);
        EXPECT_TRUE(SendToPrinter(&link, kExitLanguage + kExitLanguage, &count));
        EXPECT_EQ(count, 18u);
        for (int i = 0; i < 1000 && reply[0] == 0; ++i) {
            ::Sleep(1);
            EXPECT_TRUE(ReceiveFromPrinter(&link, {reply, 8}, &count, &error));
        }
        EXPECT_EQ(std::string(reply), "01234567");
        EXPECT_TRUE(ClosePrinterConnection(&link));
        EXPECT_EQ(link.Socket, INVALID_SOCKET);
    }
    EXPECT_FALSE(ReceiveFromPrinter(&link, {reply, 8}, &count, &error));
    EXPECT_EQ(count, 0u);
}

TEST_F(PjlQuery, CommandsSendTheirTextOnlyAsFirstWordAndOnlyWhenItFits) {
    const std::string longest(kMaxPjlText, 'x');
    const struct {
        std::string command;
        bool connects;
        bool expected;
        std::string sentText;
    } rows[] = {
        {"#SET# @PJL RDYMSG", true, true, "@PJL RDYMSG"},
        {"#set#\n#SET#", true, true, "#SET#"},
        {"#SET# " + longest, true, true, longest},
        {"#SET# " + longest + "x", true, false, ""},
        {"#SET#", true, false, ""},
        {"#set# text", true, true, ""},
        {"READ" + std::string(251, ' '), true, true, ""},
        {"#SET# " + std::string(250, 'x'), false, false, ""},
    };
    const SocketLibrary library;
    for (const auto& row : rows) {
        LoopbackPrinter printer(std::vector<LoopbackPrinter::Answer>(1));
        PrinterLink link = LinkTo(printer.Address());
        char reply[16];
        DWORD length = 99;
        EXPECT_EQ(ExchangePjl(&link, tests::Wide(row.command).c_str(), reply, &length),
                  row.expected)
            << row.command;
        EXPECT_EQ(length, 0u);
        std::string wire = row.sentText;
        if (!wire.empty()) wire.insert(0, kExitLanguage).append("\r\n").append(kExitLanguage);
        if (!row.connects) continue;
        EXPECT_EQ(printer.Received(), std::vector<std::string>{wire}) << row.command;
    }
}

}  // namespace
