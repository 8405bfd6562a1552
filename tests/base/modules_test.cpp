#include <windows.h>

#include <vector>

#include "platform/base/machine.h"
#include "platform/faults/failure_points.h"
#include "platform/modules/resources.h"
#include "tests/support/machine_fixture.h"

namespace {

namespace fs = std::filesystem;

class ModuleTest : public tests::MachineTest {
protected:
    static void Install(const fs::path& folder, const char* name) {
        fs::copy_file(SAMPLE_MODULE, folder / name);
    }
    /// Calls an export without parameters.
    template <typename Result>
    static Result Call(HMODULE module, const char* name) {
        void* function = reinterpret_cast<void*>(GetProcAddress(module, name));
        return function == nullptr ? nullptr : reinterpret_cast<Result (*)()>(function)();
    }
};

TEST_F(ModuleTest, FoundInItsPlacesAttachedOnceAndDetachedAtTheLastUse) {
    Install(platform::DriverFolder(), "SAMPLE_A.DLL");
    Install(Folder() / "Windows", "SAMPLE_B.DLL");
    EXPECT_EQ(LoadLibraryW(u"SAMPLE_A"), nullptr) << "the driver's folder is not searched";
    EXPECT_EQ(GetLastError(), DWORD{ERROR_MOD_NOT_FOUND});
    const HMODULE first =
        LoadLibraryW(u"C:\\Windows\\System32\\spool\\drivers\\x64\\3\\SAMPLE_A.DLL");
    const HMODULE other = LoadLibraryW(u"Sample_B");
    ASSERT_NE(first, nullptr);
    ASSERT_NE(other, nullptr);
    EXPECT_NE(first, other) << "copies under two names share nothing";
    EXPECT_EQ(Call<HINSTANCE>(first, "AttachedAs"), first);
    EXPECT_EQ(Call<HINSTANCE>(other, "AttachedAs"), other);
    EXPECT_EQ(std::u16string(Call<LPCWSTR>(other, "OwnFile")), u"C:\\Windows\\SAMPLE_B.DLL");
    EXPECT_EQ(LoadLibraryW(u"sample_a"), first) << "in use already";
    SetLastError(0);
    EXPECT_TRUE(FreeLibrary(first));
    EXPECT_EQ(GetLastError(), 0u);
    EXPECT_TRUE(FreeLibrary(first));
    EXPECT_EQ(GetLastError(), 4711u) << "the entry is told when it goes";
    EXPECT_FALSE(FreeLibrary(first));
    EXPECT_EQ(GetLastError(), DWORD{ERROR_INVALID_HANDLE});
    EXPECT_TRUE(FreeLibrary(other));
}

TEST_F(ModuleTest, WhatCannotBeLoadedSaysWhy) {
    std::ifstream sample(SAMPLE_MODULE, std::ios::binary);
    const std::string whole(std::istreambuf_iterator<char>(sample), {});
    for (std::size_t at = 0; at < whole.size(); at += at < 64 ? 1 : 997) {
        WriteFile("Windows/CUT.DLL", whole.substr(0, at));
        EXPECT_EQ(LoadLibraryW(u"CUT.DLL"), nullptr) << at << " bytes are left";
        EXPECT_EQ(GetLastError(), DWORD{ERROR_BAD_EXE_FORMAT});
    }
    EXPECT_EQ(LoadLibraryW(u"NONE.DLL"), nullptr);
    EXPECT_EQ(GetLastError(), DWORD{ERROR_MOD_NOT_FOUND});
    Install(Folder() / "Windows", "SAMPLE.DLL");
    SetLastError(4712);
    EXPECT_EQ(LoadLibraryW(u"SAMPLE.DLL"), nullptr);
    EXPECT_EQ(GetLastError(), DWORD{ERROR_DLL_INIT_FAILED});
    const HMODULE module = LoadLibraryW(u"SAMPLE.DLL");
    ASSERT_NE(module, nullptr) << "a module that refused once may run the next time";
    EXPECT_EQ(GetProcAddress(module, "Missing"), nullptr);
    EXPECT_EQ(GetLastError(), DWORD{ERROR_PROC_NOT_FOUND});
    EXPECT_EQ(GetProcAddress(module, "malloc"), nullptr) << "of a library below it";
    EXPECT_TRUE(FreeLibrary(module));
}

TEST_F(ModuleTest, FileNameIsCutTerminatedAndReported) {
    Install(platform::DriverFolder(), "QVRX__UI.DLL");
    const std::u16string path = u"C:\\Windows\\System32\\spool\\drivers\\x64\\3\\QVRX__UI.DLL";
    const HMODULE module = LoadLibraryW(path.c_str());
    const auto length = static_cast<DWORD>(path.size());
    for (DWORD size = 1; size <= length + 2; ++size) {
        std::vector<WCHAR> name(size + 1, u'!');
        SetLastError(0);
        const DWORD copied = GetModuleFileNameW(module, name.data(), size);
        const DWORD kept = std::min(length, size - 1);
        EXPECT_EQ(copied, size > length ? length : size);
        EXPECT_EQ(std::u16string(name.data()), path.substr(0, kept)) << size;
        EXPECT_EQ(GetLastError(), size > length ? 0u : DWORD{ERROR_INSUFFICIENT_BUFFER});
    }
    FreeLibrary(module);
    WCHAR program[MAX_PATH];
    EXPECT_GT(GetModuleFileNameW(nullptr, program, MAX_PATH), 3u);
    EXPECT_EQ(program[0], u'Z');
    EXPECT_EQ(GetModuleFileNameW(module, program, MAX_PATH), 0u) << "no longer a module";
}

TEST_F(ModuleTest, TextsOfTheStringTable) {
    Install(Folder() / "Windows", "SAMPLE.DLL");
    const HMODULE module = LoadLibraryW(u"SAMPLE.DLL");
    const struct {
        UINT id;
        int size;
        const char16_t* text;
    } rows[] = {{31, 32, u"thirty-one \u20AC"},
                {500, 32, u"five hundred"},
                {16, 8, u"sixteen"},
                {16, 7, u"sixtee"},
                {16, 1, u""},
                {17, 32, u""},
                {0x10000 + 16, 32, u"sixteen"}};
    for (const auto& row : rows) {
        std::vector<WCHAR> text(static_cast<std::size_t>(row.size), u'!');
        const int length = LoadStringW(module, row.id, text.data(), row.size);
        EXPECT_EQ(std::u16string(text.data()), row.text) << row.id << " in " << row.size;
        EXPECT_EQ(std::u16string(row.text).size(), static_cast<std::size_t>(length));
    }
    WCHAR text[4];
    EXPECT_EQ(LoadStringW(module, 999, text, 4), 0);
    EXPECT_EQ(LoadStringW(nullptr, 16, text, 4), 0) << "this program has no texts";
    const auto dialog = platform::FindResource(module, platform::kDialogResource, 297);
    EXPECT_GT(dialog.size(), 18u);
    EXPECT_TRUE(platform::FindResource(module, platform::kDialogResource, 298).empty());
    FreeLibrary(module);
}

TEST(Resources, DamagedContentsEndTheSearch) {
    std::ifstream file(SAMPLE_RESOURCES, std::ios::binary);
    const std::vector<char> read(std::istreambuf_iterator<char>(file), {});
    const std::vector<unsigned char> whole(read.begin(), read.end());
    ASSERT_FALSE(platform::FindResource(whole, platform::kDialogResource, 297).empty());
    for (std::size_t at = 0; at < whole.size(); ++at) {
        // A copy of exactly that size, so that a step too far is seen.
        const std::vector<unsigned char> cut(whole.data(), whole.data() + at);
        EXPECT_TRUE(platform::FindResource(cut, platform::kStringTableResource, 9999).empty());
        std::vector<unsigned char> changed = whole;
        changed[at] ^= 0xFF;
        EXPECT_TRUE(platform::FindResource(changed, platform::kStringTableResource, 9999).empty());
    }
}

}  // namespace
