// The registry's file under other processes, sudden death, damage and locks.

#include <linux/capability.h>
#include <sqlite3.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>
#include <windows.h>

#include <csignal>
#include <string>
#include <thread>
#include <vector>

#include "platform/base/machine.h"
#include "platform/registry/registry_store.h"
#include "tests/support/machine_fixture.h"
#include "tests/support/no_space.h"

namespace {

constexpr DWORD kValueSize = 200'000;

int ExitCode(pid_t process) {
    int status = -1;
    waitpid(process, &status, 0);
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

/// The rights of files mean nothing to an administrator's process that has its privileges. Its user
/// stays the same: the folder above may be for that user alone.
bool GiveUpPrivileges() {
    __user_cap_header_struct own = {_LINUX_CAPABILITY_VERSION_3, 0};
    __user_cap_data_struct none[_LINUX_CAPABILITY_U32S_3] = {};
    return syscall(SYS_capset, &own, none) == 0;
}

class StoreTest : public tests::MachineTest {
protected:
    static LSTATUS Open(HKEY* key) {
        return RegCreateKeyExW(HKEY_LOCAL_MACHINE, u"Printers\\Office", 0, nullptr, 0,
                               KEY_ALL_ACCESS, nullptr, key, nullptr);
    }
    static LSTATUS Write(HKEY key, BYTE fill) {
        const std::vector<BYTE> bytes(kValueSize, fill);
        return RegSetValueExW(key, u"List", 0, REG_BINARY, bytes.data(), kValueSize);
    }
    /// The key with a value that is filled so.
    static HKEY OpenWith(BYTE fill) {
        HKEY key = nullptr;
        EXPECT_EQ(Open(&key), ERROR_SUCCESS);
        EXPECT_EQ(Write(key, fill), ERROR_SUCCESS);
        return key;
    }
    /// What the value is filled with; -1 when it is not whole.
    static int Read(HKEY key) {
        std::vector<BYTE> bytes(kValueSize + 1);
        DWORD size = kValueSize + 1;
        const LSTATUS error = RegQueryValueExW(key, u"List", nullptr, nullptr, bytes.data(), &size);
        if (error != ERROR_SUCCESS || size != kValueSize) return -1;
        bytes.pop_back();
        return bytes == std::vector<BYTE>(kValueSize, bytes[0]) ? bytes[0] : -1;
    }
    void CloseStore() const { platform::UseMachine(Folder()); }
    /// Whether a process that may only look finds the value filled so, and cannot change it.
    bool IsReadWithoutTheRightToWrite(int fill) const {
        const std::filesystem::path folder = Folder();
        for (const auto& file : std::filesystem::directory_iterator(folder)) {
            if (file.is_regular_file()) permissions(file, std::filesystem::perms(0444));
        }
        permissions(folder, std::filesystem::perms(0555));
        const pid_t reader = fork();
        if (reader == 0) {
            HKEY key = nullptr;
            _exit(GiveUpPrivileges() && Open(&key) == 0 && Read(key) == fill && Write(key, 9) != 0
                      ? 0
                      : 1);
        }
        const int code = ExitCode(reader);
        permissions(folder, std::filesystem::perms(0755));
        return code == 0;
    }
};

/// A process that writes 1, 2, 3... up to 250 and tells each through a pipe when it is stored.
class Writer {
public:
    template <typename WriteOne>
    explicit Writer(WriteOne writeOne) {
        if (pipe(pipe_) != 0) return;
        id_ = fork();
        if (id_ != 0) return;
        for (BYTE fill = 1; fill <= 250 && writeOne(fill); ++fill) {
            if (write(pipe_[1], &fill, 1) != 1) break;
        }
        pause();
        _exit(1);
    }
    ~Writer() {
        kill(id_, SIGKILL);
        waitpid(id_, nullptr, 0);
        close(pipe_[0]);
        close(pipe_[1]);
    }
    Writer(const Writer&) = delete;
    Writer& operator=(const Writer&) = delete;

    int LastStored(int count) {
        BYTE fill = 0;
        while (count-- > 0 && read(pipe_[0], &fill, 1) == 1) {
        }
        return fill;
    }

private:
    int pipe_[2] = {-1, -1};
    pid_t id_ = -1;
};

TEST_F(StoreTest, AWriterKilledInBetweenLeavesTheOldValueOrTheNew) {
    for (int round = 1; round <= 12; ++round) {
        // The connection is never open while the process forks.
        CloseStore();
        int stored = 0;
        {
            Writer writer([](BYTE fill) {
                static HKEY key = nullptr;
                return (key != nullptr || Open(&key) == ERROR_SUCCESS) &&
                       Write(key, fill) == ERROR_SUCCESS;
            });
            stored = writer.LastStored(round);
            std::this_thread::sleep_for(std::chrono::microseconds(137 * round));
        }
        HKEY key = nullptr;
        ASSERT_EQ(Open(&key), ERROR_SUCCESS);
        EXPECT_GE(Read(key), stored) << "stored once, stored for good";
        EXPECT_EQ(Write(key, 0), ERROR_SUCCESS);
        RegCloseKey(key);
    }
}

TEST_F(StoreTest, AnotherProcessSeesWholeValuesAndNewKeys) {
    CloseStore();
    Writer writer([](BYTE fill) {
        const std::u16string path =
            u"Ports\\" + std::u16string(1, static_cast<WCHAR>(0x4E00 + fill));
        HKEY port = nullptr;
        HKEY key = nullptr;
        const bool done = RegCreateKeyExW(HKEY_LOCAL_MACHINE, path.c_str(), 0, nullptr, 0, KEY_READ,
                                          nullptr, &port, nullptr) == ERROR_SUCCESS &&
                          Open(&key) == ERROR_SUCCESS && Write(key, fill) == ERROR_SUCCESS;
        RegCloseKey(port);
        RegCloseKey(key);
        return done;
    });
    ASSERT_EQ(writer.LastStored(1), 1);
    HKEY key = nullptr;
    HKEY ports = nullptr;
    ASSERT_EQ(Open(&key), ERROR_SUCCESS);
    ASSERT_EQ(RegOpenKeyW(HKEY_LOCAL_MACHINE, u"Ports", &ports), ERROR_SUCCESS);
    for (DWORD stored = 1; stored < 40;) {
        const int seen = Read(key);
        EXPECT_GE(seen, static_cast<int>(stored));
        WCHAR name[8];
        DWORD size = 8;
        EXPECT_EQ(RegEnumKeyExW(ports, stored - 1, name, &size, nullptr, nullptr, nullptr, nullptr),
                  ERROR_SUCCESS);
        stored = static_cast<DWORD>(writer.LastStored(1));
    }
    RegCloseKey(ports);
    RegCloseKey(key);
}

TEST_F(StoreTest, ThreadsShareTheMachine) {
    std::vector<std::jthread> threads(4);
    for (std::jthread& thread : threads) {
        thread = std::jthread([] {
            for (BYTE fill = 0; fill < 10; ++fill) {
                HKEY key = nullptr;
                EXPECT_EQ(Open(&key), ERROR_SUCCESS);
                EXPECT_EQ(Write(key, fill), ERROR_SUCCESS);
                EXPECT_GE(Read(key), 0);
                RegCloseKey(key);
            }
        });
    }
}

TEST_F(StoreTest, ADamagedFileIsReportedAndLeftAlone) {
    HKEY key = OpenWith(7);
    RegCloseKey(key);
    CloseStore();
    const std::string good = ReadFile("registry.sqlite");
    ASSERT_GT(good.size(), std::size_t{kValueSize});
    std::string page = good;
    page.replace(4096, 4096, std::string(4096, '\x55'));
    std::string later = good;
    later[63] = 9;  // a later version of the tables
    for (const std::string& damaged :
         {std::string("no registry at all"), std::string(100'000, '\x01'), std::string(1, 'S'),
          page, later, good.substr(0, good.size() / 2), good.substr(0, 1000),
          good.substr(0, good.size() - 1)}) {
        WriteFile("registry.sqlite", damaged);
        const LSTATUS expected = damaged == later ? ERROR_UNKNOWN_REVISION : ERROR_BADDB;
        EXPECT_EQ(Open(&key), expected);
        EXPECT_EQ(RegOpenKeyW(HKEY_LOCAL_MACHINE, u"Printers", &key), expected);
        CloseStore();
        EXPECT_EQ(ReadFile("registry.sqlite"), damaged) << "left as it was";
    }
    WriteFile("registry.sqlite", good);
    ASSERT_EQ(Open(&key), ERROR_SUCCESS) << "whole again";
    EXPECT_EQ(Read(key), 7);
    RegCloseKey(key);
}

TEST_F(StoreTest, ALockKeepsOnlyWritersOut) {
    RegCloseKey(OpenWith(7));
    CloseStore();
    sqlite3* other = nullptr;
    ASSERT_EQ(sqlite3_open((Folder() / "registry.sqlite").c_str(), &other), SQLITE_OK);
    ASSERT_EQ(sqlite3_exec(other, "BEGIN EXCLUSIVE", nullptr, nullptr, nullptr), SQLITE_OK);
    HKEY key = nullptr;
    ASSERT_EQ(Open(&key), ERROR_SUCCESS) << "what is there is opened without writing";
    EXPECT_EQ(Read(key), 7);
    EXPECT_EQ(Write(key, 8), ERROR_BUSY);
    sqlite3_close(other);
    EXPECT_EQ(Write(key, 8), ERROR_SUCCESS);
    RegCloseKey(key);
}

TEST_F(StoreTest, ReadingNeedsNeitherSpaceNorTheRightToWrite) {
    HKEY key = nullptr;
    {
        const tests::NoSpace none;
        EXPECT_EQ(RegOpenKeyW(HKEY_LOCAL_MACHINE, u"Printers", &key), ERROR_FILE_NOT_FOUND)
            << "nothing has been written yet";
        EXPECT_NE(Open(&key), ERROR_SUCCESS);
    }
    RegCloseKey(OpenWith(7));
    CloseStore();
    {
        const tests::NoSpace none;
        ASSERT_EQ(Open(&key), ERROR_SUCCESS);
        EXPECT_EQ(Read(key), 7);
        EXPECT_NE(Write(key, 8), ERROR_SUCCESS);
    }
    EXPECT_EQ(Read(key), 7);
    EXPECT_EQ(Write(key, 8), ERROR_SUCCESS) << "space again";
    RegCloseKey(key);
    CloseStore();
    EXPECT_TRUE(IsReadWithoutTheRightToWrite(8));
    // What a process that died left in the log is read too, also where no index can be made of it.
    const pid_t writer = fork();
    if (writer == 0) _exit(Open(&key) == ERROR_SUCCESS && Write(key, 6) == ERROR_SUCCESS ? 0 : 1);
    EXPECT_EQ(ExitCode(writer), 0);
    EXPECT_TRUE(std::filesystem::remove(Folder() / "registry.sqlite-shm"));
    EXPECT_TRUE(IsReadWithoutTheRightToWrite(6));
}

TEST_F(StoreTest, ManyProcessesMayUseANewMachineAtOnce) {
    for (int round = 0; round < 10; ++round) {
        platform::UseMachine(Folder() / std::to_string(round));
        std::vector<pid_t> users(8);
        for (pid_t& user : users) {
            user = fork();
            if (user != 0) continue;
            alarm(60);
            HKEY key = nullptr;
            _exit(Open(&key) == ERROR_SUCCESS && Write(key, 1) == ERROR_SUCCESS && Read(key) == 1
                      ? 0
                      : 1);
        }
        for (const pid_t user : users) EXPECT_EQ(ExitCode(user), 0);
    }
    CloseStore();
}

TEST_F(StoreTest, AChangeOfSeveralPartsIsStoredWholeOrNotAtAll) {
    HKEY key = OpenWith(7);
    EXPECT_EQ(platform::ChangeAtOnce([key]() -> DWORD {
                  EXPECT_EQ(Write(key, 8), ERROR_SUCCESS);
                  return ERROR_GEN_FAILURE;
              }),
              DWORD{ERROR_GEN_FAILURE});
    EXPECT_EQ(Read(key), 7);
    RegCloseKey(key);
}

}  // namespace
