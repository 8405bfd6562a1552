#include <windows.h>

#include "platform/base/machine.h"
#include "platform/base/paths.h"
#include "platform/text/text_encoding.h"
#include "tests/support/machine_fixture.h"

namespace {

namespace fs = std::filesystem;

class MachinePaths : public tests::MachineTest {
protected:
    /// Below the machine's folder, with slashes; the text of another path as it is.
    std::string Below(std::u16string_view path) const {
        const fs::path file = platform::NativePath(path);
        const std::string& text = file.native();
        const std::string root = Folder().native() + "/";
        return text.starts_with(root) ? text.substr(root.size()) : text;
    }
};

TEST_F(MachinePaths, LookedUpInAnyCaseAndNeverOutside) {
    WriteFile("Windows/System32/Mixed.Dll", "");
    WriteFile("Windows/Settings.ini", "");
    const struct {
        const char16_t* path;
        const char* file;
    } rows[] = {
        {u"c:\\WINDOWS\\system32\\mIXED.dLL", "Windows/System32/Mixed.Dll"},
        {u"SETTINGS.INI", "Windows/Settings.ini"},
        {u"system32/mixed.dll", "Windows/System32/Mixed.Dll"},
        {u"C:\\New\\File.txt", "New/File.txt"},
        {u"C:\\windows\\..\\..\\..\\etc\\passwd", "etc/passwd"},
        {u"..\\..\\x", "Windows/x"},
        {u"Z:\\usr\\share", "/usr/share"},
        {u"Z:\\..\\usr", "/usr"},
        {u"C:relative", ""},
        {u"Q:\\x", ""},
        {u"\\\\server\\share", ""},
        {u"", ""},
    };
    for (const auto& row : rows) EXPECT_EQ(Below(row.path), row.file) << platform::Utf8(row.path);
}

TEST_F(MachinePaths, FilesHavePlatformNames) {
    const fs::path inside = WriteFile("Windows/Settings.ini", "");
    EXPECT_EQ(platform::PlatformPath(inside), u"C:\\Windows\\Settings.ini");
    EXPECT_EQ(platform::PlatformPath(Folder()), u"C:\\");
    EXPECT_EQ(platform::PlatformPath("/usr/../etc/hosts"), u"Z:\\etc\\hosts");
    const fs::path link = Folder() / "link";
    fs::create_symlink(Folder(), link);
    EXPECT_EQ(platform::PlatformPath(link / "Windows/x"), u"C:\\link\\Windows\\x");
    EXPECT_EQ(platform::DriverFolder(), Folder() / "Windows/System32/spool/drivers/x64/3");
}

TEST_F(MachinePaths, AFolderThatCannotBeMadeIsAnError) {
    const fs::path file = WriteFile("occupied", "");
    EXPECT_THROW(platform::UseMachine(file), fs::filesystem_error);
    EXPECT_TRUE(platform::MachineFolder().empty());
    EXPECT_TRUE(platform::NativePath(u"C:\\Windows").empty());
    HKEY key;
    EXPECT_EQ(RegOpenKeyW(HKEY_LOCAL_MACHINE, u"x", &key), ERROR_PATH_NOT_FOUND);
}

TEST(Encoding, Utf8AndBack) {
    EXPECT_EQ(platform::Utf8(u"a\u20AC\U0001F600"), "a\xE2\x82\xAC\xF0\x9F\x98\x80");
    EXPECT_EQ(platform::Utf16("a\xE2\x82\xAC\xF0\x9F\x98\x80"), u"a\u20AC\U0001F600");
    EXPECT_EQ(platform::Utf8(std::u16string(1, char16_t{0xDC00})), "\xEF\xBF\xBD");
    EXPECT_EQ(platform::Utf16("\xC3(\xED\xA0\x80"), u"\uFFFD(\uFFFD\uFFFD\uFFFD");
    const std::u16string lone = {u'a', 0xDFFF, 0xD83D, u'\u20AC', 0xD83D, 0xDE00, 0xDC00};
    EXPECT_EQ(platform::ExactUtf8(lone),
              "a\xED\xBF\xBF\xED\xA0\xBD\xE2\x82\xAC\xF0\x9F\x98\x80\xED\xB0\x80");
    EXPECT_EQ(platform::ExactUtf16(platform::ExactUtf8(lone)), lone);
    EXPECT_EQ(platform::ExactUtf16("\xED\xA0(\xE2\xED\xA0\x80"),
              u"\uFFFD\uFFFD(\uFFFD" + std::u16string(1, 0xD800));
}

}  // namespace
