// What needs the layer: its clock, its failure points, its other versions.
#include <platform/faults/failure_points.h>

#include <string_view>

#include "printerprops/pjl_connection.h"
#include "printerprops/pjl_exchange.h"
#include "printerprops/pjl_query.h"
#include "printerprops/socket_library.h"
#include "tests/support/loopback_printer.h"
#include "tests/support/plugin_fixture.h"
#include "tests/support/test_clock.h"
#include "tests/support/test_printer.h"

using namespace oemui;
using namespace tests;
using platform::FailurePlan;

namespace {

constexpr std::string_view kAnswer = "@PJL INFO CONFIG\r\nTRAY3=INSTALLED\r\n\f";

PrinterLink LinkTo(const std::string& address, PortKind kind = PortKindShare) {
    PrinterLink link = {};
    link.Found = ResolveHost(Wide(address).c_str(), &link.Address) ? 1 : 0;
    link.Kind = kind;
    return link;
}

/// What a query finds installed, one letter each; "failed" when the printer was not asked.
std::string Query(const PrinterLink& link) {
    const auto installed = QueryInstalledOptions(TEXT("Queried"), link);
    if (!installed) return "failed";
    return std::string(installed->Tray2 ? "2" : "") + (installed->Tray3 ? "3" : "") +
           (installed->Duplex ? "D" : "");
}

const std::vector<LoopbackPrinter::Answer> kSilent(1);

class QueryOnTheLayer : public PluginTest {};

TEST_F(QueryOnTheLayer, ASilentPrinterCountsAsAskedAndABrokenConnectionDoesNotBothAfterAllPolls) {
    for (const bool isBroken : {false, true}) {
        LoopbackPrinter printer(kSilent);
        const tests::TestClock clock;
        const FailurePlan reset(isBroken ? "recv" : "none", 0, WSAECONNRESET);
        EXPECT_EQ(Query(LinkTo(printer.Address())), isBroken ? "failed" : "23D");
        EXPECT_EQ(clock.Sleeps(), std::vector<DWORD>(61, 250));
    }
}

TEST_F(QueryOnTheLayer, AHostThatNeverAcceptsFailsWithinTheTimeOfAQuery) {
    LoopbackPrinter busy({{LoopbackPrinter::kNeverAccepts}});
    const tests::TestClock clock;
    EXPECT_EQ(Query(LinkTo(busy.Address())), "failed");
    EXPECT_EQ(clock.Elapsed(), 15250u);
}

TEST_F(QueryOnTheLayer, APrinterThatFellSilentAndThenClosedCountsAsAsked) {
    const SocketLibrary library;
    for (const char* command : {"#GET# x", "READ"}) {
        for (const bool wasSilent : {true, false}) {
            LoopbackPrinter printer({{LoopbackPrinter::kHangsUp}});
            PrinterLink link = LinkTo(printer.Address());
            QueryTime time;
            ASSERT_TRUE(OpenPrinterConnection(&link, &time));
            char reply[34];
            DWORD length = 99;
            int error = 0;
            for (int i = 0; i < 1000 && ReceiveFromPrinter(&link, {reply, 1}, &length, &error);
                 ++i) {
                ::Sleep(1);
            }
            const tests::TestClock clock;
            const FailurePlan silent(wasSilent ? "recv" : "none", 1, WSAEWOULDBLOCK);
            EXPECT_EQ(ExchangePjl(&link, Wide(command).c_str(), reply, &length), wasSilent);
            EXPECT_EQ(length, 0u);
        }
    }
}

TEST_F(QueryOnTheLayer, AFloodWithoutFormFeedStaysInItsBuffer) {
    LoopbackPrinter printer({{std::string(1 << 20, 'x')}});
    const tests::TestClock clock;
    const SocketLibrary library;
    std::array<char, kReplyCapacity + 1> reply = {};
    DWORD length = 0;
    PrinterLink link = LinkTo(printer.Address());
    const std::span<char> room(reply.data(), kReplyCapacity);
    static_cast<void>(ExchangePjl(&link, TEXT("#GET# x"), room, &length));
    EXPECT_LE(length, kReplyCapacity);
    EXPECT_EQ(reply[kReplyCapacity], 0);
}

TEST_F(QueryOnTheLayer, AQuestionThatCannotGoOutAtOnceHasASubstituteForItsReply) {
    const SocketLibrary library;
    for (const DWORD size : {33u, 34u}) {
        LoopbackPrinter printer(kSilent);
        const FailurePlan full("send", 1, WSAEWOULDBLOCK);
        PrinterLink link = LinkTo(printer.Address());
        char reply[34] = {};
        DWORD length = 0;
        EXPECT_EQ(ExchangePjl(&link, TEXT("#GET# x"), {reply, size}, &length), size == 34);
        EXPECT_EQ(std::string(reply), size == 34 ? "@PJL INFO STATUS\r\nCODE=999999\r\n\f" : "");
    }
}

TEST_F(QueryOnTheLayer, TheSpoolerIsAskedForTheStatusBeforeTheConfiguration) {
    const std::string status = "@PJL INFO DSTATUS\r\nCODE=10001\r\n\f";
    const struct {
        const char* failing;
        int call;
        const char* expected;
    } rows[] = {
        {"none", 1, "3"},
        {"SetPrinterDataW", 1, "failed"},
        {"SetPrinterDataW", 2, "23D"},
        {"GetPrinterDataW", 1, "failed"},
        {"GetPrinterDataW", 2, "23D"},
        {"OpenPrinterW", 1, "failed"},
    };
    for (const auto& row : rows) {
        LoopbackPrinter played({{status}, {std::string(kAnswer)}});
        const Text port = TEXT("IP_played");
        WriteRegistryText(TEXT("System\\CurrentControlSet\\Control\\Print\\Monitors\\Standard "
                               "TCP/IP Port\\Ports\\") +
                              port,
                          TEXT("IPAddress"), Wide(played.Address()));
        TestPrinter printer(TEXT("Queried"), port);
        printer.SetBidirectional(true);
        const FailurePlan plan(row.failing, row.call, ERROR_GEN_FAILURE);
        EXPECT_EQ(Query(LinkTo(played.Address(), PortKindTcpIp)), row.expected)
            << row.failing << row.call;
    }
}

TEST_F(QueryOnTheLayer, WithoutANameTheSpoolerIsNotAsked) {
    const FailurePlan plan;
    PrinterLink link = {};
    link.Kind = PortKindUsb;
    EXPECT_FALSE(QueryInstalledOptions(TEXT(""), link));
    EXPECT_FALSE(QueryInstalledOptions(nullptr, link));
    EXPECT_EQ(plan.Calls(), 0);
}

}  // namespace
