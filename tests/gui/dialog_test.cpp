#include <QApplication>
#include <QClipboard>
#include <QKeyEvent>
#include <QWidget>
#include <climits>

#include "platform/text/text_encoding.h"
#include "tests/gui/dialog_fixture.h"

namespace {

TEST_F(DialogTest, OpensOnTheFirstTabStopPaintsAndIsCancelledWhenTheUserLeaves) {
    Open([](HWND dialog) {
        EXPECT_EQ(Take(), Told(LIST, CBN_SETFOCUS));
        EXPECT_EQ(GetFocus(), GetDlgItem(dialog, LIST));
        EXPECT_GE(paints, 1);
    });
    EXPECT_EQ(Take(), Told(IDCANCEL, 0, LIST, CBN_SELENDCANCEL, LIST, CBN_KILLFOCUS))
        << "ending a dialog takes the focus from its control";
}

TEST_F(DialogTest, TheFirstTabStopHasTheFocusUnlessTheProgramSaysItChoseAnother) {
    onOpening = [](HWND dialog) { SetFocus(GetDlgItem(dialog, DIGITS)); };
    for (const auto& [answer, focused] : {std::pair{0, DIGITS}, {1, LIST}}) {
        openingAnswer = answer;
        Open([focused = focused](HWND dialog) {
            EXPECT_EQ(defaultFocus, GetDlgItem(dialog, LIST));
            EXPECT_EQ(GetFocus(), GetDlgItem(dialog, focused));
        });
    }
    onOpening = [](HWND dialog) {
        EnableWindow(GetDlgItem(dialog, LIST), FALSE);
        SetDlgItemTextW(dialog, EDIT, u"old");
    };
    Open([](HWND dialog) {
        hands::PressKey(dialog, 'X');
        EXPECT_EQ(TextOf(dialog, EDIT), u"x") << "its text was selected";
    });
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
        QApplication::clipboard()->setText(QStringLiteral("-12"));
        hands::Click(dialog, DIGITS);
        for (const auto key : {Qt::Key_A, Qt::Key_V}) {
            QKeyEvent press(QEvent::KeyPress, key, Qt::ControlModifier);
            QApplication::sendEvent(QApplication::focusWidget(), &press);
        }
        EXPECT_EQ(TextOf(dialog, DIGITS), u"-12") << "only typing is held to digits";
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
                        {u"-2147483648", INT_MIN, true, true},
                        {u"-5", 0, false, false},
                        {u"12abc", 12, true, true},
                        {u" 7", 7, true, true},
                        {u"+3", 0, true, false},
                        {u"4294967295", -1, false, true},
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
        Ask(dialog, SORTED, CB_ADDSTRING, 0, Text(u"Bravo"));
        SetFocus(GetDlgItem(dialog, SORTED));
        for (const char letter : {'B', 'E'}) hands::PressKey(dialog, letter);  // to Bravo and back
        EXPECT_EQ(Ask(dialog, SORTED, CB_GETCURSEL), 2) << "moved with its item";
        EXPECT_EQ(Ask(dialog, SORTED, CB_GETITEMDATA, 2), 77);
        EXPECT_EQ(Ask(dialog, SORTED, CB_FINDSTRINGEXACT, 0, Text(u"ALPHA")), 0) << "wraps";
        EXPECT_EQ(Ask(dialog, SORTED, CB_FINDSTRINGEXACT, static_cast<WPARAM>(-1), Text(u"bra")),
                  CB_ERR);
        EXPECT_EQ(Ask(dialog, SORTED, CB_DELETESTRING, 0), 3);
        EXPECT_EQ(Ask(dialog, SORTED, CB_GETCURSEL), 1);
        EXPECT_EQ(Ask(dialog, SORTED, CB_DELETESTRING, 1), 2);
        EXPECT_EQ(Ask(dialog, SORTED, CB_GETCURSEL), CB_ERR);
        EXPECT_EQ(TextOf(dialog, SORTED), u"");
        EXPECT_EQ(Ask(dialog, SORTED, CB_SETCURSEL, 2), CB_ERR) << "beyond the last";
        for (const int message : {CB_GETITEMDATA, CB_SETITEMDATA, CB_DELETESTRING}) {
            EXPECT_EQ(Ask(dialog, SORTED, UINT(message), static_cast<WPARAM>(-1)), CB_ERR);
        }
        const LRESULT width = Ask(dialog, LIST, CB_SETDROPPEDWIDTH, 0);
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
        Ask(dialog, SPIN, UDM_SETRANGE, 0, MAKELPARAM(2000, 8));
        for (const auto& [text, next] : {std::pair{u"1,5", u"16"}, {u"999", u"1,000"}}) {
            SetDlgItemTextW(dialog, DIGITS, text);
            hands::StepUpDown(dialog, SPIN, 1);
            EXPECT_EQ(TextOf(dialog, DIGITS), next) << "thousands are set apart";
        }
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

}  // namespace
