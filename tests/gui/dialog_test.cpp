#include "tests/gui/dialog_test.h"
#include "platform/gui/dialogs/hands.h"

#include <commctrl.h>
#include <gtest/gtest.h>
#include <windows.h>

#include <QApplication>
#include <QFontMetrics>
#include <QKeyEvent>
#include <QPushButton>
#include <QTimer>
#include <chrono>
#include <functional>

#include "platform/faults/failure_points.h"
#include "platform/faults/live_objects.h"
#include "platform/gui/dialogs/dialog.h"
#include "platform/gui/dialogs/message_box.h"
#include "platform/gui/templates/dialog_template.h"
#include "platform/gui/windows/picture.h"
#include "platform/modules/resources.h"
#include "platform/text/text_encoding.h"
#include "resources/resource_ids.h"
#include "tests/support/scripted_user.h"

namespace {

namespace hands = platform::hands;
using Work = std::function<void(HWND)>;

/// The commands that the dialog procedure got: each one's control and code.
using Commands = std::vector<int>;

template <class... Number>
Commands Told(Number... controlsAndCodes) {
    return {controlsAndCodes...};
}

Commands seen;
int paints;
std::vector<int> helpAskedOn;
Work onOpening;
std::function<void(int control, int code)> onCommand;

INT_PTR CALLBACK Procedure(HWND dialog, UINT message, WPARAM first, LPARAM second) {
    if (message == WM_INITDIALOG && onOpening) onOpening(dialog);
    if (message == WM_PAINT) ++paints;
    if (message == WM_HELP) {
        const auto* request = reinterpret_cast<const HELPINFO*>(second);
        EXPECT_EQ(request->cbSize, sizeof(HELPINFO));
        helpAskedOn.push_back(request->iCtrlId);
    }
    if (message != WM_COMMAND) return 0;
    const int control = LOWORD(first);
    const int code = HIWORD(first);
    seen.insert(seen.end(), {control, code});
    if (onCommand) onCommand(control, code);
    if (control == IDCANCEL) EndDialog(dialog, 0);
    return 0;
}

Commands Take() {
    return std::exchange(seen, {});
}

std::u16string TextOf(HWND dialog, int control) {
    WCHAR text[64];
    GetDlgItemTextW(dialog, control, text, 64);
    return text;
}

LRESULT Ask(HWND dialog, int control, UINT message, WPARAM first = 0, LPARAM second = 0) {
    return SendDlgItemMessageW(dialog, control, message, first, second);
}

LPARAM Text(const WCHAR* text) {
    return reinterpret_cast<LPARAM>(text);
}

class DialogTest : public testing::Test {
protected:
    void SetUp() override {
        seen.clear();
        helpAskedOn.clear();
        paints = 0;
        onOpening = FillLists;
        onCommand = nullptr;
    }

    void TearDown() override {
        EXPECT_EQ(user_.Surprises(), "");
        EXPECT_EQ(platform::LiveObjects().count("window"), 0u);
    }

    static void FillLists(HWND dialog) {
        for (const WCHAR* text : {u"aa", u"bb", u"cc", u"dd"})
            Ask(dialog, LIST, CB_ADDSTRING, 0, Text(text));
        Ask(dialog, LIST, CB_SETCURSEL, 1);
        Ask(dialog, RADIO_1, BM_SETCHECK, BST_CHECKED);
    }

    INT_PTR Open(const Work& work, int dialog = IDD_CONTROLS) {
        const platform::UserScope scope(user_.InDialog(work));
        return DialogBoxParamW(nullptr, MAKEINTRESOURCEW(dialog), nullptr, Procedure, 0);
    }

    platform::ScriptedUser user_;
};

TEST_F(DialogTest, OpensOnTheFirstTabStopPaintsAndIsCancelledWhenTheUserLeaves) {
    Open([](HWND dialog) {
        EXPECT_EQ(Take(), Told(LIST, CBN_SETFOCUS));
        EXPECT_EQ(GetFocus(), GetDlgItem(dialog, LIST));
        EXPECT_GE(paints, 1);
    });
    EXPECT_EQ(Take(), Told(IDCANCEL, 0, LIST, CBN_SELENDCANCEL, LIST, CBN_KILLFOCUS))
        << "ending a dialog takes the focus from its control";
}

TEST_F(DialogTest, ProgramNotifiesOfEditsAloneAlsoWhenNothingChanges) {
    Open([](HWND dialog) {
        Take();
        for (int time = 0; time < 2; ++time) SetDlgItemTextW(dialog, EDIT, u"x");
        EnableWindow(GetDlgItem(dialog, EDIT), FALSE);
        SetDlgItemInt(dialog, EDIT, static_cast<UINT>(-5), TRUE);
        EXPECT_EQ(Take(), Told(EDIT, EN_UPDATE, EDIT, EN_CHANGE, EDIT, EN_UPDATE, EDIT, EN_CHANGE,
                               EDIT, EN_UPDATE, EDIT, EN_CHANGE));
        EXPECT_EQ(TextOf(dialog, EDIT), u"-5");
        Ask(dialog, LIST, CB_SETCURSEL, 2);
        Ask(dialog, LIST, CB_DELETESTRING, 0);
        Ask(dialog, TICK, BM_SETCHECK, BST_CHECKED);
        Ask(dialog, SPIN, UDM_SETRANGE, 0, MAKELPARAM(200, 8));
        EXPECT_EQ(Take(), Told());
    });
}

TEST_F(DialogTest, TypingObeysLimitAndDigitsTheProgramDoesNot) {
    Open([](HWND dialog) {
        Ask(dialog, EDIT, EM_LIMITTEXT, 3);
        SetDlgItemTextW(dialog, EDIT, u"sixsix");
        hands::Click(dialog, EDIT);
        Take();
        hands::PressKey(dialog, 'A');
        EXPECT_EQ(Take(), Told(EDIT, EN_MAXTEXT));
        EXPECT_EQ(TextOf(dialog, EDIT), u"sixsix");
        hands::TypeText(dialog, EDIT, u"abcd");
        EXPECT_EQ(Take(), Told(EDIT, EN_UPDATE, EDIT, EN_CHANGE, EDIT, EN_UPDATE, EDIT, EN_CHANGE,
                               EDIT, EN_UPDATE, EDIT, EN_CHANGE, EDIT, EN_MAXTEXT));
        EXPECT_EQ(TextOf(dialog, EDIT), u"abc");
        hands::Click(dialog, DIGITS);
        Take();
        hands::PressKey(dialog, 'X');
        EXPECT_EQ(Take(), Told());
        hands::PressKey(dialog, '7');
        EXPECT_EQ(Take(), Told(DIGITS, EN_UPDATE, DIGITS, EN_CHANGE));
        SetDlgItemTextW(dialog, DIGITS, u"words");
        EXPECT_EQ(TextOf(dialog, DIGITS), u"words");
        Ask(dialog, EDIT, EM_LIMITTEXT, 0);
        hands::TypeText(dialog, EDIT, u"no limit any more");
        EXPECT_EQ(TextOf(dialog, EDIT), u"no limit any more");
    });
}

TEST_F(DialogTest, ReadsNumbersAtTheFrontOfATextWithinTheirRange) {
    struct Row {
        const WCHAR* text;
        INT number;
        bool isSigned, translated;
    };
    const Row rows[] = {{u"-", 0, true, false},
                        {u"-5", -5, true, true},
                        {u"-5", static_cast<INT>(4294967291u), false, true},
                        {u"12abc", 12, true, true},
                        {u" 7", 7, true, true},
                        {u"+3", 3, false, true},
                        {u"2147483648", 0, true, false},
                        {u"99999999999999999999", 0, false, false}};
    Open([&](HWND dialog) {
        for (const Row& row : rows) {
            SetDlgItemTextW(dialog, EDIT, row.text);
            BOOL translated = -1;
            const UINT number = GetDlgItemInt(dialog, EDIT, &translated, row.isSigned);
            EXPECT_EQ(static_cast<INT>(number), row.number) << platform::Utf8(row.text);
            EXPECT_EQ(translated != FALSE, row.translated) << platform::Utf8(row.text);
        }
    });
}

TEST_F(DialogTest, FocusMovesBeforeTheClickCounts) {
    Open([](HWND dialog) {
        Take();
        hands::Click(dialog, EDIT);
        EXPECT_EQ(Take(), Told(LIST, CBN_SELENDCANCEL, LIST, CBN_KILLFOCUS, EDIT, EN_SETFOCUS));
        hands::Click(dialog, LIST);
        EXPECT_EQ(Take(), Told(EDIT, EN_KILLFOCUS, LIST, CBN_SETFOCUS, LIST, CBN_DROPDOWN));
        hands::Click(dialog, EDIT);
        EXPECT_EQ(Take(), Told(LIST, CBN_SELENDCANCEL, LIST, CBN_CLOSEUP, LIST, CBN_SELENDCANCEL,
                               LIST, CBN_KILLFOCUS, EDIT, EN_SETFOCUS));
        hands::Click(dialog, TICK);
        EXPECT_EQ(Take(), Told(EDIT, EN_KILLFOCUS, TICK, BN_CLICKED));
        hands::Click(dialog, EDIT);
        Take();
        EnableWindow(GetDlgItem(dialog, EDIT), FALSE);
        EXPECT_EQ(Take(), Told(EDIT, EN_KILLFOCUS));
        EXPECT_FALSE(hands::Click(dialog, EDIT));
        EXPECT_EQ(SetFocus(GetDlgItem(dialog, EDIT)), nullptr);
        EXPECT_EQ(GetFocus(), nullptr) << "a disabled control refuses the focus";
        EXPECT_TRUE(EnableWindow(GetDlgItem(dialog, EDIT), TRUE));
        SetFocus(GetDlgItem(dialog, EDIT));
        hands::Click(dialog, PUSH);
        EXPECT_EQ(Take(), Told(EDIT, EN_SETFOCUS, EDIT, EN_KILLFOCUS, PUSH, 0));
        EXPECT_EQ(GetFocus(), GetDlgItem(dialog, PUSH));
    });
}

TEST_F(DialogTest, ListTellsOfEveryChoiceByKeyAndMouse) {
    Open([](HWND dialog) {
        Take();
        hands::PressKey(dialog, VK_DOWN);
        EXPECT_EQ(Take(), Told(LIST, CBN_SELENDOK, LIST, CBN_SELCHANGE));
        hands::PressKey(dialog, 'D');
        hands::PressKey(dialog, VK_DOWN);
        EXPECT_EQ(Take(), Told(LIST, CBN_SELENDOK, LIST, CBN_SELCHANGE, LIST, CBN_SELENDOK, LIST,
                               CBN_SELCHANGE))
            << "told again at the end, where nothing changes";
        hands::PressKey(dialog, 'Z');
        EXPECT_EQ(Take(), Told());
        EXPECT_EQ(TextOf(dialog, LIST), u"dd");
        hands::PressKey(dialog, VK_DOWN, true);
        hands::PressKey(dialog, VK_UP);
        hands::PressKey(dialog, VK_RETURN);
        EXPECT_EQ(Take(), Told(LIST, CBN_DROPDOWN, LIST, CBN_SELCHANGE, LIST, CBN_SELENDOK, LIST,
                               CBN_CLOSEUP));
        hands::PressKey(dialog, VK_F4);
        hands::PressKey(dialog, VK_UP);
        hands::PressKey(dialog, VK_ESCAPE);
        EXPECT_EQ(Take(), Told(LIST, CBN_DROPDOWN, LIST, CBN_SELCHANGE, LIST, CBN_SELENDCANCEL,
                               LIST, CBN_CLOSEUP));
        EXPECT_EQ(Ask(dialog, LIST, CB_GETCURSEL), 1) << "the arrow's choice stays";
        EXPECT_TRUE(hands::Choose(dialog, LIST, u"cc"));
        EXPECT_EQ(Take(), Told(LIST, CBN_DROPDOWN, LIST, CBN_SELENDOK, LIST, CBN_CLOSEUP, LIST,
                               CBN_SELCHANGE));
        EXPECT_EQ(Ask(dialog, LIST, CB_GETCURSEL), 2);
        hands::PressKey(dialog, VK_F4);
        hands::PressKey(dialog, VK_TAB);
        EXPECT_EQ(Take(), Told(LIST, CBN_DROPDOWN, LIST, CBN_SELENDCANCEL, LIST, CBN_CLOSEUP, LIST,
                               CBN_KILLFOCUS, EDIT, EN_SETFOCUS));
    });
}

TEST_F(DialogTest, ListsKeepSelectionAndValuesWithTheirItems) {
    Open([](HWND dialog) {
        for (const WCHAR* text : {u"beta", u"Alpha"})
            Ask(dialog, SORTED, CB_ADDSTRING, 0, Text(text));
        Ask(dialog, SORTED, CB_SETCURSEL, 1);
        Ask(dialog, SORTED, CB_SETITEMDATA, 1, 77);
        EXPECT_EQ(Ask(dialog, SORTED, CB_ADDSTRING, 0, Text(u"alpha2")), 1);
        Ask(dialog, SORTED, CB_ADDSTRING, 0, Text(u"Gamma"));
        EXPECT_EQ(Ask(dialog, SORTED, CB_GETCURSEL), 2) << "moved with its item";
        EXPECT_EQ(Ask(dialog, SORTED, CB_GETITEMDATA, 2), 77);
        EXPECT_EQ(Ask(dialog, SORTED, CB_GETLBTEXTLEN, 1), 6);
        EXPECT_EQ(Ask(dialog, SORTED, CB_FINDSTRINGEXACT, 0, Text(u"ALPHA")), 0) << "wraps";
        EXPECT_EQ(Ask(dialog, SORTED, CB_FINDSTRINGEXACT, static_cast<WPARAM>(-1), Text(u"gam")),
                  CB_ERR);
        EXPECT_EQ(Ask(dialog, SORTED, CB_DELETESTRING, 0), 3);
        EXPECT_EQ(Ask(dialog, SORTED, CB_GETCURSEL), 1);
        EXPECT_EQ(Ask(dialog, SORTED, CB_DELETESTRING, 1), 2);
        EXPECT_EQ(Ask(dialog, SORTED, CB_GETCURSEL), CB_ERR);
        EXPECT_EQ(TextOf(dialog, SORTED), u"");
        EXPECT_EQ(Ask(dialog, SORTED, CB_SETCURSEL, 2), CB_ERR) << "beyond the last";
        for (const UINT message : std::initializer_list<UINT>{CB_GETITEMDATA, CB_SETITEMDATA,
                                                              CB_GETLBTEXTLEN, CB_DELETESTRING}) {
            EXPECT_EQ(Ask(dialog, SORTED, message, static_cast<WPARAM>(-1)), CB_ERR) << message;
        }
        const LRESULT width = Ask(dialog, LIST, CB_GETDROPPEDWIDTH);
        EXPECT_EQ(Ask(dialog, LIST, CB_SETDROPPEDWIDTH, 30), width) << "not below its own";
        EXPECT_EQ(Ask(dialog, LIST, CB_SETDROPPEDWIDTH, 500), 500);
    });
}

TEST_F(DialogTest, UpDownStepsItsBuddyWithinTheRange) {
    Open([](HWND dialog) {
        hands::Click(dialog, DIGITS);
        Take();
        hands::PressKey(dialog, VK_UP);
        EXPECT_EQ(Take(), Told()) << "no range given: 100 down to 0, and 0 is where it stands";
        Ask(dialog, SPIN, UDM_SETRANGE, 0, MAKELPARAM(200, 8));
        hands::PressKey(dialog, VK_UP);
        EXPECT_EQ(Take(), Told(DIGITS, EN_UPDATE, DIGITS, EN_CHANGE));
        EXPECT_EQ(TextOf(dialog, DIGITS), u"8") << "from an empty text to the range's end";
        SetDlgItemTextW(dialog, DIGITS, u"199");
        hands::Click(dialog, EDIT);
        Take();
        EXPECT_TRUE(hands::StepUpDown(dialog, SPIN, 3));
        EXPECT_EQ(Take(), Told(EDIT, EN_KILLFOCUS, DIGITS, EN_SETFOCUS, DIGITS, EN_UPDATE, DIGITS,
                               EN_CHANGE));
        EXPECT_EQ(TextOf(dialog, DIGITS), u"200");
        SetDlgItemTextW(dialog, DIGITS, u"5000");
        hands::StepUpDown(dialog, SPIN, -1);
        EXPECT_EQ(TextOf(dialog, DIGITS), u"199") << "on from its own last position";
    });
}

TEST_F(DialogTest, KeysFollowTheTemplate) {
    Open([](HWND dialog) {
        hands::PressKey(dialog, VK_TAB);
        EXPECT_EQ(GetFocus(), GetDlgItem(dialog, EDIT));
        Take();
        hands::PressKey(dialog, VK_RETURN);
        EXPECT_EQ(Take(), Told(IDOK, 0)) << "the focus stays";
        hands::PressKey(dialog, 'P', true);
        EXPECT_EQ(Take(), Told(EDIT, EN_KILLFOCUS, PUSH, 0));
        hands::PressKey(dialog, VK_RETURN);
        EXPECT_EQ(Take(), Told(PUSH, 0)) << "a push button with the focus is the default";
        hands::PressKey(dialog, 'L', true);
        EXPECT_EQ(Take(), Told(DIGITS, EN_SETFOCUS)) << "a label leads to the next control";
        hands::Click(dialog, RADIO_1);
        Take();
        hands::PressKey(dialog, VK_DOWN);
        EXPECT_EQ(Take(), Told(RADIO_2, 0));
        EXPECT_EQ(Ask(dialog, RADIO_1, BM_GETCHECK), BST_UNCHECKED);
        hands::Click(dialog, TICK);
        hands::PressKey(dialog, VK_TAB);
        EXPECT_EQ(GetFocus(), GetDlgItem(dialog, RADIO_2)) << "a group is entered where it stands";
        hands::PressKey(dialog, VK_TAB);
        hands::PressKey(dialog, VK_F1);
        EnableWindow(GetDlgItem(dialog, PUSH), FALSE);
        for (const int control : {LABEL, PUSH, FRAME, PAGE}) hands::AskHelp(dialog, control);
        EXPECT_EQ(helpAskedOn, (std::vector<int>{DIGITS, LABEL, PUSH, FRAME, PAGE}));
        Take();
        hands::PressKey(dialog, VK_ESCAPE);
        EXPECT_EQ(Take(), Told(IDCANCEL, 0, DIGITS, EN_KILLFOCUS));
        EXPECT_FALSE(hands::PressKey(dialog, VK_ESCAPE)) << "over";
    });
}

/// Presses a key in whatever window is in front, as soon as one is.
void PressSoon(Qt::Key key, const QString& text) {
    QTimer::singleShot(0, [key, text] {
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
    QTimer::singleShot(0, [name] {
        for (auto* button : QApplication::activeModalWidget()->findChildren<QPushButton*>()) {
            if (button->text() == name) button->click();
        }
    });
}

TEST_F(DialogTest, PersonAtTheScreenWorksInTheWindowsThemselves) {
    platform::Watchdog watchdog(std::chrono::seconds(20));
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
    platform::ScriptedUser user;
    user.Answer(IDYES);  // no button of the box below
    const platform::UserScope scope(user);
    EXPECT_EQ(MessageBoxW(nullptr, u"a", nullptr, MB_OKCANCEL), IDCANCEL) << "the safe answer";
    EXPECT_EQ(user.Boxes()[0].request.caption, u"Error");
    EXPECT_NE(user.Surprises().find("box without an answer: a"), std::string::npos);
    EXPECT_NE(user.Surprises().find("1 answers left over"), std::string::npos);
}

TEST(WatchdogDeathTest, EndsAHungRunAndSaysWhere) {
    testing::FLAGS_gtest_death_test_style = "threadsafe";
    EXPECT_DEATH(
        {
            platform::Watchdog watchdog(std::chrono::milliseconds(50));
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
    EXPECT_EQ(DialogBoxParamW(nullptr, MAKEINTRESOURCEW(IDD_CONTROLS), stale, Procedure, 0), -1);
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
            if (const char* file = std::getenv("EDITOR_PICTURE")) {
                EXPECT_TRUE(platform::SavePicture(dialog, file));
            }
        },
        IDD_WATERMARK_EDITOR);
}

TEST_F(DialogTest, ManyItemsAndKeystrokesAreQuick) {
    using Clock = std::chrono::steady_clock;
    Open([](HWND dialog) {
        const auto begin = Clock::now();
        for (int i = 0; i < 2000; ++i) {
            const std::u16string text = platform::Utf16(std::to_string((i * 7919) % 2000));
            Ask(dialog, SORTED, CB_ADDSTRING, 0, Text(text.c_str()));
        }
        const auto filled = Clock::now();
        hands::TypeText(dialog, EDIT, std::u16string(100, u'x'));
        const auto typed = Clock::now();
        EXPECT_LT(filled - begin, std::chrono::milliseconds(1500)) << "ten times what is needed";
        EXPECT_LT((typed - filled) / 100, std::chrono::microseconds(16700)) << "one frame";
    });
}

}  // namespace
