// The played printer, asked over a bare connection.
#include <arpa/inet.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

#include "tests/host/host_fixture.h"

namespace host {
namespace {

constexpr std::string_view kQuestion = "\x1B%-12345X@PJL INFO CONFIG\r\n\x1B%-12345X";

struct Answer {
    bool connected = false;
    std::string bytes;
    int pieces = 0;
    bool reset = false;
};

// Asks, and reads until the form feed, the end of the connection, or some time of silence.
Answer Ask(std::string_view question, int patienceMilliseconds) {
    Answer answer;
    const int descriptor = ::socket(AF_INET, SOCK_STREAM, 0);
    const timeval patience{patienceMilliseconds / 1000, patienceMilliseconds % 1000 * 1000L};
    ::setsockopt(descriptor, SOL_SOCKET, SO_RCVTIMEO, &patience, sizeof(patience));
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_port = htons(9100);
    ::inet_pton(AF_INET, PrinterThread::Address().c_str(), &address.sin_addr);
    answer.connected =
        ::connect(descriptor, reinterpret_cast<const sockaddr*>(&address), sizeof(address)) == 0;
    if (answer.connected) ::send(descriptor, question.data(), question.size(), MSG_NOSIGNAL);
    while (answer.connected && !answer.bytes.ends_with('\f')) {
        char buffer[65536];
        const ssize_t count = ::recv(descriptor, buffer, sizeof(buffer), 0);
        answer.reset = count < 0 && errno == ECONNRESET;
        if (count <= 0) break;
        answer.bytes.append(buffer, static_cast<std::size_t>(count));
        ++answer.pieces;
    }
    ::close(descriptor);
    return answer;
}

Answer AskPrinter(const PlayedPrinterOptions& options) {
    const PrinterThread printer(options);
    return Ask(kQuestion, options.slowDrip || options.silent ? 500 : 3000);
}

TEST(PlayedPrinter, AnswersAsAPrinterOfTheFamilyDoes) {
    PlayedPrinterOptions options;
    options.tray2 = true;
    const std::string config = AskPrinter(options).bytes;
    EXPECT_EQ(config.find("@PJL INFO CONFIG\r\n"), 0u);
    EXPECT_THAT(config, HasSubstr("\r\nTRAY2=INSTALLED [2 ENUMERATED]\r\n\tNOTINSTALLED\r\n"));
    EXPECT_EQ(config.find('\f'), config.size() - 1);
    EXPECT_LT(config.size(), 1024u);  // what the plug-in has room for

    EXPECT_EQ(PjlAnswer("@PJL INFO DSTATUS", options).find("@PJL INFO DSTATUS\r\nCODE=10001\r\n"),
              0u);
    EXPECT_EQ(PjlAnswer("@PJL INFO VARIABLES", options), "");
}

TEST(PlayedPrinter, HasFaultsToOrder) {
    const std::string whole = PjlAnswer("@PJL INFO CONFIG", {});
    const auto with = [](auto set) {
        PlayedPrinterOptions options;
        set(options);
        return options;
    };
    EXPECT_EQ(PjlAnswer("@PJL INFO CONFIG",
                        with([](auto& options) { options.noEcho = options.noFormFeed = true; })),
              whole.substr(18, whole.size() - 19));
    const std::string lower = PjlAnswer(
        "@PJL INFO CONFIG", with([](auto& options) { options.lowerCase = options.tray3 = true; }));
    EXPECT_EQ(lower.find("@PJL INFO CONFIG\r\n"), 0u);
    EXPECT_THAT(lower, HasSubstr("tray3=installed"));
    const std::string stale =
        PjlAnswer("@PJL INFO CONFIG", with([](auto& options) { options.staleBlockFirst = true; }));
    EXPECT_LT(stale.find('\f'), stale.find("@PJL INFO CONFIG"));
    EXPECT_TRUE(stale.ends_with(whole));
    Answer answer = AskPrinter(with([](auto& options) { options.junk = 1'000'000; }));
    EXPECT_EQ(answer.bytes.size(), whole.size() + 1'000'000);
    EXPECT_EQ(answer.bytes.find('\f'), answer.bytes.size() - 1);
    answer = AskPrinter(with([](auto& options) { options.resetAfter = 40; }));
    EXPECT_LE(answer.bytes.size(), 40u);
    EXPECT_TRUE(answer.reset);
    answer = AskPrinter(with([](auto& options) { options.split = 3; }));
    EXPECT_EQ(answer.bytes, whole);
    EXPECT_EQ(answer.pieces, 3);
    EXPECT_EQ(AskPrinter(with([](auto& options) { options.slowDrip = true; })).bytes, "@");
    answer = AskPrinter(with([](auto& options) { options.silent = true; }));
    EXPECT_TRUE(answer.connected);
    EXPECT_EQ(answer.bytes, "");
    EXPECT_FALSE(AskPrinter(with([](auto& options) { options.refuse = true; })).connected);
}

TEST(PlayedPrinter, StaysOnLoopbackAndTellsATakenPort) {
    const LogLine none = [](const std::string&) {};
    for (const char* address : {"10.0.0.1", "0.0.0.0", "localhost", "127.1", ""}) {
        PlayedPrinterOptions options;
        options.address = address;
        EXPECT_THROW(PlayedPrinter(options, none), Failure) << address;
    }
    const PrinterThread first({});
    PlayedPrinterOptions second;
    second.address = PrinterThread::Address();
    EXPECT_THROW(PlayedPrinter(second, none), Failure);
}

using PlayCommand = HostTest;

TEST_F(PlayCommand, WritesItsLogAndEndsByItself) {
    const std::string log = (Folder() / "log.txt").native();
    const auto begin = std::chrono::steady_clock::now();
    Do({"play-printer", "--address", PrinterThread::Address(), "--for", "1", "--log", log});
    EXPECT_LT(std::chrono::steady_clock::now() - begin, std::chrono::seconds(10));
    EXPECT_EQ(std::filesystem::file_size(log), 19 + PrinterThread::Address().size());
    EXPECT_EQ(
        Run({"play-printer", "--address", PrinterThread::Address(), "--log", "/dev/full"}).code, 1);
}

}  // namespace
}  // namespace host
