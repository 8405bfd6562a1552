#include <chrono>

#include "platform/spooler/ports.h"
#include "tests/spooler/spooler_fixture.h"
#include "tests/support/loopback_printer.h"
#include "tests/support/test_clock.h"
#include "tests/support/text.h"

namespace {

namespace spooler = platform::spooler;
using tests::LoopbackPrinter;
using tests::SpoolerTest;
using tests::Wide;

const std::u16string kStatus = u"#GET#\n@PJL INFO DSTATUS";
const std::u16string kConfiguration = u"#GET#\n@PJL INFO CONFIG";
const std::string kStatusAnswer = "@PJL INFO DSTATUS\r\nCODE=10001\r\n\f";
const std::string kConfigurationAnswer =
    "@PJL INFO CONFIG\r\nTRAY2=INSTALLED\r\n\tDUPLEX\r\nDUPLEX=INSTALLED\r\n\f";

class PortMonitor : public SpoolerTest {
protected:
    /// A printer behind a port that stands for this address.
    HANDLE PrinterAt(const std::string& address) {
        EXPECT_EQ(spooler::AddStandardTcpIpPort(u"IP_Test", Wide(address), u""),
                  DWORD{ERROR_SUCCESS});
        Install(u"Office", u"IP_Test,LPT1:");
        return Open(u"Office");
    }
};

TEST_F(PortMonitor, CarriesBothQuestionsAndTheirAnswers) {
    const std::string front = kConfigurationAnswer.substr(0, 7);
    const std::string back = kConfigurationAnswer.substr(7);
    LoopbackPrinter played({{kStatusAnswer}, {front, back}, {kConfigurationAnswer}});
    const HANDLE printer = PrinterAt(played.Address());
    DWORD type = 0;
    EXPECT_EQ(SetValue(printer, kStatus, ""), ERROR_SUCCESS);
    EXPECT_EQ(Value(printer, kStatus, 1024, &type), kStatusAnswer);
    EXPECT_EQ(type, DWORD{REG_BINARY});
    EXPECT_EQ(Value(printer, kConfiguration), kConfigurationAnswer);
    EXPECT_EQ(Value(printer, kConfiguration, 10),
              Failed(ERROR_MORE_DATA, static_cast<DWORD>(kConfigurationAnswer.size())));
    const std::string question = "\x1B%-12345X@PJL INFO CONFIG\r\n\x1B%-12345X";
    EXPECT_EQ(played.Received(),
              (std::vector<std::string>{"\x1B%-12345X@PJL INFO DSTATUS\r\n\x1B%-12345X", question,
                                        question}));
    EXPECT_TRUE(ClosePrinter(printer));
}

TEST_F(PortMonitor, SendsWithoutReadingAndStoresNothing) {
    LoopbackPrinter played({{""}});
    const HANDLE printer = PrinterAt(played.Address());
    EXPECT_EQ(SetValue(printer, u"#SET# @PJL SET COPIES=2", "x"), ERROR_SUCCESS);
    EXPECT_EQ(SetValue(printer, u"#SET#\n", ""), ERROR_INVALID_PARAMETER);
    EXPECT_EQ(SetValue(printer, u"a#SET#", "stored"), ERROR_SUCCESS);
    EXPECT_EQ(Value(printer, u"#SET# @PJL SET COPIES=2"), Failed(ERROR_NOT_SUPPORTED));
    EXPECT_EQ(Value(printer, u"a#SET#"), "stored");
    const std::vector<std::string> sent = {"\x1B%-12345X@PJL SET COPIES=2\r\n\x1B%-12345X"};
    EXPECT_EQ(played.Received(), sent);
    EXPECT_TRUE(ClosePrinter(printer));
}

TEST_F(PortMonitor, FindsTheAddressThroughEveryMonitor) {
    const LoopbackPrinter played({{kStatusAnswer}, {kStatusAnswer}, {kStatusAnswer}});
    const std::u16string address = Wide(played.Address());
    WriteFile("Windows/System32/drivers/etc/hosts", played.Address() + " laser\n");
    ASSERT_EQ(spooler::AddStandardTcpIpPort(u"By name", u"", u"laser"), DWORD{ERROR_SUCCESS});
    ASSERT_EQ(spooler::AddLprPort(u"laser:queue", u"laser"), DWORD{ERROR_SUCCESS});
    ASSERT_EQ(spooler::AddRegalPort(u"Regal", address), DWORD{ERROR_SUCCESS});
    EXPECT_EQ(spooler::AddRegalPort(u"a\\b", address), DWORD{ERROR_INVALID_PARAMETER});
    for (const char16_t* port : {u"By name", u"laser:queue", u"Regal"}) {
        Install(port, port);
        const HANDLE printer = Open(port);
        EXPECT_EQ(Value(printer, kStatus), kStatusAnswer);
        EXPECT_TRUE(ClosePrinter(printer));
    }
}

TEST_F(PortMonitor, RefusesPortsThatCannotBeAsked) {
    ASSERT_EQ(spooler::AddStandardTcpIpPort(u"IP_Away", u"192.0.2.1", u""), DWORD{ERROR_SUCCESS});
    ASSERT_EQ(spooler::AddLprPort(u"Unknown", u"no-such-host"), DWORD{ERROR_SUCCESS});
    const struct {
        std::u16string port;
        LSTATUS error;
    } rows[] = {{u"USB001", ERROR_NOT_SUPPORTED},
                {u"\\\\host\\SMB_PRI1", ERROR_NOT_SUPPORTED},
                {u"IP_Away", ERROR_GEN_FAILURE},
                {u"Unknown", ERROR_GEN_FAILURE}};
    const auto start = std::chrono::steady_clock::now();
    for (const auto& [port, error] : rows) {
        const HANDLE printer = Add(Record(u"Office", port));
        EXPECT_EQ(SetValue(printer, kStatus, ""), error);
        EXPECT_EQ(Value(printer, kStatus), Failed(error));
        EXPECT_TRUE(DeletePrinter(printer));
        EXPECT_TRUE(ClosePrinter(printer));
    }
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(2)) << "at once";
}

TEST_F(PortMonitor, ReportsPrintersThatAnswerBadlyOrNotAtAll) {
    const auto askAt = [&](const std::string& address) {
        const HANDLE printer = PrinterAt(address);
        const std::string answer = Value(printer, kStatus);
        EXPECT_TRUE(DeletePrinter(printer));
        EXPECT_TRUE(ClosePrinter(printer));
        return answer;
    };
    const auto ask = [&](const LoopbackPrinter::Answer& answer) {
        return askAt(LoopbackPrinter({answer}).Address());
    };
    const std::string failed = Failed(ERROR_GEN_FAILURE);
    EXPECT_EQ(askAt(LoopbackPrinter({}).Address()), failed) << "refused";
    EXPECT_EQ(ask({"", LoopbackPrinter::kHangsUp}), failed) << "closed";
    EXPECT_EQ(ask({std::string(1 << 20, 'j')}), failed) << "junk without end";
    EXPECT_EQ(ask({LoopbackPrinter::kResets}), failed) << "reset";
    EXPECT_EQ(ask({"half an answer", LoopbackPrinter::kHangsUp}), "half an answer") << "closed";
    // An open printer waits so long for all its questions together.
    LoopbackPrinter silent({{"no form feed"}, {kConfigurationAnswer}});
    const HANDLE printer = PrinterAt(silent.Address());
    const tests::TestClock clock;
    EXPECT_EQ(Value(printer, kStatus), Failed(ERROR_TIMEOUT));
    EXPECT_EQ(Value(printer, kConfiguration), Failed(ERROR_TIMEOUT));
    EXPECT_GT(clock.Elapsed(), 12000u);
    EXPECT_LE(clock.Elapsed(), 15000u);
    EXPECT_TRUE(ClosePrinter(printer));
}

}  // namespace
