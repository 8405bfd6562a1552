#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>
#include <windows.h>

#include <vector>

#include "platform/faults/failure_points.h"
#include "platform/text/text_encoding.h"
#include "tests/support/machine_fixture.h"

namespace {

constexpr const char kFile[] =
    "[Before]\r\nNUM=9\r\n"
    "[ WatermarkInfo ]\r\n"
    "; NUM = 1\r\n"
    "\tNUM = 3,x \t\r\n"
    "dat0=0,<NONE>,,Arial, 72\r\n"
    "q1=\"quoted \"\nq2='single '\nq3=\"half\nq4=\"a\"b\"\nq5=\"\n"
    "emp=\nsp=   \n"
    "noequals\n"
    "semi=a;b\n"
    "dup=1\ndup=2\n"
    "euro=\x80\n"
    "n1=12abc\nn2=-5\nn3=0x1F\nn4= 7 \nn5=+4\nn6=abc\nn7=4294967299\nn8=\"21\"\n"
    "[WatermarkInfo]\nonly=second\n"
    "[Last]\nend=without newline";

class ProfileTest : public tests::MachineTest {
protected:
    ProfileTest() { WriteFile("Windows/Test.INI", kFile); }

    static std::u16string Read(const char16_t* key, const char16_t* file = u"test.ini",
                               DWORD size = 512) {
        std::vector<WCHAR> value(size + 1, u'!');
        const DWORD length =
            GetPrivateProfileStringW(u"watermarkINFO", key, u"default  ", value.data(), size, file);
        EXPECT_EQ(value[size], u'!');
        const std::u16string read = value.data();
        EXPECT_EQ(read.size(), length);
        return read;
    }
};

TEST_F(ProfileTest, ValuesAsTheyAreRead) {
    const struct {
        const char16_t* key;
        const char16_t* value;
    } rows[] = {{u"num", u"3,x"},       {u"DAT0", u"0,<NONE>,,Arial, 72"},
                {u"q1", u"quoted "},    {u"q2", u"single "},
                {u"q3", u"\"half"},     {u"q4", u"a\"b"},
                {u"q5", u"\""},         {u"emp", u""},
                {u"sp", u""},           {u"noequals", u"default"},
                {u"; NUM", u"default"}, {u"semi", u"a;b"},
                {u"dup", u"1"},         {u"euro", u"\u20AC"},
                {u"only", u"default"}};
    for (const auto& row : rows) EXPECT_EQ(Read(row.key), row.value) << platform::Utf8(row.key);
    EXPECT_EQ(Read(u"num", u"C:\\WINDOWS\\test.ini"), u"3,x");
    EXPECT_EQ(Read(u"num", u"none.ini"), u"default");
    EXPECT_EQ(GetLastError(), DWORD{ERROR_FILE_NOT_FOUND});
    WCHAR value[32];
    EXPECT_EQ(GetPrivateProfileStringW(u"Last", u"end", nullptr, value, 32, u"test.ini"), 15u);
    EXPECT_EQ(GetPrivateProfileStringW(u"None", nullptr, u"d", value, 32, u"test.ini"), 1u);
}

TEST_F(ProfileTest, NamesOfSectionsAndKeysInTheRoomThereIs) {
    using namespace std::string_literals;
    WriteFile("Windows/names.ini", "[ A ]\nx=1\nnoequals\n;c=1\nY = 2\nx=3\n[b]\nz=1\n[a]\nq=1\n");
    const struct {
        const WCHAR* section;
        DWORD size;
        DWORD length;
        std::u16string names;
    } rows[] = {{nullptr, 7, 6, u"A\0b\0a\0\0"s},
                {u"a", 7, 6, u"x\0Y\0x\0\0"s},
                {u"a", 6, 4, u"x\0Y\0\0\0"s},
                {u"a", 5, 3, u"x\0Y\0\0"s},
                {u"a", 1, 0, u"\0!!!!"s}};
    for (const auto& row : rows) {
        std::u16string read(row.names.size(), u'!');
        EXPECT_EQ(GetPrivateProfileStringW(row.section, nullptr, u"", read.data(), row.size,
                                           u"names.ini"),
                  row.length);
        EXPECT_EQ(read, row.names) << row.size;
    }
}

TEST_F(ProfileTest, NumbersAsTheyAreRead) {
    const struct {
        const char16_t* key;
        int number;
    } rows[] = {{u"n1", 12}, {u"n2", -5},  {u"n3", 31},      {u"n4", 7}, {u"n5", 4},
                {u"n6", 0},  {u"emp", 77}, {u"missing", 77}, {u"n7", 3}, {u"n8", 21}};
    for (const auto& row : rows) {
        const UINT number = GetPrivateProfileIntW(u"WatermarkInfo", row.key, 77, u"test.ini");
        EXPECT_EQ(static_cast<int>(number), row.number) << platform::Utf8(row.key);
    }
}

TEST_F(ProfileTest, NeverMoreThanTheBuffer) {
    EXPECT_EQ(Read(u"dat0", u"test.ini", 5), u"0,<N");
    EXPECT_EQ(Read(u"missing", u"test.ini", 4), u"def");
    EXPECT_TRUE(Read(u"dat0", u"test.ini", 1).empty());
    EXPECT_EQ(GetPrivateProfileStringW(u"x", u"y", u"z", nullptr, 0, u"test.ini"), 0u);
}

TEST_F(ProfileTest, EncodingsByTheirMarks) {
    WriteFile("Windows/utf8.ini",
              "\xEF\xBB\xBF[WatermarkInfo]\nk=\xE2\x82\xAC\xF0\x9F\x98\x80\n\xC4\xB1=i\n");
    EXPECT_EQ(Read(u"I", u"utf8.ini"), u"default") << "no capital of the dotless letter";
    EXPECT_EQ(Read(u"k", u"utf8.ini"), u"\u20AC\U0001F600");
    const std::u16string text = u"\uFEFF[WatermarkInfo]\r\n\u00C4 = \u4E2D\r\n";
    std::string little(reinterpret_cast<const char*>(text.data()), text.size() * 2);
    WriteFile("Windows/utf16.ini", little);
    EXPECT_EQ(Read(u"\u00E4", u"utf16.ini"), u"\u4E2D");
    for (std::size_t i = 0; i < little.size(); i += 2) std::swap(little[i], little[i + 1]);
    WriteFile("Windows/utf16be.ini", little);
    EXPECT_EQ(Read(u"\u00E4", u"utf16be.ini"), u"\u4E2D");
}

TEST_F(ProfileTest, WildFilesAreRead) {
    using namespace std::string_literals;
    WriteFile("Windows/wild.ini", "[WatermarkInfo]\nlong=" + std::string(10000, 'x') +
                                      "\nnul=ab\0cd\n"s + "[unclosed\n]=odd\n=nothing\nafter=yes");
    EXPECT_EQ(Read(u"long", u"wild.ini").size(), 511u);
    EXPECT_EQ(Read(u"nul", u"wild.ini"), u"ab");
    EXPECT_EQ(Read(u"after", u"wild.ini"), u"yes");
    WriteFile("Windows/odd.ini", "\xFF\xFE[");
    EXPECT_EQ(Read(u"after", u"odd.ini"), u"default");
    WriteFile("Windows/empty.ini", "");
    EXPECT_EQ(Read(u"after", u"empty.ini"), u"default");
    const std::filesystem::path windows = Folder() / "Windows";
    std::filesystem::create_directory(windows / "folder.ini");
    std::filesystem::create_symlink("/dev/zero", windows / "device.ini");
    for (const char16_t* file : {u"folder.ini", u"device.ini"}) {
        EXPECT_EQ(Read(u"after", file), u"default");
        EXPECT_EQ(GetLastError(), DWORD{ERROR_FILE_NOT_FOUND});
    }
    const platform::FailurePlan plan("GetPrivateProfileStringW", 1, ERROR_ACCESS_DENIED);
    EXPECT_EQ(Read(u"num"), u"default");
    EXPECT_EQ(GetLastError(), DWORD{ERROR_ACCESS_DENIED});
}

#ifdef TRY_LITTLE_MEMORY
TEST_F(ProfileTest, WithoutMemoryThereIsTheDefaultAndNoException) {
    WriteFile("Windows/large.ini", "[WatermarkInfo]\nk=1\n" + std::string(15 << 20, ';'));
    const pid_t reader = fork();
    if (reader == 0) {
        const rlimit little = {8 << 20, 8 << 20};
        setrlimit(RLIMIT_AS, &little);
        const UINT number = GetPrivateProfileIntW(u"WatermarkInfo", u"k", 77, u"large.ini");
        _exit(number == 77 && GetLastError() == ERROR_NOT_ENOUGH_MEMORY ? 0 : 1);
    }
    int status = -1;
    waitpid(reader, &status, 0);
    EXPECT_EQ(status, 0);
}
#endif

}  // namespace
