// The editor when the platform fails it, and the help that the user is given: both need the layer.

#include "platform/faults/failure_points.h"
#include "tests/wmeditor/editor_fixture.h"

namespace oemui {
namespace {

using tests::NamesIn;
using tests::Narrow;

class EditorFailures : public tests::EditorTest {};

TEST_F(EditorFailures, AListItemThatIsMissingLeavesTheOthersTheirEntries) {
    const platform::FailurePlan plan("CB_ADDSTRING", 3, ERROR_NOT_ENOUGH_MEMORY);
    user_.WillAnswer({IDOK});
    EditTo(1, [this] {
        EXPECT_TRUE(user_.Choose(IDC_WATERMARK_LIST, TEXT("Echo")));
        EXPECT_EQ(TextOf(IDC_NAME), "Echo");
        user_.Click(IDC_DELETE);
        EXPECT_EQ(TextOf(IDC_NAME), "Delta");
        user_.Choose(IDC_WATERMARK_LIST, TEXT("Foxtrot"));
        EXPECT_EQ(TextOf(IDC_NAME), "Foxtrot");
        user_.Click(IDOK);
    });
    EXPECT_EQ(Narrow(NamesIn(Stored())), "<NONE> Alpha Delta Foxtrot");
    EXPECT_EQ(Stored().Selected, 3);
}

TEST_F(EditorFailures, ANumberThatCannotBeReadLeavesTheRecord) {
    Edit([this] {
        {
            const platform::FailurePlan plan("GetDlgItemInt", 0, ERROR_NOT_ENOUGH_MEMORY);
            user_.TypeText(IDC_POINT_SIZE, TEXT("74"));
            EXPECT_EQ(Edited().PointSize, 72);
        }
        user_.Click(IDC_BOLD);
        EXPECT_EQ(Edited().PointSize, 74) << "read again when the focus leaves";
        user_.TypeText(IDC_POINT_SIZE, TEXT(""));
        EXPECT_EQ(Preview().PointSize, 0) << "as the empty edit reads";
    });
}

TEST_F(EditorFailures, AValueThatCannotBeWrittenIsTold) {
    const platform::FailurePlan plan("SetPrinterDataW", 0, ERROR_ACCESS_DENIED);
    EXPECT_EQ(Edit([this] { user_.Click(IDOK); }), 1);
    ASSERT_EQ(user_.Boxes().size(), 1u);
    EXPECT_EQ(user_.Boxes()[0].text, "Failed to set data in registry.");
}

TEST_F(EditorFailures, AnEditorClosedUnderAQuestionStoresNothing) {
    for (const bool isDestroyed : {false, true}) {
        user_.WillAnswer([&](const tests::ShownBox& box) {
            if (isDestroyed) ::SendMessageW(user_.Dialog(), WM_DESTROY, 0, 0);
            if (!isDestroyed) user_.Close();
            return box.type == MB_YESNO ? IDYES : IDOK;
        });
        for (const auto& buttons :
             std::vector<std::vector<int>>{{IDOK}, {IDC_NEW, IDOK}, {IDC_DELETE}}) {
            SCOPED_TRACE(buttons.front());
            EditTo(0, [&] {
                user_.TypeText(IDC_POINT_SIZE, TEXT("20"));
                for (const int button : buttons) user_.Click(button);
            });
            EXPECT_EQ(Session().Dialog(), nullptr) << "the window has gone";
            EXPECT_EQ(Stored().Count, 0);
        }
        if (!isDestroyed) {
            EXPECT_EQ(Narrow(NamesIn(WorkingWatermarkList)), Narrow(NamesIn(list_)));
        }
    }
}

TEST_F(EditorFailures, AnEditorBelowALaterOneClosesAndTouchesNothing) {
    const WatermarkList before = list_;
    for (const int command : {IDOK, static_cast<int>(IDC_CANCEL), IDCANCEL}) {
        WatermarkList later = before;
        later.Selected = 3;
        EditTo(0, [&] {
            const HWND first = user_.Dialog();
            user_.TypeText(IDC_POINT_SIZE, TEXT("20"));
            const auto closeFirst = [&] {
                EXPECT_EQ(::SendMessageW(first, WM_COMMAND, IDC_BOLD, 0), 0);
                EXPECT_EQ(::SendMessageW(first, WM_COMMAND, WPARAM(command), 0), 1);
            };
            const auto renameInLater = [&] {
                if (command != IDCANCEL) closeFirst();
                user_.TypeText(IDC_NAME, TEXT("Later"));
                user_.Click(IDOK);
            };
            EXPECT_EQ(user_.Open(IDD_WATERMARK_EDITOR, WatermarkEditorProc,
                                 reinterpret_cast<LPARAM>(&later), renameInLater),
                      1);
            if (command == IDCANCEL) closeFirst();
        });
        EXPECT_EQ(std::memcmp(&list_, &before, sizeof before), 0);
        EXPECT_EQ(Narrow(NamesIn(Stored())), "<NONE> Alpha Delta Later Foxtrot");
        EXPECT_EQ(Stored().Entries[1].PointSize, 72);
    }
}

TEST_F(EditorFailures, HelpIsReadInTheModelsFile) {
    Edit([this] {
        user_.Click(IDC_HELP_BUTTON);
        user_.Click(IDC_USER_POSITION);
        user_.PressKey(VK_F1);
    });
    ASSERT_EQ(user_.Help().size(), 2u);
    EXPECT_EQ(user_.Help()[0].topic, 1114u);
    EXPECT_EQ(user_.Help()[1].command, static_cast<UINT>(HELP_CONTEXTPOPUP));
    EXPECT_EQ(user_.Help()[1].topic, 1302u);
    EXPECT_EQ(Narrow(user_.Help()[1].file),
              "C:\\Windows\\System32\\spool\\drivers\\x64\\3\\QVRT_HLP.HLP");
}

}  // namespace
}  // namespace oemui
