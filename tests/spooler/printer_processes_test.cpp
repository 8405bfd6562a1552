// Printers under several processes and their sudden death.

#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <csignal>

#include "platform/base/machine.h"
#include "tests/spooler/spooler_fixture.h"

namespace {

class PrinterProcesses : public tests::SpoolerTest {};

TEST_F(PrinterProcesses, AreThereWholeOrNotAtAllWhateverAnotherProcessDoes) {
    const std::u16string twoPorts[] = {u"LPT1:", std::u16string(300, u'x')};
    const auto addAndRemove = [&] {
        const HANDLE printer = Add(Record(u"Office"));
        PRINTER_INFO_2W other = Record(u"Office", twoPorts[1]);
        other.pComment = other.pPortName;
        SetPrinterW(printer, 2, reinterpret_cast<BYTE*>(&other), 0);
        DeletePrinter(printer);
    };
    const auto isWhole = [&] {
        std::vector<BYTE> buffer(20000);
        DWORD needed = 0;
        DWORD count = 0;
        EXPECT_EQ(ErrorOf(EnumPrintersW(PRINTER_ENUM_LOCAL, nullptr, 2, buffer.data(), 20000,
                                        &needed, &count)),
                  ERROR_SUCCESS);
        if (count == 0) return 0;
        const std::u16string port = Info(buffer).pPortName;
        const std::u16string comment = Info(buffer).pComment;
        EXPECT_TRUE(comment.empty() ? port == twoPorts[0] : port == comment) << Text(port.c_str());
        EXPECT_EQ(Text(Info(buffer).pDriverName), "Laser");
        return 1;
    };
    for (int round = 0; round < 20; ++round) {
        platform::UseMachine(Folder());  // the store is never open while the process forks
        const pid_t other = fork();
        if (other == 0) {
            alarm(60);
            while (true) addAndRemove();
        }
        int seen = 0;
        const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(10);
        while (seen < 20 + round && std::chrono::steady_clock::now() < end) seen += isWhole();
        EXPECT_GT(seen, 0);
        kill(other, SIGKILL);
        waitpid(other, nullptr, 0);
        isWhole();
        if (const HANDLE left = Open(u"Office")) {
            EXPECT_TRUE(DeletePrinter(left));
            EXPECT_TRUE(ClosePrinter(left));
        }
    }
}

}  // namespace
