#include <windows.h>

#include <cstring>

#include "platform/faults/failure_points.h"
#include "tests/support/machine_fixture.h"
#include "tests/support/test_clock.h"

namespace {

TEST(Version, BothRecordsAndNoOther) {
    OSVERSIONINFOEXW version;
    std::memset(&version, 0xEE, sizeof(version));
    version.dwOSVersionInfoSize = sizeof(OSVERSIONINFOW);
    ASSERT_TRUE(GetVersionExW(reinterpret_cast<OSVERSIONINFOW*>(&version)));
    EXPECT_EQ(version.dwPlatformId, DWORD{VER_PLATFORM_WIN32_NT});
    EXPECT_EQ(version.dwMajorVersion, 10u);
    EXPECT_EQ(version.wServicePackMajor, 0xEEEE) << "beyond the shorter record";
    version.dwOSVersionInfoSize = sizeof(version);
    ASSERT_TRUE(GetVersionExW(reinterpret_cast<OSVERSIONINFOW*>(&version)));
    EXPECT_EQ(version.wServicePackMajor, 0);
    version.dwOSVersionInfoSize = 148;
    EXPECT_FALSE(GetVersionExW(reinterpret_cast<OSVERSIONINFOW*>(&version)));
    EXPECT_EQ(GetLastError(), DWORD{ERROR_INSUFFICIENT_BUFFER});
}

TEST(SystemDirectory, LengthOrTheRoomNeeded) {
    WCHAR path[20] = {};
    EXPECT_EQ(GetSystemDirectoryW(path, 19), 20u);
    EXPECT_EQ(path[0], 0);
    EXPECT_EQ(GetSystemDirectoryW(path, 20), 19u);
    EXPECT_EQ(std::u16string(path), u"C:\\Windows\\System32");
}

TEST(Clock, SleepReturnsAtOnceAndIsCounted) {
    const tests::TestClock clock;
    Sleep(3'600'000);
    Sleep(100);
    EXPECT_EQ(clock.Sleeps(), (std::vector<DWORD>{3'600'000, 100}));
    EXPECT_EQ(clock.Elapsed(), 3'600'100u);
}

TEST(FailurePoints, CountFailTheNthAndFailEveryCall) {
    WCHAR path[MAX_PATH];
    {
        const platform::FailurePlan counting;
        EXPECT_NE(GetSystemDirectoryW(path, MAX_PATH), 0u);
        EXPECT_EQ(LoadLibraryW(u""), nullptr);
        EXPECT_EQ(counting.Passed(),
                  (std::vector<std::string>{"GetSystemDirectoryW", "LoadLibraryW"}));
        EXPECT_FALSE(counting.Fired());
    }
    {
        const platform::FailurePlan second(2, ERROR_GEN_FAILURE);
        EXPECT_NE(GetSystemDirectoryW(path, MAX_PATH), 0u);
        EXPECT_EQ(GetSystemDirectoryW(path, MAX_PATH), 0u);
        EXPECT_EQ(GetLastError(), DWORD{ERROR_GEN_FAILURE});
        EXPECT_TRUE(second.Fired());
        EXPECT_NE(GetSystemDirectoryW(path, MAX_PATH), 0u);
    }
    {
        const platform::FailurePlan every("GetSystemDirectoryW", 0, ERROR_BUSY);
        EXPECT_EQ(GetSystemDirectoryW(path, MAX_PATH), 0u);
        EXPECT_EQ(GetSystemDirectoryW(path, MAX_PATH), 0u);
        OSVERSIONINFOW version{};
        version.dwOSVersionInfoSize = sizeof(version);
        EXPECT_TRUE(GetVersionExW(&version)) << "another point";
    }
    EXPECT_NE(GetSystemDirectoryW(path, MAX_PATH), 0u);
}

}  // namespace
