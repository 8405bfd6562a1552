// Too little memory, at each place where a public function of the layer takes some: it fails as the
// platform's does, lets no exception out and leaves nothing open.

#include <gtest/gtest.h>
#include <windows.h>
#include <winsock.h>
#include <winspool.h>

#include <cstdlib>
#include <new>

#include "platform/faults/live_objects.h"
#include "tests/support/machine_fixture.h"
#include "tests/support/patient_user.h"
#include "tests/support/test_printer.h"

namespace {

constexpr int kAll = -1;
thread_local int allowed = kAll;  // allocations that this thread still gets
thread_local bool hasRunOut = false;

}  // namespace

void* operator new(std::size_t size) {
    hasRunOut = hasRunOut || allowed == 0;
    void* block = allowed == 0 ? nullptr : std::malloc(size);
    if (block == nullptr) throw std::bad_alloc();
    if (allowed > 0) --allowed;
    return block;
}
void operator delete(void* block) noexcept {
    std::free(block);
}
void operator delete(void* block, std::size_t) noexcept {
    std::free(block);
}

namespace {

/// What a group of calls comes to: the error of the first that fails, after which none is made.
class Outcome {
public:
    void Key(auto call) {
        if (error_ == 0) error_ = static_cast<DWORD>(call());
    }
    /// \param call  answers 0, null or FALSE when it fails, with the last error set.
    void Do(auto call) {
        if (error_ == 0 && !call()) error_ = ::GetLastError();
    }
    [[nodiscard]] DWORD Error() const { return error_; }

private:
    DWORD error_ = 0;
};

constexpr const WCHAR* kText = u"A text that takes memory of its own";

DWORD UseRegistry() {
    Outcome outcome;
    HKEY key = nullptr;
    HKEY made = nullptr;
    WCHAR name[64] = {};
    DWORD size = 64;
    const BYTE bytes[100] = {};
    outcome.Key([&] { return ::RegOpenKeyW(HKEY_LOCAL_MACHINE, u"System", &key); });
    outcome.Key([&] {
        return ::RegCreateKeyExW(key, kText, 0, nullptr, 0, KEY_ALL_ACCESS, nullptr, &made,
                                 nullptr);
    });
    outcome.Key([&] { return ::RegSetValueExW(made, kText, 0, REG_BINARY, bytes, 100); });
    outcome.Key([&] { return ::RegQueryValueExW(made, kText, nullptr, nullptr, nullptr, &size); });
    outcome.Key(
        [&] { return ::RegEnumKeyExW(key, 0, name, &size, nullptr, nullptr, nullptr, nullptr); });
    outcome.Key([&] { return ::RegDeleteTreeW(key, kText); });
    ::RegCloseKey(made);
    ::RegCloseKey(key);
    return outcome.Error();
}

DWORD UseHeapAndText() {
    Outcome outcome;
    HANDLE heap = nullptr;
    CHAR bytes[64];
    outcome.Do([&] { return heap = ::HeapCreate(0, 0, 0); });
    outcome.Do([&] {
        ::SetLastError(ERROR_NOT_ENOUGH_MEMORY);  // which is not this call's to set
        return ::HeapReAlloc(heap, 0, ::HeapAlloc(heap, 0, 10), 1000);
    });
    outcome.Do(
        [&] { return ::WideCharToMultiByte(CP_ACP, 0, kText, -1, bytes, 64, nullptr, nullptr); });
    outcome.Do([] { return ::lstrcmpiW(kText, u"A TEXT THAT TAKES MEMORY OF ITS OWN B") < 0; });
    outcome.Do([] { return ::GetPrivateProfileIntW(u"Section", u"key", 0, u"any.ini"); });
    ::HeapDestroy(heap);
    return outcome.Error();
}

DWORD UseModulesProgramsSocketsAndSpooler() {
    Outcome outcome;
    WCHAR name[MAX_PATH];
    WCHAR line[] = u"PROGRAM.EXE with its arguments";
    STARTUPINFOW startup = {};
    PROCESS_INFORMATION process = {};
    WSADATA details = {};
    DWORD needed = 0;
    DWORD count = 0;
    outcome.Do([&] { return ::GetModuleFileNameW(nullptr, name, MAX_PATH); });
    outcome.Do([] {
        return ::LoadLibraryW(u"any") == nullptr && ::GetLastError() == ERROR_MOD_NOT_FOUND;
    });
    outcome.Do([&] {
        return ::CreateProcessW(nullptr, line, nullptr, nullptr, FALSE, 0, nullptr, nullptr,
                                &startup, &process);
    });
    ::CloseHandle(process.hThread);
    ::CloseHandle(process.hProcess);
    ::WSAStartup(0x0101, &details);
    outcome.Do([] { return ::gethostbyname("localhost"); });
    outcome.Do([] { return ::socket(AF_INET, SOCK_STREAM, IPPROTO_TCP) != INVALID_SOCKET; });
    ::WSACleanup();
    outcome.Do([&] {
        ::EnumPrintersW(PRINTER_ENUM_LOCAL, nullptr, 2, nullptr, 0, &needed, &count);
        return ::GetLastError() == ERROR_INSUFFICIENT_BUFFER;
    });
    return outcome.Error();
}

bool IsDeleted(HGDIOBJ made) {
    return made != nullptr && ::DeleteObject(made) != FALSE;
}

DWORD UseWindows() {
    Outcome outcome;
    HDC context = nullptr;
    outcome.Do([&] { return context = ::CreateCompatibleDC(nullptr); });
    const LOGFONTW font = {};
    outcome.Do([&] { return IsDeleted(::CreateFontIndirectW(&font)); });
    outcome.Do([&] { return IsDeleted(::CreateCompatibleBitmap(context, 20, 20)); });
    outcome.Do([] { return ::MessageBoxW(nullptr, kText, kText, MB_OK); });
    outcome.Do([] { return ::WinHelpW(nullptr, u"C:\\Windows\\any.hlp", HELP_CONTEXT, 7); });
    ::DeleteDC(context);
    return outcome.Error();
}

using LittleMemory = tests::MachineTest;

TEST_F(LittleMemory, FailsACallAndNothingElse) {
    const tests::PatientUser user;
    const tests::TestPrinter printer(TEXT("Office"));
    WriteFile("Windows/any.ini", "[Section]\nkey=1\n" + std::string(1000, ';'));
    WriteFile("Windows/any.hlp", "[7] A topic\nA text that takes memory of its own\n");
    std::filesystem::permissions(WriteFile("Windows/PROGRAM.EXE", "#!/bin/sh\n"),
                                 std::filesystem::perms::owner_all);
    for (const auto use :
         {UseRegistry, UseHeapAndText, UseModulesProgramsSocketsAndSpooler, UseWindows}) {
        ASSERT_EQ(use(), 0U) << "with all memory";
        const auto open = platform::LiveObjects();
        for (int place = 0; hasRunOut || place == 0; ++place) {
            DWORD error = 0xFFFFFFFF;
            hasRunOut = false;
            allowed = place;
            try {
                error = use();
            } catch (...) {
            }
            allowed = kAll;
            // Some calls manage without.
            ASSERT_TRUE(error == 0 || error == ERROR_NOT_ENOUGH_MEMORY) << error << " at " << place;
            ASSERT_EQ(platform::LiveObjects(), open) << "at " << place;
        }
    }
}

}  // namespace
