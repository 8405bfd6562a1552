#include "wmeditor/editor_help.h"

#include "tests/wmeditor/editor_fixture.h"

namespace oemui {
namespace {

using tests::Narrow;

class EditorHelp : public tests::EditorTest {
protected:
    /// The help file's path, or nothing.
    static std::string Path() {
        WCHAR path[MAX_PATH];
        return FindHelpFilePath(path) ? Narrow(TextIn(path)) : std::string();
    }
};

TEST_F(EditorHelp, EveryControlHasATopic) {
    struct Row {
        int controlId;
        DWORD topic;
    };
    constexpr Row kTopics[] = {
        {IDC_PREVIEW_GROUP, 1301}, {IDC_PREVIEW_PAGE, 1301}, {IDC_WATERMARK_LIST, 1303},
        {IDC_NEW, 1304},           {IDC_DELETE, 1305},       {IDOK, 1302},
        {IDC_USER_POSITION, 1302}, {IDC_EDITOR_GROUP, 1301}, {-1, 1301},
    };
    for (const Row& row : kTopics) {
        EXPECT_EQ(HelpTopicOfControl(row.controlId), row.topic) << row.controlId;
    }
}

TEST_F(EditorHelp, WithoutAPrinterTheFileIsLookedForInTheSystemDirectory) {
    CurrentPrinterName = TEXT("No such printer");
    std::string path = Path();
    EXPECT_EQ(path.substr(path.find("32\\") + 3), "spool\\drivers\\x64\\3\\QVRT_HLP.HLP");
    tests::BecomeModel('V');
    path = Path();
    EXPECT_EQ(path.substr(path.size() - 13), "\\QVRV_HLP.HLP");
}

TEST_F(EditorHelp, WithAPrinterTheFileStandsBesideItsDriver) {
    const std::string path = Path();
    ASSERT_FALSE(path.empty());
    EXPECT_EQ(path.substr(path.size() - 15), "\\3\\QVRT_HLP.HLP");
}

}  // namespace
}  // namespace oemui
