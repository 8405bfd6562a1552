#include <gtest/gtest.h>
#include <windows.h>

#include <QAbstractScrollArea>
#include <QApplication>
#include <QImage>
#include <QMouseEvent>
#include <QScreen>
#include <QScrollBar>
#include <QWidget>
#include <filesystem>
#include <memory>
#include <string>
#include <utility>

#include "platform/faults/failure_points.h"
#include "platform/gui/help/help_file.h"
#include "platform/gui/help/help_viewer.h"
#include "platform/gui/windows/application.h"
#include "tests/support/machine_fixture.h"
#include "tests/support/scripted_user.h"

namespace {

namespace fs = std::filesystem;

class Help : public tests::MachineTest {
protected:
    std::u16string Topic(const std::string& content, DWORD topic) const {
        return platform::ReadHelpTopic(WriteFile("Windows/x.hlp", content), topic);
    }
};

TEST_F(Help, ATopicRunsFromItsLineToTheNext) {
    const std::string content =
        "about this file\n[12] First\nabc\n[34]Second one \r\n one\r\n  two\r\n\r\n\r\nthree\r\n"
        "- item\r\n- other\r\nitem\r\n[a] b\r\n[12] again\nno\n[56]\n";
    EXPECT_EQ(Topic(content, 34), u"Second one\n\none two\n\nthree\n- item\n- other item [a] b");
    EXPECT_EQ(Topic("\xEF\xBB\xBF" + content, 12), u"First\n\nabc");
    EXPECT_EQ(Topic("\xEF\xBB\xBF[1] \xC3\xA9", 1), u"\u00E9");
    EXPECT_EQ(Topic(content, 56), u"");
    EXPECT_EQ(Topic(content, 3), u"");
}

TEST_F(Help, AnyFileIsReadWithinBounds) {
    EXPECT_EQ(platform::ReadHelpTopic(Folder(), 1), u"");
    EXPECT_EQ(Topic(std::string("[1] a\nb\0c\xFF\xFE\xC3", 12), 1).substr(0, 4), u"a\n\nb");
    EXPECT_EQ(Topic("[99999999999999999999] a\n[-1] b\n[ 1] c\n[1", 1), u"");
    EXPECT_EQ(Topic("[1] a\n" + std::string(100000, 'x'), 1).size(), 16384u);
    EXPECT_EQ(Topic("[1] a\n" + std::string(1048576, 'x'), 1), u"");
    std::string many = "[1] ab\n";  // an odd place for the cut
    for (int count = 0; count < 9000; ++count) many += "\xF0\x9F\x98\x80";
    EXPECT_EQ(Topic(many + "b", 1).back() & 0xFC00, 0xDC00);
}

TEST_F(Help, TheUserIsGivenTheTopicOrToldThatThereIsNone) {
    WriteFile("Windows/System32/spool/drivers/x64/3/QVRT_HLP.HLP",
              "[1302] Settings\nAll of them.\n");
    const char16_t* file = u"C:\\Windows\\System32\\spool\\DRIVERS\\x64\\3\\QVRT_HLP.HLP";
    const tests::ScriptedUser reader;
    EXPECT_TRUE(WinHelpW(nullptr, file, HELP_CONTEXTPOPUP, 1302));
    EXPECT_TRUE(WinHelpW(nullptr, file, HELP_CONTEXT, 1114));
    EXPECT_TRUE(WinHelpW(nullptr, u"C:\\Windows\\NONE.HLP", HELP_CONTEXT, 1302));
    EXPECT_FALSE(WinHelpW(nullptr, file, 2, 1302));
    EXPECT_FALSE(WinHelpW(nullptr, nullptr, HELP_CONTEXT, 1302));
    const platform::FailurePlan plan("WinHelpW", 1, ERROR_NOT_ENOUGH_MEMORY);
    EXPECT_FALSE(WinHelpW(nullptr, file, HELP_CONTEXT, 1302));
    ASSERT_EQ(reader.Help().size(), 3u);
    EXPECT_EQ(reader.Help()[0].text, u"Settings\n\nAll of them.");
    EXPECT_EQ(reader.Help()[0].command, UINT{HELP_CONTEXTPOPUP});
    EXPECT_EQ(reader.Help()[1].topic, 1114u);
    EXPECT_EQ(reader.Help()[1].text, u"");
    EXPECT_EQ(reader.Help()[2].text, u"");
}

TEST_F(Help, EveryTopicIsShipped) {
    for (const DWORD topic : {1114u, 1115u, 1123u, 1212u, 1301u, 1302u, 1303u, 1304u, 1305u})
        EXPECT_GT(platform::ReadHelpTopic(HELP_TEXT, topic).size(), 80u) << topic;
}

/// The viewers on the screen now.
QWidgetList Viewers() {
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QWidgetList viewers = QApplication::topLevelWidgets();
    viewers.removeIf([](const QWidget* widget) { return !widget->isVisible(); });
    return viewers;
}

TEST_F(Help, LongTextsStayOnTheScreenUntilAClickOrEscape) {
    platform::EnsureApplication();
    std::u16string longText;
    while (longText.size() < 16384) longText += u"word ";
    const QKeyEvent escape(QEvent::KeyPress, Qt::Key_Escape, Qt::NoModifier);
    const QMouseEvent click(QEvent::MouseButtonPress, {5, 5}, QPointF(5, 5), Qt::LeftButton,
                            Qt::LeftButton, Qt::NoModifier);
    for (const auto& [command, gesture] :
         {std::pair<UINT, const QEvent*>{HELP_CONTEXTPOPUP, &escape},
          {HELP_CONTEXTPOPUP, &click},
          {HELP_CONTEXT, &escape}}) {
        platform::ShowHelp({nullptr, u"C:\\a.hlp", command, 7, longText});
        ASSERT_EQ(Viewers().size(), 1) << command;
        const auto* viewer = static_cast<const QAbstractScrollArea*>(Viewers()[0]);
        const QRect screen = QGuiApplication::primaryScreen()->geometry();
        EXPECT_TRUE(screen.contains(viewer->frameGeometry())) << command;
        EXPECT_GT(viewer->verticalScrollBar()->maximum(), 0) << "all of it can be read";
        const std::unique_ptr<QEvent> event(gesture->clone());
        QApplication::sendEvent(Viewers()[0], event.get());
        EXPECT_TRUE(Viewers().isEmpty()) << command;
    }
}

TEST_F(Help, ANoteIsAsHighAsItsTextAndYellow) {
    int height = 30;  // pixels; more with each text
    for (std::u16string text : {u"", u"Title\n\n<b>&\xD800 and so on\n\n- so on\n- so on"}) {
        const fs::path file = Folder() / "note.png";
        EXPECT_TRUE(platform::SaveHelpPicture(
            {nullptr, u"C:\\a.hlp", HELP_CONTEXTPOPUP, 7, std::move(text)}, file));
        const QImage picture(QString::fromStdString(file.string()));
        EXPECT_EQ(picture.pixel(3, 3), qRgb(255, 255, 225));
        EXPECT_GT(picture.height(), std::exchange(height, picture.height()));
    }
    EXPECT_FALSE(platform::SaveHelpPicture({}, Folder() / "no" / "such.png"));
}

}  // namespace
