// A library and a program under the driver's names lie wherever the platform looks for them.
#include <windows.h>

#include <cstdlib>
#include <filesystem>
#include <vector>

#include "common/fixed_text.h"
#include "common/plugin_module.h"
#include "docprops/exempt_papers.h"
#include "tests/support/loaded_module.h"
#include "tests/support/plugin_fixture.h"

#ifndef _WIN32
#include "platform/base/paths.h"
#endif

namespace {

namespace fs = std::filesystem;
using tests::Text;

constexpr LPCWSTR kDriver = TEXT("C:\\Windows\\System32\\spool\\drivers\\x64\\3\\QVRU__UI.DLL");
constexpr const char* kLibrary = "UNIRES.DLL";
constexpr const char* kPrograms[] = {"UNINST.EXE", "QVR_UNINST.EXE"};

#ifdef _WIN32
Text PathOf(const fs::path& file) {
    return file.native();
}
// The build's files; the current directory is on another drive.
fs::path Built(const std::string& file) {
    return "Z:" + file;
}
fs::path ProgramFolder() {
    WCHAR program[MAX_PATH] = {};
    ::GetModuleFileNameW(nullptr, program, MAX_PATH);
    return fs::path(program).parent_path();
}
void SetVariable(const char* name, const std::string& value) {
    _putenv_s(name, value.c_str());
}
#else
Text PathOf(const fs::path& file) {
    return platform::PlatformPath(file);
}
fs::path Built(const std::string& file) {
    return file;
}
void SetVariable(const char* name, const std::string& value) {
    setenv(name, value.c_str(), 1);
}
#endif

bool IsExempt(const char* paper) {
    DEVMODEW devmode = {};
    oemui::CopyText(devmode.dmFormName, tests::Wide(paper));
    OEMCUIPPARAM params = {};
    params.pPublicDM = &devmode;
    return oemui::IsExemptPaper(params);
}

class Planted : public tests::PluginTest {
protected:
    Planted() {
        tests::BecomeModel('U');
        const fs::path driver = Folder() / "Windows/System32/spool/drivers/x64/3";
        fs::create_directories(driver);
        const fs::path package = Built(PACKAGE_FOLDER) / "U";
        Copy(package / "QVRU__UI.DLL", driver / "QVRU__UI.DLL");
        Copy(package / "QVRU_UNI.INI", Folder() / "Windows/QVRU_UNI.INI");
        Copy(Built(OWN_STRINGS), driver / kLibrary);
        SetVariable("PLANTED_MARK", Mark().string());
    }
    ~Planted() override { oemui::RecordPluginModule(nullptr); }

    fs::path Mark() const { return Folder() / "mark"; }

    /// The folders that the platform searches for a bare name.
    std::vector<fs::path> SearchedFolders() const {
#ifdef _WIN32
        const fs::path current = Folder() / "current";
        const fs::path listed = Folder() / "listed";
        for (const fs::path& folder : {current, listed}) fs::create_directories(folder);
        fs::current_path(current);
        SetVariable("PATH", listed.string() + ";" + std::getenv("PATH"));
        return {ProgramFolder(), current, listed};
#else
        return {Folder() / "Windows/System32", Folder() / "Windows"};
#endif
    }

    static void Copy(const fs::path& from, const fs::path& to) {
        fs::copy_file(from, to, fs::copy_options::overwrite_existing);
    }
    static void Plant(const fs::path& folder) {
        Copy(Built(PLANTED_STRINGS), folder / kLibrary);
        for (const char* program : kPrograms) Copy(Built(PLANTED_PROGRAM), folder / program);
    }
    static void Uproot(const fs::path& folder) {
        fs::remove(folder / kLibrary);
        for (const char* program : kPrograms) fs::remove(folder / program);
    }

    /// What a print dialog and the driver's removal make of the module.
    static void Visit(const tests::LoadedModule& module) {
        IPrintOemUI* plugin = module.CreatePlugin();
        ASSERT_NE(plugin, nullptr);
        OEMCUIPPARAM params = {};
        EXPECT_EQ(plugin->CommonUIProp(OEMCUIP_DOCPROP, &params), S_OK);
        plugin->DriverEvent(DRIVER_EVENT_DELETE, 3, nullptr, 0);
        plugin->Release();
        oemui::RecordPluginModule(module.Handle());
        oemui::LoadExemptPaperNames();
    }

    /// Starts a planted program by its bare name and waits until it has told so.
    void RunPlanted() const {
        const std::string before = ReadFile("mark");
        for (Text command = TEXT("QVR_UNINST.EXE"); ReadFile("mark") == before; ::Sleep(10)) {
            if (command.empty()) continue;
            STARTUPINFOW startup = {};
            startup.cb = sizeof startup;
            PROCESS_INFORMATION process = {};
            ASSERT_TRUE(::CreateProcessW(nullptr, command.data(), nullptr, nullptr, FALSE, 0,
                                         nullptr, nullptr, &startup, &process));
            ::CloseHandle(process.hThread);
            ::CloseHandle(process.hProcess);
            command.clear();
        }
    }
};

TEST_F(Planted, NothingRunsAndTheTextsAreTheDriversOwn) {
    std::string expected;
    for (const fs::path& folder : SearchedFolders()) {
        SCOPED_TRACE(folder.string());
        Plant(folder);
        const tests::LoadedModule module(kDriver);
        ASSERT_TRUE(module);
        Visit(module);
        EXPECT_TRUE(IsExempt("Own Paper"));
        EXPECT_FALSE(IsExempt("Planted Paper"));
        EXPECT_EQ(ReadFile("mark"), expected);
        {
            // What the application itself has loaded is taken as it is.
            const oemui::UniqueLibrary loaded(::LoadLibraryW(PathOf(folder / kLibrary).c_str()));
            oemui::LoadExemptPaperNames();
            EXPECT_TRUE(IsExempt("Planted Paper"));
        }
        RunPlanted();
        EXPECT_EQ(ReadFile("mark"), expected += "LP");
        Uproot(folder);
    }
}

}  // namespace
