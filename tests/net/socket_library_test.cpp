#include <pthread.h>
#include <winbase.h>
#include <winerror.h>
#include <winsock.h>

#include <atomic>
#include <chrono>
#include <csignal>
#include <string>
#include <thread>

#include "platform/faults/live_objects.h"
#include "tests/support/loopback_printer.h"
#include "tests/support/machine_fixture.h"

namespace {

using tests::LoopbackPrinter;

// What an operation on sockets comes to: 0, or the error of one that failed.
int ErrorOf(LONG_PTR result) {
    return result == SOCKET_ERROR ? WSAGetLastError() : 0;
}

class Sockets : public tests::MachineTest {
protected:
    void SetUp() override {
        WSADATA details = {};
        ASSERT_EQ(WSAStartup(0x0101, &details), 0);
        EXPECT_EQ(details.wHighVersion, 0x0202);
    }
    void TearDown() override { EXPECT_EQ(WSACleanup(), 0); }

    static int Connect(SOCKET stream, const std::string& address) {
        sockaddr_in target = {};
        target.sin_family = AF_INET;
        target.sin_port = htons(9100);
        target.sin_addr.s_addr = inet_addr(address.c_str());
        return connect(stream, reinterpret_cast<const sockaddr*>(&target), sizeof target);
    }

    static SOCKET ConnectedTo(const std::string& address) {
        const SOCKET stream = socket(AF_INET, SOCK_STREAM, 0);
        EXPECT_EQ(Connect(stream, address), 0) << WSAGetLastError();
        return stream;
    }

    static std::string ReceiveAll(SOCKET stream) {
        std::string all;
        CHAR block[16];
        for (int count = 0; (count = recv(stream, block, sizeof block, 0)) > 0;)
            all.append(block, static_cast<std::size_t>(count));
        return all;
    }
};

TEST_F(Sockets, CarryBytesBothWaysWithAndWithoutWaiting) {
    LoopbackPrinter printer({{"an answer longer ", "than one block\f", LoopbackPrinter::kHangsUp}});
    const SOCKET stream = ConnectedTo(printer.Address());
    ULONG on = 1;
    EXPECT_EQ(ioctlsocket(stream, FIONBIO, &on), 0);
    CHAR byte = 0;
    EXPECT_EQ(ErrorOf(recv(stream, &byte, 1, 0)), WSAEWOULDBLOCK);
    EXPECT_EQ(ErrorOf(Connect(stream, printer.Address())), WSAEISCONN);
    EXPECT_EQ(send(stream, "question", 9, 0), 9);
    on = 0;
    EXPECT_EQ(ioctlsocket(stream, FIONBIO, &on), 0);
    EXPECT_EQ(ReceiveAll(stream), "an answer longer than one block\f");
    EXPECT_EQ(recv(stream, &byte, 1, 0), 0) << "the printer closed";
    EXPECT_EQ(closesocket(stream), 0);
    EXPECT_EQ(printer.Received(), std::vector<std::string>{std::string("question\0", 9)});
}

TEST_F(Sockets, ReportResetAndBrokenPipeAsErrorsAndNoSignal) {
    const LoopbackPrinter printer({{LoopbackPrinter::kResets}});
    const SOCKET stream = ConnectedTo(printer.Address());
    EXPECT_EQ(send(stream, "\0", 1, 0), 1);
    CHAR byte = 0;
    EXPECT_EQ(ErrorOf(recv(stream, &byte, 1, 0)), WSAECONNRESET);
    EXPECT_EQ(ErrorOf(send(stream, "x", 1, 0)), WSAECONNRESET);
    EXPECT_EQ(closesocket(stream), 0);
}

TEST_F(Sockets, RefuseConnectionsWithoutListenerAndLeavingTheMachine) {
    const SOCKET stream = socket(AF_INET, SOCK_STREAM, IPPROTO_TCP);
    EXPECT_EQ(ErrorOf(Connect(stream, LoopbackPrinter({}).Address())), WSAECONNREFUSED);
    EXPECT_EQ(ErrorOf(send(stream, "x", 1, 0)), WSAENOTCONN);
    const auto start = std::chrono::steady_clock::now();
    for (const char* outside : {"10.0.0.5", "128.0.0.1", "126.255.255.255", "3printer"}) {
        EXPECT_EQ(ErrorOf(Connect(stream, outside)), WSAENETUNREACH) << outside;
    }
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::milliseconds(500));
    EXPECT_EQ(closesocket(stream), 0);
}

TEST_F(Sockets, WrongAndStaleSocketsAndArgumentsAreRefused) {
    ULONG on = 1;
    CHAR byte = 0;
    const SOCKET stale = socket(AF_INET, SOCK_STREAM, 0);
    ASSERT_EQ(closesocket(stale), 0);
    for (const SOCKET wrong : {stale, INVALID_SOCKET, SOCKET{0}}) {
        EXPECT_EQ(send(wrong, &byte, 1, 0), SOCKET_ERROR);
        EXPECT_EQ(recv(wrong, &byte, 1, 0), SOCKET_ERROR);
        EXPECT_EQ(ioctlsocket(wrong, FIONBIO, &on), SOCKET_ERROR);
        EXPECT_FALSE(SetHandleInformation(reinterpret_cast<HANDLE>(wrong), HANDLE_FLAG_INHERIT, 0));
        EXPECT_EQ(GetLastError(), DWORD{ERROR_INVALID_HANDLE});
        EXPECT_EQ(ErrorOf(closesocket(wrong)), WSAENOTSOCK);
    }
    EXPECT_EQ(ErrorOf(static_cast<LONG_PTR>(socket(23, SOCK_STREAM, 0))), WSAEAFNOSUPPORT);
    EXPECT_EQ(ErrorOf(static_cast<LONG_PTR>(socket(AF_INET, 2, 0))), WSAESOCKTNOSUPPORT);
}

TEST_F(Sockets, LastCleanupClosesWhatIsOpenAndEndsTheLibrary) {
    WSADATA details = {};
    ASSERT_EQ(WSAStartup(0x0202, &details), 0);
    EXPECT_EQ(details.wVersion, 0x0101);
    EXPECT_EQ(WSAStartup(0x0001, &details), WSAVERNOTSUPPORTED);
    EXPECT_EQ(WSAStartup(0x0101, nullptr), WSAEFAULT);
    ASSERT_EQ(WSACleanup(), 0);
    EXPECT_NE(socket(AF_INET, SOCK_STREAM, 0), INVALID_SOCKET) << "one start is left";
    ASSERT_EQ(WSACleanup(), 0);
    EXPECT_EQ(platform::LiveObjects().count("socket"), 0u);
    EXPECT_EQ(ErrorOf(static_cast<LONG_PTR>(socket(AF_INET, SOCK_STREAM, 0))), WSANOTINITIALISED);
    EXPECT_EQ(gethostbyname("localhost"), nullptr);
    EXPECT_EQ(WSACleanup(), SOCKET_ERROR);
    ASSERT_EQ(WSAStartup(0x0101, &details), 0);
}

std::atomic<int> signals = 0;

TEST_F(Sockets, WaitOverInterruptingSignals) {
    struct sigaction interrupting = {};
    interrupting.sa_handler = [](int) { ++signals; };
    struct sigaction before = {};
    sigaction(SIGUSR1, &interrupting, &before);
    const LoopbackPrinter printer({{"late", LoopbackPrinter::kHangsUp}});
    const SOCKET stream = ConnectedTo(printer.Address());
    const pthread_t waiting = pthread_self();
    std::thread other([&] {
        // The first signals find this test's thread in its receive; the answer comes after them.
        while (signals < 20) {
            pthread_kill(waiting, SIGUSR1);
            std::this_thread::sleep_for(std::chrono::milliseconds(1));
        }
        EXPECT_EQ(send(stream, "\0", 1, 0), 1);
    });
    EXPECT_EQ(ReceiveAll(stream), "late");
    other.join();
    sigaction(SIGUSR1, &before, nullptr);
    EXPECT_EQ(closesocket(stream), 0);
}

TEST(InternetAddress, IsReadAsThePlatformReadsIt) {
    const struct {
        const char* text;
        ULONG address;  // first number in the lowest byte
    } rows[] = {
        {"10.0.0.5", 0x0500000A},   {"1.2.3", 0x03000201},
        {"0x7f.1", 0x0100007F},     {"0177.0.0.1", 0x0100007F},
        {"1.2.3.4 x", 0x04030201},  {"16909060", 0x04030201},
        {"1.2.65535", 0xFFFF0201},  {"3printer", INADDR_NONE},
        {"", INADDR_NONE},          {" ", 0},
        {"256.1.1.1", INADDR_NONE}, {"1.2.3.4.5", INADDR_NONE},
        {"1..2", INADDR_NONE},      {"1.2.3.", INADDR_NONE},
        {"1.2.65536", INADDR_NONE}, {"4294967296", INADDR_NONE},
        {"09.1.1.1", INADDR_NONE},  {"-1.1.1.1", INADDR_NONE},
        {"1.2.3.256", INADDR_NONE},
    };
    for (const auto& [text, address] : rows) EXPECT_EQ(inet_addr(text), address) << text;
    EXPECT_EQ(inet_addr(nullptr), INADDR_NONE);
}

TEST_F(Sockets, NamesComeFromTheHostsFileAndOnlyLoopbackCounts) {
    const auto address = [](const char* name) -> std::string {
        const hostent* host = gethostbyname(name);
        if (!host) {
            EXPECT_EQ(WSAGetLastError(), WSAHOST_NOT_FOUND) << name;
            return "none";
        }
        EXPECT_EQ(host->h_addrtype, AF_INET);
        EXPECT_EQ(*host->h_aliases, nullptr);
        EXPECT_EQ(host->h_addr_list[1], nullptr);
        std::string text;
        for (int i = 0; i < host->h_length; ++i)
            text += std::to_string(static_cast<UCHAR>(host->h_addr[i])) + " ";
        return text;
    };
    EXPECT_EQ(address("localhost"), "127 0 0 1 ") << "without a hosts file";
    WriteFile("Windows/System32/drivers/etc/hosts",
              "# 127.0.0.9 hidden\r\n127.0.0.5\tprinter  Laser # in the office, 127.0.0.6 desk\r\n"
              "10.0.0.7 outside\r\nnonsense word\r\n127.0.0.8");
    EXPECT_EQ(address("PRINTER"), "127 0 0 5 ");
    EXPECT_EQ(address("laser"), "127 0 0 5 ");
    for (const char* unknown :
         {"hidden", "outside", "desk", "word", "127.0.0.8", "", "example.com"})
        EXPECT_EQ(address(unknown), "none") << unknown;
    EXPECT_EQ(address(std::string(300, 'a').c_str()), "none");
}

}  // namespace
