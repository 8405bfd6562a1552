#include "watermark/default_watermarks.h"

#include "tests/support/plugin_fixture.h"
#include "tests/support/test_printer.h"

using namespace oemui;
using tests::Narrow;

namespace {

constexpr LPCWSTR kFileName = TEXT("QVRT__WM.INI");

class DefaultWatermarks : public tests::PluginTest {
protected:
    /// A file with this "NUM" and twenty entries, every second one diagonal.
    static void WriteFile(const std::string& number) {
        std::string file = "[WatermarkInfo]\r\nNUM=" + number + "\r\n";
        for (int i = 0; i < 20; ++i) {
            file += "dat" + std::to_string(i) + "=" + std::to_string(90 + i) + ",Name " +
                    std::to_string(i) + ",TEXT,Arial,72,0,0,0,0,0," + std::to_string(i % 2) +
                    ",33,0,0,0\r\n";
        }
        tests::WriteIniFile(kFileName, file);
    }
    static WatermarkList Load() {
        WatermarkList list = {};
        LoadDefaultWatermarks(&list);
        return list;
    }
    ~DefaultWatermarks() override { tests::WriteIniFile(kFileName, ""); }
};

TEST_F(DefaultWatermarks, EntriesComeInTheOrderOfTheirKeys) {
    WriteFile("3");
    WatermarkList list = {};
    list.NoneSelected = 1;
    list.Selected = 2;
    list.Entries[1].ColorIndex = 4;
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
    EXPECT_EQ(list.Entries[3].PointSize, 99);
}

TEST_F(DefaultWatermarks, CountIsReadAsDigitsAndBoundedByTheList) {
    struct Row {
        const char* number;
        INT32 count;
    };
    constexpr Row kRows[] = {{"3,x", 3}, {"-3", 3},     {"", 0},     {"16", 16},
                             {"17", 16}, {"99999", 16}, {"none", 0}, {"4294967295", 0},
                             {",3", 0},  {" 0002 ", 2}};
    for (const Row& row : kRows) {
        WriteFile(row.number);
        EXPECT_EQ(Load().Count, row.count) << row.number;
    }
    tests::WriteIniFile(kFileName, "[Other]\r\nNUM=3\r\n");
    EXPECT_EQ(Load().Count, 0);
}

TEST_F(DefaultWatermarks, MissingAndEndlessLinesAreHarmless) {
    tests::WriteIniFile(kFileName,
                        "[WatermarkInfo]\r\nNUM=2\r\ndat1=1," + std::string(10000, 'n') + ",t\r\n");
    const WatermarkList list = Load();
    EXPECT_EQ(list.Count, 2);
    EXPECT_EQ(list.Entries[0].InUse, 1U);
    EXPECT_EQ(Narrow(TextIn(list.Entries[0].Name)), "");
    EXPECT_EQ(Narrow(TextIn(list.Entries[1].Name)), std::string(31, 'n'));
    EXPECT_EQ(Narrow(TextIn(list.Entries[1].Text)), "");
}

TEST_F(DefaultWatermarks, DiagonalsAreFortyFiveDegreesWhenNoPageCanBeMeasured) {
    WriteFile("2");
    EXPECT_EQ(DiagonalAngleDegrees(), 45.0);
    const WatermarkList list = Load();
    EXPECT_EQ(list.Entries[0].AngleDegrees, 33);
    EXPECT_EQ(list.Entries[1].AngleDegrees, 45);
}

TEST_F(DefaultWatermarks, FirstListOfAPrinterKeepsTheFilesAngles) {
    WriteFile("2");
    tests::TestPrinter printer(TEXT("Defaults Test"));
    InitPrinterWatermarkList(printer.Name().c_str());
    const std::string stored = printer.StoredValue(TEXT("WaterMarkList"));
    ASSERT_EQ(stored.size(), sizeof(WatermarkList));
    EXPECT_EQ(stored, std::string(reinterpret_cast<const char*>(&WorkingWatermarkList),
                                  sizeof WorkingWatermarkList));
    EXPECT_EQ(WorkingWatermarkList.Count, 2);
    EXPECT_EQ(WorkingWatermarkList.Entries[1].AngleDegrees, 33);
}

}  // namespace
