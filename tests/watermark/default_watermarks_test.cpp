#include "watermark/default_watermarks.h"

#include <cstring>

#include "tests/support/plugin_fixture.h"
#include "tests/support/test_printer.h"

using namespace oemui;
using tests::Narrow;

namespace {

constexpr const char* kFileName = "Windows/QVRT__WM.INI";

class DefaultWatermarks : public tests::PluginTest {
protected:
    /// A file with this "NUM" and twenty entries, every second one diagonal.
    void WriteDefaults(const std::string& number) const {
        std::string file = "[WatermarkInfo]\r\nNUM=" + number + "\r\n";
        for (int i = 0; i < 20; ++i) {
            file += "dat" + std::to_string(i) + "=" + std::to_string(90 + i) + ",Name " +
                    std::to_string(i) + ",TEXT,Arial,72,0,0,0,0,0," + std::to_string(i % 2) +
                    ",33,0,0,0\r\n";
        }
        WriteFile(kFileName, file);
    }
    static WatermarkList Load() {
        WatermarkList list = {};
        LoadDefaultWatermarks(&list);
        return list;
    }
    ~DefaultWatermarks() override { WriteFile(kFileName, ""); }
};

TEST_F(DefaultWatermarks, EntriesComeInTheOrderOfTheirKeys) {
    WriteDefaults("3");
    WatermarkList list = {};
    list.NoneSelected = 1;
    list.Selected = 2;
    list.Entries[1].ColorIndex = 4;
    list.Entries[1].Text[63] = TEXT('x');
    list.Entries[3].PointSize = 99;
    LoadDefaultWatermarks(&list);
    EXPECT_EQ(list.NoneSelected, 0U);
    EXPECT_EQ(list.Count, 3);
    EXPECT_EQ(list.Selected, 0);
    EXPECT_EQ(list.Orientation, 1U);
    for (std::size_t i = 0; i < 3; ++i) {
        EXPECT_EQ(Narrow(TextIn(list.Entries[i].Name)), "Name " + std::to_string(i));
        EXPECT_EQ(list.Entries[i].Index, 90 + i);
    }
    EXPECT_EQ(list.Entries[1].ColorIndex, 4U);
    EXPECT_EQ(list.Entries[1].Text[63], 0) << "of another text";
    EXPECT_EQ(list.Entries[3].PointSize, 99);
}

TEST_F(DefaultWatermarks, CountIsReadAsDigitsAndBoundedByTheList) {
    const std::pair<const char*, INT32> rows[] = {
        {"3,x", 3}, {"-3", 3}, {"", 0}, {"16", 16}, {"17", 16}, {"none", 0}, {"4294967295", 0}};
    for (const auto& [number, count] : rows) {
        WriteDefaults(number);
        EXPECT_EQ(Load().Count, count) << number;
    }
    WriteFile(kFileName, "[Other]\r\nNUM=3\r\n");
    EXPECT_EQ(Load().Count, 0);
}

TEST_F(DefaultWatermarks, MissingAndEndlessLinesAreHarmless) {
    WriteFile(kFileName,
              "[WatermarkInfo]\r\nNUM=2\r\ndat1=1," + std::string(10000, 'n') + ",t\r\n");
    const WatermarkList list = Load();
    EXPECT_EQ(list.Count, 2);
    EXPECT_EQ(list.Entries[0].InUse, 1U);
    EXPECT_EQ(Narrow(TextIn(list.Entries[0].Name)), "");
    EXPECT_EQ(Narrow(TextIn(list.Entries[1].Name)), std::string(31, 'n'));
    EXPECT_EQ(Narrow(TextIn(list.Entries[1].Text)), "");
}

TEST_F(DefaultWatermarks, FirstListOfAPrinterKeepsTheFilesAngles) {
    WriteDefaults("2");
    // No page can be measured yet.
    const WatermarkList list = Load();
    EXPECT_EQ(list.Entries[0].AngleDegrees, 33);
    EXPECT_EQ(list.Entries[1].AngleDegrees, 45);

    tests::TestPrinter printer(TEXT("Defaults Test"));
    InitPrinterWatermarkList(printer.Name().c_str());
    const std::string bytes = printer.StoredValue(TEXT("WaterMarkList"));
    WatermarkList stored = {};
    ASSERT_EQ(bytes.size(), sizeof stored);
    std::memcpy(&stored, bytes.data(), sizeof stored);
    EXPECT_EQ(stored.Count, 2);
    EXPECT_EQ(stored.Entries[1].AngleDegrees, 33);
}

}  // namespace
