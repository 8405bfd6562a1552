#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#include <windows.h>

#include <chrono>
#include <csignal>
#include <thread>

#include "platform/base/machine.h"
#include "platform/faults/failure_points.h"
#include "platform/text/text_encoding.h"
#include "tests/support/machine_fixture.h"

namespace {

namespace fs = std::filesystem;

class ProcessTest : public tests::MachineTest {
protected:
    ProcessTest() { mkfifo(Pipe().c_str(), 0600); }

    std::string Pipe() const { return Folder().native() + "/pipe"; }

    /// A script that tells its name and its arguments through the pipe.
    void InstallScript(const std::string& path) const {
        const fs::path script = WriteFile(
            path, "#!/bin/sh\necho logged\nprintf '%s|' \"${0##*/}\" \"$@\" > '" + Pipe() + "'\n");
        fs::permissions(script, fs::perms::owner_all);
    }

    /// Starts a command line and waits for what the script tells; the error when it does not start.
    std::string Start(std::u16string line) {
        STARTUPINFOW startup{};
        startup.cb = sizeof(startup);
        PROCESS_INFORMATION process{};
        SetLastError(0);
        if (!CreateProcessW(nullptr, line.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr,
                            &startup, &process))
            return "error " + std::to_string(GetLastError());
        EXPECT_TRUE(CloseHandle(process.hThread));
        EXPECT_TRUE(CloseHandle(process.hProcess));
        EXPECT_FALSE(CloseHandle(process.hProcess));
        id_ = static_cast<pid_t>(process.dwProcessId);
        std::ifstream pipe(Pipe());
        return {std::istreambuf_iterator<char>(pipe), {}};
    }

    pid_t id_ = 0;
};

TEST_F(ProcessTest, FoundAsThePlatformFindsPrograms) {
    InstallScript("Windows/System32/UNINST.EXE");
    InstallScript("Windows/System32/spool/drivers/x64/3/DRIVER.EXE");
    InstallScript("Program Files/Sub Dir/Tool.exe");
    InstallScript("Temp/HERE.EXE");
    InstallScript("Temp/UNINST.EXE");  // before System32's
    const fs::path before = fs::current_path();
    fs::current_path(Folder() / "Temp");
    const struct {
        const char16_t* line;
        const char* told;
    } rows[] = {
        {u"UNINST.EXE", "UNINST.EXE|"},
        {u"  uninst /a \"b c\" d\\\\\"e f\" g\\\"h\\", "UNINST.EXE|/a|b c|d\\e f|g\"h\\|"},
        {u"\"here.exe\" x", "HERE.EXE|x|"},  // in the current folder
        {u"driver.exe", "error 2"},
        {u"C:\\Windows\\System32\\uninst.exe /s", "UNINST.EXE|/s|"},
        {u"\"C:\\Program Files\\Sub Dir\\tool\" 1", "Tool.exe|1|"},
        {u"C:\\Program Files\\Sub Dir\\tool 1 2", "Tool.exe|1|2|"},
        {u"missing.exe", "error 2"},
        {u"Z:\\bin\\true", "error 2"},
        {u"C:\\..\\..\\..\\..\\bin\\true", "error 2"},
        {u"base_tests", "error 2"},  // in this program's own folder
        {u"\"UNINST.EXE x", "error 2"},
        {u"", "error 2"},
    };
    for (const auto& row : rows) EXPECT_EQ(Start(row.line), row.told) << platform::Utf8(row.line);
    fs::current_path(before);
    InstallScript("Program Files/Sub.exe");
    EXPECT_EQ(Start(u"C:\\Program Files\\Sub Dir\\Tool.exe"), "Sub.exe|Dir\\Tool.exe|");
}

TEST_F(ProcessTest, TheLogHasTheCommandLineAndWhatTheProgramWroteAndNoZombieStays) {
    InstallScript("Windows/UNINST.EXE");
    Start(u"uninst.exe /one  \u20AC");
    const auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(20);
    while (kill(id_, 0) == 0 && std::chrono::steady_clock::now() < deadline)
        std::this_thread::yield();
    EXPECT_NE(kill(id_, 0), 0);
    Start(u"missing.exe");
    EXPECT_EQ(ReadFile("machine.log"), "uninst.exe /one  \xE2\x82\xAC\nlogged\n");
}

TEST_F(ProcessTest, NoLinkLeadsOutOfTheMachine) {
    const tests::TestMachine outside;
    platform::UseMachine(Folder());
    std::ofstream(outside.Folder() / "tool") << "#!/bin/sh\n";
    std::ofstream(outside.Folder() / "log") << "another's";
    fs::permissions(outside.Folder() / "tool", fs::perms::owner_all);
    fs::create_symlink(outside.Folder() / "tool", Folder() / "Windows/FILE.EXE");
    fs::create_directory_symlink(outside.Folder(), Folder() / "Windows/Folder");
    EXPECT_EQ(Start(u"file.exe"), "error 2");
    EXPECT_EQ(Start(u"C:\\Windows\\Folder\\tool"), "error 2");
    InstallScript("Program Files/Tool.exe");
    fs::create_symlink("../Program Files/Tool.exe", Folder() / "Windows/INSIDE.EXE");
    EXPECT_EQ(Start(u"inside.exe 1"), "Tool.exe|1|");
    fs::remove(Folder() / "machine.log");
    fs::create_symlink(outside.Folder() / "log", Folder() / "machine.log");
    EXPECT_EQ(Start(u"inside.exe"), "error 29");
    std::ifstream log(outside.Folder() / "log");
    EXPECT_EQ(std::string(std::istreambuf_iterator<char>(log), {}), "another's");
}

TEST_F(ProcessTest, NothingThatCannotRunIsStarted) {
    WriteFile("Windows/TEXT.EXE", "MZ no program of this machine");
    WriteFile("Windows/LOCKED.EXE", "#!/bin/sh\n");
    fs::create_directory(Folder() / "Windows/FOLDER.EXE");
    EXPECT_EQ(Start(u"text.exe"), "error 193");
    EXPECT_EQ(Start(u"locked.exe"), "error 193");
    EXPECT_EQ(Start(u"folder.exe"), "error 2");
    fs::permissions(WriteFile("Windows/ALONE.EXE", "#!/no/such/interpreter\n"),
                    fs::perms::owner_all);
    EXPECT_EQ(Start(u"alone.exe"), "error 2");
    const platform::FailurePlan plan("CreateProcessW", 1, ERROR_ACCESS_DENIED);
    EXPECT_EQ(Start(u"text.exe"), "error 5");
    EXPECT_EQ(ReadFile("machine.log"), "");
}

}  // namespace
