#include "wmeditor/editor_help.h"

#include "tests/wmeditor/editor_fixture.h"

namespace oemui {
namespace {

using tests::Narrow;

class EditorHelp : public tests::EditorTest {
protected:
    /// The help file's path, or nothing.
    static std::string Path() {
        HelpPath path;
        return FindHelpFilePath(&path) ? Narrow(path.View()) : std::string();
    }
};

TEST_F(EditorHelp, EveryControlHasATopic) {
    constexpr std::pair<int, DWORD> kTopics[] = {
        {IDC_PREVIEW_GROUP, 1301}, {IDC_PREVIEW_PAGE, 1301}, {IDC_WATERMARK_LIST, 1303},
        {IDC_NEW, 1304},           {IDC_DELETE, 1305},       {IDOK, 1302},
        {IDC_USER_POSITION, 1302}, {IDC_EDITOR_GROUP, 1301}, {-1, 1301},
    };
    for (const auto& [control, topic] : kTopics)
        EXPECT_EQ(HelpTopicOfControl(control), topic) << control;
}

TEST_F(EditorHelp, TheFileStandsBesideTheDriverOrInTheSystemDirectory) {
    std::string path = Path();
    ASSERT_GT(path.size(), 15u);
    EXPECT_EQ(path.substr(path.size() - 15), "\\3\\QVRT_HLP.HLP");
    SetCurrentPrinter(TEXT("No such printer"));
    path = Path();
    EXPECT_EQ(path.substr(path.find("32\\") + 3), "spool\\drivers\\x64\\3\\QVRT_HLP.HLP");
    tests::BecomeModel('V');
    path = Path();
    EXPECT_EQ(path.substr(path.size() - 13), "\\QVRV_HLP.HLP");
}

}  // namespace
}  // namespace oemui
