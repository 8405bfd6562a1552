// The pages in windows, worked by real keys and clicks.
#include <windows.h>

#include <QApplication>
#include <QLabel>
#include <QPushButton>
#include <QSpinBox>
#include <QTest>
#include <QTimer>
#include <algorithm>
#include <cstdlib>
#include <iterator>
#include <set>

#include "host/page/settings.h"
#include "host/windows/lost_display.h"
#include "host/windows/property_sheet.h"
#include "platform/faults/failure_points.h"
#include "platform/gui/windows/application.h"
#include "platform/gui/windows/picture.h"
#include "resources/resource_ids.h"
#include "tests/host/host_fixture.h"
#include "tests/support/no_space.h"
#include "tests/support/scripted_user.h"

namespace host {
namespace {

/// A sheet on the screen, and the eyes and hands in front of it.
class Sheet {
public:
    explicit Sheet(PageKind kind) : sheet_("Office", kind) {
        sheet_.show();
        sheet_.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&sheet_));
        sheet_.Load();
    }

    PropertySheet& Window() { return sheet_; }
    QComboBox& List() { return *sheet_.findChild<QComboBox*>(); }
    QSpinBox& Number() { return *sheet_.findChild<QSpinBox*>(); }
    QTreeWidget& Tree() { return *sheet_.findChild<QTreeWidget*>(); }

    /// The line below the settings, which says why.
    QLabel& Status() {
        const auto labels = sheet_.findChildren<QLabel*>(QString(), Qt::FindDirectChildrenOnly);
        return *std::ranges::max(labels, {}, &QWidget::y);
    }
    QPushButton& Button(const QString& text) {
        for (QPushButton* button : sheet_.findChildren<QPushButton*>()) {
            if (button->text().remove('&') == text) return *button;
        }
        throw Failure("no button " + text.toStdString());
    }
    QTreeWidgetItem& Row(const char* start) {
        const auto rows = Tree().findItems(start, Qt::MatchStartsWith | Qt::MatchRecursive);
        if (rows.isEmpty()) throw Failure(std::string("no row ") + start);
        return *rows.front();
    }

    void Press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        QWidget* focused = QApplication::focusWidget();
        QTest::keyClick(focused ? focused : &sheet_, key, modifiers);
    }
    /// Finds a row by typing the beginning of its text.
    void GoTo(const char* rowStart) {
        Press(Qt::Key_T, Qt::AltModifier);
        Press(Qt::Key_Home);
        Tree().keyboardSearch({});  // forgets what was typed before
        QTest::keyClicks(QApplication::focusWidget(), rowStart);
        ASSERT_EQ(Tree().currentItem(), &Row(rowStart));
    }
    void Type(const char* text) {
        Press(Qt::Key_S, Qt::AltModifier);
        QTest::keyClicks(QApplication::focusWidget(), text);
    }

private:
    PropertySheet sheet_;
};

class PageWindow : public HostTest {
protected:
    PageWindow() {
        ::setenv("LC_ALL", "fa_IR.UTF-8", 1);  // has digits of its own, the texts have not
        platform::EnsureApplication();
        Install("Office", "T");
    }

    nlohmann::json Kept(const std::string& item) {
        return ItemNamed(Do({"document", "Office", "--json"}).Json(), item)["selection"];
    }

    tests::ScriptedUser user_;
};

TEST_F(PageWindow, KeepsATypedNumberWhenAppliedAndDropsALaterOneOnEscape) {
    Sheet sheet(PageKind::Document);
    sheet.GoTo("Scaling");
    EXPECT_FALSE(sheet.Button("Apply").isEnabled());
    sheet.Type("150");
    EXPECT_EQ(sheet.Row("Scaling").text(0), "Scaling: 150 %");
    EXPECT_TRUE(sheet.Row("Scaling").font(0).bold());
    sheet.Press(Qt::Key_A, Qt::AltModifier);  // a button goes down first, and up a little later
    EXPECT_TRUE(QTest::qWaitFor([&] { return !sheet.Button("Apply").isEnabled(); }));
    EXPECT_FALSE(sheet.Row("Scaling").font(0).bold());
    EXPECT_EQ(Kept("Scaling"), 150);

    sheet.Press(Qt::Key_A, Qt::ControlModifier);
    sheet.Type("90");
    EXPECT_EQ(sheet.Row("Scaling").text(0), "Scaling: 90 %");
    sheet.Press(Qt::Key_Escape);
    EXPECT_FALSE(sheet.Window().isVisible());
    EXPECT_EQ(Kept("Scaling"), 150);
    EXPECT_EQ(user_.Boxes(), tests::ShownBoxes{});
}

TEST_F(PageWindow, RestoresDefaultsThatOnlyOkKeeps) {
    Do({"document", "Office", "-o", "Scaling=150", "-o", "RenderingIntent=Perceptual", "--apply"});
    for (const auto& [end, kept] : {std::pair{"Cancel", 150}, {"OK", 100}}) {
        Sheet sheet(PageKind::Document);
        sheet.GoTo("Scaling");
        sheet.Press(Qt::Key_D, Qt::AltModifier);
        EXPECT_TRUE(QTest::qWaitFor([&] { return sheet.Button("Apply").isEnabled(); }));
        EXPECT_EQ(sheet.Tree().currentItem()->text(0), "Scaling: 100 %");
        EXPECT_TRUE(sheet.Row("Rendering Intent: Saturation").font(0).bold());
        EXPECT_FALSE(sheet.Row("Copies").font(0).bold());
        QTest::mouseClick(&sheet.Button(end), Qt::LeftButton);
        EXPECT_EQ(Kept("Scaling"), kept);
    }
}

TEST_F(PageWindow, ANumberOutOfTheRangeCountsForNothingAndStaysToBeMended) {
    Sheet sheet(PageKind::Document);
    sheet.GoTo("Scaling");
    EXPECT_EQ(sheet.Number().text(), "100");
    sheet.Type("250");
    for (const Qt::Key key : {Qt::Key_Tab, Qt::Key_Return}) {
        sheet.Press(key);
        ASSERT_TRUE(sheet.Number().text() == "250" && sheet.Window().isVisible()) << key;
        EXPECT_EQ(sheet.Status().text(), "Scaling must be 20 to 200.");
        EXPECT_EQ(sheet.Row("Scaling").text(0), "Scaling: 100 %");
    }
    QTest::keyClicks(QApplication::focusWidget(), "300");  // over the one that is selected
    sheet.Window().ChooseItem(FindItem(sheet.Window().Page(), "Copies"));
    EXPECT_EQ(sheet.Status().text(), "Scaling must be 20 to 200.");
    sheet.GoTo("Scaling");
    EXPECT_EQ(sheet.Number().text(), "100");
}

TEST_F(PageWindow, IsAsWideWithAnyStatusAndKeepsTheChosenRowInView) {
    Sheet sheet(PageKind::Document);
    sheet.GoTo("Rendering Intent");
    const QSize least = sheet.Window().minimumSizeHint();
    sheet.Status().setText(QString(500, 'm'));
    EXPECT_EQ(sheet.Window().minimumSizeHint(), least);
    sheet.Window().resize(least);
    const QTreeWidget& tree = sheet.Tree();
    EXPECT_TRUE(tree.viewport()->rect().contains(tree.visualItemRect(tree.currentItem())));
}

TEST_F(PageWindow, EnterAppliesAndTheConflictIsTold) {
    Sheet sheet(PageKind::Document);
    sheet.GoTo("Scaling");
    sheet.Type("50");
    sheet.GoTo("Pages per Sheet");
    sheet.Type("4");
    sheet.Press(Qt::Key_Return);
    EXPECT_EQ(sheet.Window().result(), QDialog::Accepted);
    ASSERT_EQ(user_.Boxes().size(), 1u);
    EXPECT_EQ(user_.Boxes()[0].caption, "Conflict!");
    EXPECT_EQ(sheet.Row("Scaling").text(0), "Scaling: 100 %");
    EXPECT_EQ(Kept("Scaling"), 100);
    EXPECT_EQ(Kept("Pages per Sheet"), 2);
}

TEST_F(PageWindow, ShowsNothingHiddenAndLetsNothingDisabledBeChosen) {
    Do({"document", "Office", "-o", "Paper Source=Tray 2", "--apply"});
    Do({"printer", "Office", "-o", "Tray2=NOTINSTALLED", "-o", "DuplexUnit=NotInstalled",
        "--apply"});
    Sheet sheet(PageKind::Document);
    EXPECT_TRUE(sheet.Row("Color Management Method").isHidden());
    sheet.GoTo("Pages per Sheet");
    EXPECT_EQ(sheet.List().findText("Booklet"), -1);

    sheet.GoTo("Duplex");
    EXPECT_FALSE(sheet.List().isEnabled());
    EXPECT_EQ(sheet.Status().text(), "Duplex needs the duplex unit, which is not installed.");

    sheet.GoTo("Paper Source: Tray 2");
    EXPECT_FALSE(sheet.Row("Paper Source").icon(0).isNull());
    EXPECT_EQ(sheet.Status().text(), "\"Tray 2\" is not installed.");
    sheet.Press(Qt::Key_S, Qt::AltModifier);
    sheet.Press(Qt::Key_Up);
    sheet.Press(Qt::Key_Down);  // over both missing trays
    EXPECT_EQ(sheet.Row("Paper Source").text(0), "Paper Source: Manual Feed");
    const QAbstractItemModel& choices = *sheet.List().model();
    EXPECT_FALSE(choices.flags(choices.index(2, 0)).testFlag(Qt::ItemIsEnabled));
}

TEST_F(PageWindow, F1AndHelpAskForTheTopicOfTheChosenItem) {
    Sheet sheet(PageKind::Document);
    sheet.GoTo("Copies");
    sheet.Press(Qt::Key_F1);  // the driver's items have none
    EXPECT_TRUE(user_.Help().empty());
    sheet.GoTo("Scaling");
    sheet.Type("120");  // the focus is in the number then
    sheet.Press(Qt::Key_F1);
    QTest::mouseClick(&sheet.Button("Help"), Qt::LeftButton);
    ASSERT_EQ(user_.Help().size(), 2u);
    EXPECT_EQ(user_.Help()[0].topic, 1212u);
    EXPECT_NE(user_.Help()[0].file.find(u"QVRT_HLP.HLP"), std::u16string::npos);
}

TEST_F(PageWindow, EditOpensTheEditorWhileTheWatermarkIsEnabled) {
    Sheet sheet(PageKind::Document);
    sheet.GoTo("Watermark");
    QTest::mouseClick(&sheet.Button("Edit"), Qt::LeftButton);
    EXPECT_EQ(sheet.Status().text(), "\"Edit\" works while Watermark is \"Enabled\".");

    bool opened = false;
    user_.InDialog(
        [&] { opened = user_.Choose(IDC_WATERMARK_LIST, u"Urgent") && user_.Click(IDOK); });
    sheet.Type("E");  // picks "Enabled"
    QTest::mouseClick(&sheet.Button("Edit"), Qt::LeftButton);
    EXPECT_TRUE(opened);
    EXPECT_TRUE(sheet.Button("Apply").isEnabled());
    QTest::mouseClick(&sheet.Button("OK"), Qt::LeftButton);
    const nlohmann::json page = Do({"document", "Office", "--json"}).Json();
    EXPECT_EQ(page["privateDevmode"]["Watermark"]["Name"], "Urgent");
    EXPECT_EQ(user_.Boxes(), tests::ShownBoxes{});
}

TEST_F(PageWindow, TellsWhenTheSettingsCannotBeKeptAndStays) {
    Sheet sheet(PageKind::Document);
    sheet.GoTo("Copies");
    sheet.Type("5");
    {
        const platform::FailurePlan refused("SetPrinterW", 0, ERROR_ACCESS_DENIED);
        sheet.Press(Qt::Key_Return);
    }
    EXPECT_EQ(user_.Boxes().size(), 1u);
    EXPECT_TRUE(sheet.Window().isVisible());
    EXPECT_TRUE(sheet.Button("Apply").isEnabled());
}

/// Keeps the texts with which labels were painted.
class PaintedLabels : public QObject {
public:
    std::set<QString> texts;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override {
        const auto* label = qobject_cast<QLabel*>(watched);
        if (label && event->type() == QEvent::Paint) texts.insert(label->text());
        return false;
    }
};

TEST_F(PageWindow, SaysThatItAsksThePrinterBeforeItBlocks) {
    PlayedPrinterOptions options;
    options.tray2 = true;
    PrinterThread printer(options);
    Install("Lab", "T", "\\\\" + PrinterThread::Address() + "\\SMB_PRI1");
    PaintedLabels painted;
    PropertySheet window("Lab", PageKind::Printer);
    for (QLabel* label : window.findChildren<QLabel*>()) label->installEventFilter(&painted);
    QTimer poll;
    QObject::connect(&poll, &QTimer::timeout, [&] {
        if (!window.findChild<QTreeWidget*>()->currentItem()) return;
        EXPECT_EQ(FindItem(window.Page(), "Tray 2").SelectionText(), "Installed");
        QTest::keyClick(&window, Qt::Key_Escape);
    });
    poll.start(10);
    EXPECT_FALSE(window.Run());
    EXPECT_EQ(painted.texts.count("Asking the printer..."), 1u);
}

TEST_F(PageWindow, CannotOpenWithoutAPrinterOrADisplay) {
    EXPECT_THROW(static_cast<void>(PropertySheet("Nobody", PageKind::Document).Run()), Failure);
    const CommandResult result = Run({"document", "Office", "--window"});
    EXPECT_EQ(result.code, 1);
    EXPECT_THAT(result.err, HasSubstr("no display"));
    EXPECT_EQ(Run({"document", "Office", "--window", "--json"}).code, 2);
    // The ways in which the window library ends a process.
    for (void (*end)() : {+[] { std::exit(0); }, +[] { qFatal("no connection"); }}) {
        const auto lose = [&] {
            const LostDisplayNotice notice;
            end();
        };
        EXPECT_EXIT(lose(), testing::ExitedWithCode(1), "^driverhost: the display has gone.*\n$");
    }
}

TEST_F(PageWindow, PicturesComeFromAMachineOfTheirOwn) {
    const std::string before = Do({"list", "--json"}).out;
    const std::filesystem::path folder = Folder() / "pictures";
    std::istringstream names(Do({"pictures", folder.native()}).out);
    std::set<std::string> told{std::istream_iterator<std::string>(names), {}};
    for (const char* name : {"document-page.png", "printer-page.png", "editor-diagonal.png",
                             "message-scaling-conflict.png", "help-popup.png", "help-window.png"}) {
        EXPECT_EQ(told.count(name), 1u) << name;
    }
    {
        const tests::NoSpace none;
        EXPECT_FALSE(platform::SavePicture(QPixmap(9, 9), folder / "document-page.png"));
    }
    for (const std::string& name : told) {
        EXPECT_FALSE(QImage(QString::fromStdString((folder / name).native())).isNull()) << name;
    }
    EXPECT_EQ(Do({"list", "--json"}).out, before);
}

}  // namespace
}  // namespace host
