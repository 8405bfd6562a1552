#include <gtest/gtest-spi.h>

#include <QApplication>
#include <QFontMetrics>
#include <QKeyEvent>
#include <QPushButton>
#include <QScreen>
#include <QTimer>
#include <chrono>
#include <memory>

#include "platform/faults/failure_points.h"
#include "platform/gui/dialogs/dialog.h"
#include "platform/gui/dialogs/message_box.h"
#include "platform/gui/templates/dialog_template.h"
#include "platform/gui/windows/picture.h"
#include "platform/modules/resources.h"
#include "resources/resource_ids.h"
#include "tests/gui/dialog_fixture.h"

namespace {

/// Presses a key in whatever window is in front, as soon as one is: timers wait until then.
void PressSoon(Qt::Key key, const QString& text) {
    QTimer::singleShot(1, [key, text] {
        QWidget* window = QApplication::activeModalWidget();
        ASSERT_NE(window, nullptr);
        QWidget* focused = window->focusWidget() != nullptr ? window->focusWidget() : window;
        for (const auto type : {QEvent::KeyPress, QEvent::KeyRelease}) {
            QKeyEvent event(type, key, Qt::NoModifier, text);
            QApplication::sendEvent(focused, &event);
        }
    });
}

void ClickSoon(const QString& name) {
    QTimer::singleShot(1, [name] {
        for (auto* button : QApplication::activeModalWidget()->findChildren<QPushButton*>()) {
            if (button->text() == name) button->click();
        }
    });
}

TEST_F(DialogTest, PersonAtTheScreenWorksInTheWindowsThemselves) {
    tests::Watchdog watchdog(std::chrono::seconds(20));
    onCommand = [](int control, int) {
        if (control != IDOK) return;
        PressSoon(Qt::Key_Escape, {});  // a question has to be answered
        ClickSoon(QStringLiteral("&No"));
        EXPECT_EQ(MessageBoxW(nullptr, u"Sure?", u"Question", MB_YESNO), IDNO);
        PressSoon(Qt::Key_Escape, {});
        EXPECT_EQ(MessageBoxW(nullptr, u"Sure?", u"Question", MB_OKCANCEL), IDCANCEL);
        PressSoon(Qt::Key_Escape, {});
    };
    onOpening = [](HWND) { PressSoon(Qt::Key_Return, QStringLiteral("\r")); };
    EXPECT_EQ(DialogBoxParamW(nullptr, MAKEINTRESOURCEW(IDD_CONTROLS), nullptr, Procedure, 0), 0);
    EXPECT_EQ(Take(), Told(LIST, CBN_SETFOCUS, IDOK, 0, LIST, CBN_SELENDCANCEL, LIST, CBN_KILLFOCUS,
                           LIST, CBN_SETFOCUS, LIST, CBN_SELENDCANCEL, LIST, CBN_KILLFOCUS, LIST,
                           CBN_SETFOCUS, IDCANCEL, 0, LIST, CBN_SELENDCANCEL, LIST, CBN_KILLFOCUS));
}

TEST(ScriptedUser, ReportsWhatItWasNotToldAbout) {
    auto user = std::make_unique<tests::ScriptedUser>();
    user->WillAnswer({IDYES});  // no button of the box below
    int answer = 0;
    EXPECT_NONFATAL_FAILURE(answer = MessageBoxW(nullptr, u"a", nullptr, MB_OKCANCEL),
                            "without an answer: Error (1): a");
    EXPECT_EQ(answer, IDCANCEL) << "the safe answer";
    EXPECT_NONFATAL_FAILURE(user.reset(), "answers left over");
}

TEST(WatchdogDeathTest, EndsAHungRunAndSaysWhere) {
    testing::FLAGS_gtest_death_test_style = "threadsafe";
    EXPECT_DEATH(
        {
            tests::Watchdog watchdog(std::chrono::milliseconds(50));
            watchdog.Report("in the dialog");
            std::this_thread::sleep_for(std::chrono::seconds(20));
        },
        "hangs: in the dialog");
}

TEST_F(DialogTest, PageMovedOverTheAreaShowsWhatWasDrawnInBoth) {
    Open([](HWND dialog) {
        platform::Window* area = platform::Window::From(GetDlgItem(dialog, FRAME));
        platform::Window* page = platform::Window::From(GetDlgItem(dialog, PAGE));
        area->Backing().fill(Qt::darkGray);
        area->ShowBacking();
        MoveWindow(page->Handle(), 30, 50, 20, 20, TRUE);
        page->Backing().fill(Qt::yellow);
        page->ShowBacking();
        const auto shown = [dialog](int x, int y) {
            return platform::Window::From(dialog)->Widget()->grab().toImage().pixelColor(x, y);
        };
        EXPECT_EQ(shown(40, 60), QColor(Qt::yellow));
        MoveWindow(page->Handle(), 60, 50, 20, 20, TRUE);
        EXPECT_EQ(shown(40, 60), QColor(Qt::darkGray));
        EXPECT_EQ(shown(70, 60), QColor(Qt::yellow)) << "a move keeps the picture";
    });
}

TEST_F(DialogTest, RefusesWhatIsNoWindowOrNoTemplate) {
    HWND stale = nullptr;
    Open([&stale](HWND dialog) { stale = dialog; });
    for (HWND wrong : {stale, HWND{nullptr}, reinterpret_cast<HWND>(4)}) {
        SetLastError(0);
        EXPECT_FALSE(SetDlgItemTextW(wrong, EDIT, u"x"));
        EXPECT_FALSE(EndDialog(wrong, 1));
        EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_INVALID_WINDOW_HANDLE));
    }
    EXPECT_EQ(DialogBoxParamW(nullptr, MAKEINTRESOURCEW(9), nullptr, Procedure, 0), -1);
    EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_RESOURCE_NAME_NOT_FOUND));
    EXPECT_EQ(DialogBoxParamW(nullptr, MAKEINTRESOURCEW(IDD_CONTROLS), stale, Procedure, 0), 0);
    Open([](HWND dialog) {
        EXPECT_EQ(GetDlgItem(dialog, 999), nullptr);
        const platform::FailurePlan plan("GetDlgItem", 1, 8);
        EXPECT_EQ(GetDlgItem(dialog, EDIT), nullptr);
        EXPECT_NE(GetDlgItem(dialog, EDIT), nullptr);
    });
}

TEST(DialogTemplate, IsReadWholeOrNotAtAll) {
    const auto whole =
        platform::FindResource(HINSTANCE{nullptr}, platform::kDialogResource, IDD_WATERMARK_EDITOR);
    const auto read = platform::ParseDialogTemplate(whole);
    ASSERT_TRUE(read.has_value());
    EXPECT_EQ(read->Caption, u"Watermark");
    EXPECT_EQ(read->Controls.back().Id, IDC_VERTICAL_SPIN);
    for (std::size_t size = 0; size + 4 < whole.size(); ++size) {
        EXPECT_FALSE(platform::ParseDialogTemplate(whole.first(size)).has_value()) << size;
    }
}

/// A label leaves the controls beside it alone.
void ExpectNothingUnder(const platform::Dialog& dialog, const platform::Control& label) {
    if (label.Kind() != platform::WindowKind::kStatic || label.Text().isEmpty()) return;
    if (label.Widget()->height() > 2 * label.Widget()->fontMetrics().height()) return;  // a box
    const QRect place = label.Widget()->geometry();
    for (const auto& other : dialog.Controls()) {
        const QRect theirs = other->Widget()->geometry();
        if (other.get() == &label || theirs.contains(place) || place.contains(theirs)) continue;
        EXPECT_FALSE(place.intersects(theirs)) << label.ControlId() << " " << other->ControlId();
    }
}

/// Run at several scales of the screen.
TEST_F(DialogTest, NothingOfTheEditorIsCutOff) {
    onOpening = nullptr;
    Open(
        [](HWND dialog) {
            auto* frame = platform::Dialog::Require(dialog);
            const QRect client = frame->Widget()->rect();
            for (const auto& control : frame->Controls()) {
                const QWidget* face = control->Widget();
                EXPECT_TRUE(client.contains(face->geometry())) << control->ControlId();
                const QFontMetrics metrics(face->font(), const_cast<QWidget*>(face));
                const QSize text = metrics.size(Qt::TextShowMnemonic, control->Text());
                EXPECT_LE(text.width(), face->width()) << control->ControlId();
                EXPECT_LE(text.height(), face->height()) << control->ControlId();
                ExpectNothingUnder(*frame, *control);
            }
            const QWidget* window = frame->Widget()->window();
            EXPECT_TRUE(window->screen()->geometry().contains(window->frameGeometry()));
            for (const auto& control : frame->Controls()) {
                if (!control->TakesFocus()) continue;
                control->GiveFocus();
                EXPECT_FALSE(control->Widget()->visibleRegion().isEmpty()) << control->ControlId();
            }
            if (const char* file = std::getenv("EDITOR_PICTURE")) {
                EXPECT_TRUE(platform::SavePicture(dialog, file));
            }
        },
        IDD_WATERMARK_EDITOR);
}

}  // namespace
