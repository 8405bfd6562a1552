#include "tests/wmeditor/editor_fixture.h"

namespace oemui {
namespace {

using tests::NamesIn;
using tests::Narrow;
using tests::ShownBox;

const ShownBox kListFull = {"Watermark list is full, maximum is 16.", "Error", MB_OK};
const ShownBox kNotDeleted = {"It's not allowed to delete <NONE>.", "Watermark", MB_OK};
const ShownBox kConfirmDelete = {"Are you sure you want to delete the selected watermark?",
                                 "Delete Watermark", MB_OKCANCEL};
const ShownBox kListEmpty = {"Watermark list is empty.", "Watermark", MB_OK};
const ShownBox kNoneNotAdded = {"<NONE> can not be added.", "Error", MB_OK};
const ShownBox kNameEmpty = {"Watermark name empty!", "Error", MB_OK};
const ShownBox kTextEmpty = {"Watermark string empty!", "Error", MB_OK};
const ShownBox kOverwrite = {"Do you want to overwrite the existing watermark name?", "Warning",
                             MB_YESNO};
const ShownBox kNotOpened = {"Failed to open printer.", "Error", MB_OK};

ShownBox NewSelected(const std::string& name) {
    return {"The new watermark \"" + name + "\" is selected.", "Watermark", MB_OK};
}

class EditorCommands : public tests::EditorTest {
protected:
    void ExpectMessages(const tests::ShownBoxes& expected) { EXPECT_EQ(user_.Boxes(), expected); }
    void Add(const tests::Text& name, const tests::Text& text) {
        user_.Click(IDC_NEW);
        EXPECT_TRUE(user_.TypeText(IDC_NAME, name));
        EXPECT_TRUE(user_.TypeText(IDC_TEXT, text));
    }
};

TEST_F(EditorCommands, AnEmptyListOpensOnTheDefaultsAndCancelKeepsThem) {
    WriteFile("Windows/QVRT__WM.INI",
              "[WatermarkInfo]\r\nNUM=2\r\ndat0=0,<NONE>,,Arial,72,0,0,0,0,0,0,0,0,0,0"
              "\r\ndat1=1,Copy,COPY,Arial,72,1,0,0,0,255,1,9,0,0,0\r\n");
    list_ = {};
    EditTo(0, [this] {
        EXPECT_EQ(Send(IDC_WATERMARK_LIST, CB_GETCOUNT), 2);
        user_.Choose(IDC_WATERMARK_LIST, TEXT("Copy"));
        user_.Click(IDC_CANCEL);
    });
    EXPECT_EQ(Narrow(NamesIn(WorkingWatermarkList)), "<NONE> Copy");
    EXPECT_EQ(list_.Count, 0);
}

TEST_F(EditorCommands, AnUntouchedListIsStoredWithItsSelection) {
    list_.Entries[0].PointSize = 0;
    list_.Entries[1].PointSize = 300;
    EditTo(1, [this] { user_.Click(IDOK); });
    EditTo(1, [this] {
        user_.Choose(IDC_WATERMARK_LIST, TEXT("<NONE>"));
        user_.Click(IDOK);
    });
    ExpectMessages({});
    EXPECT_EQ(Stored().Entries[0].PointSize, 0);
    EXPECT_EQ(Stored().Entries[1].PointSize, 300) << "nobody changed it";
    EXPECT_EQ(list_.Selected, 0);
    EXPECT_EQ(Stored().NoneSelected, 1u);
    EXPECT_EQ(Narrow(NamesIn(Stored())), "<NONE> Alpha Delta Echo Foxtrot");
}

TEST_F(EditorCommands, EscapeAndTheCloseBoxCancel) {
    EditTo(0, [this] { user_.PressKey(VK_ESCAPE); });
    EditTo(0, [this] {
        user_.TypeText(IDC_POINT_SIZE, TEXT("5"));
        user_.Close();
    });
    EXPECT_EQ(std::memcmp(&WorkingWatermarkList, &list_, sizeof list_), 0);
    EXPECT_EQ(Stored().Count, 0);
}

TEST_F(EditorCommands, ChangedSettingsAreOverwrittenOnlyOnYes) {
    list_.Selected = 2;
    user_.WillAnswer({IDNO, IDYES});
    EditTo(1, [this] {
        user_.Choose(IDC_WATERMARK_LIST, TEXT("Echo"));
        user_.TypeText(IDC_POINT_SIZE, TEXT("48"));
        user_.Click(IDOK);
        EXPECT_EQ(Send(IDC_WATERMARK_LIST, CB_GETCURSEL), 2) << "back to the opening selection";
        EXPECT_EQ(TextOf(IDC_NAME), "Delta");
        EXPECT_EQ(Stored().Count, 0);
        user_.Choose(IDC_WATERMARK_LIST, TEXT("Echo"));
        EXPECT_EQ(TextOf(IDC_POINT_SIZE), "72");
        user_.TypeText(IDC_POINT_SIZE, TEXT("48"));
        user_.Click(IDOK);
    });
    ExpectMessages({kOverwrite, kOverwrite});
    EXPECT_EQ(Stored().Entries[3].PointSize, 48);
    EXPECT_EQ(list_.Selected, 3);
}

TEST_F(EditorCommands, TheSizeShownIsTheSizeKeptAndNoIsAskedForOnce) {
    list_.Entries[1].PointSize = 300;
    int answer = 0;
    user_.WillAnswer([&](const ShownBox&) { return std::exchange(answer, IDNO); });
    EditTo(1, [this] {
        user_.TypeText(IDC_POINT_SIZE, TEXT("5"));
        user_.PressKey(VK_RETURN);
        EXPECT_EQ(TextOf(IDC_POINT_SIZE), "8") << "without an answer";
        user_.Click(IDOK);
        EXPECT_EQ(TextOf(IDC_POINT_SIZE), "300");
        user_.Click(IDOK);
    });
    ExpectMessages({kOverwrite, kOverwrite});
    EXPECT_EQ(Stored().Entries[1].PointSize, 300);
}

TEST_F(EditorCommands, NoAfterADeletionStaysOnTheEntryShown) {
    struct Row {
        INT32 selected;  // at the opening: removed, or moved to another place
        const WCHAR* removed;
        const char* shown;
        const char* left;
    };
    for (const Row& row : {Row{4, TEXT("Foxtrot"), "Echo", "<NONE> Alpha Delta Echo"},
                           Row{3, TEXT("Delta"), "Alpha", "<NONE> Alpha Echo Foxtrot"}}) {
        list_.Selected = row.selected;
        user_.WillAnswer({IDOK, IDNO});
        EditTo(0, [&] {
            user_.Choose(IDC_WATERMARK_LIST, row.removed);
            user_.Click(IDC_DELETE);
            user_.TypeText(IDC_POINT_SIZE, TEXT("20"));
            user_.Click(IDOK);
            EXPECT_EQ(TextOf(IDC_NAME), row.shown);
            EXPECT_EQ(TextOf(IDC_WATERMARK_LIST), row.shown);
            EXPECT_EQ(TextOf(IDC_POINT_SIZE), "72");
            EXPECT_EQ(Narrow(NamesIn(WorkingWatermarkList)), row.left);
        });
    }
    ExpectMessages({kConfirmDelete, kOverwrite, kConfirmDelete, kOverwrite});
}

TEST_F(EditorCommands, ADiagonalEntryTakesThePagesAngleAndAsks) {
    list_.Entries[1].AngleKind = StoredValue(AngleKind::kDiagonal);
    list_.Entries[1].AngleDegrees = 7;
    user_.WillAnswer({IDYES});
    EditTo(1, [this] { user_.Click(IDOK); });
    ExpectMessages({kOverwrite});
    EXPECT_EQ(Stored().Entries[1].AngleDegrees, static_cast<INT32>(DiagonalAngleDegrees()));
}

TEST_F(EditorCommands, NewStartsFromEntryZeroUnderAFreeName) {
    CopyText(list_.Entries[2].Name, TEXT("Watermark - #1"));
    list_.Entries[0].PointSize = 33;
    list_.Entries[0].AngleDegrees = -5;
    Edit([this] {
        user_.Click(IDC_NEW);
        EXPECT_EQ(Narrow(TextIn(Edited().Name)), "Watermark - #2");
        EXPECT_EQ(Narrow(TextIn(Preview().Text)), "Watermark String");
        EXPECT_EQ(Edited().PointSize, 33);
        EXPECT_EQ(Preview().AngleDegrees, -5);
        EXPECT_EQ(::GetFocus(), ::GetDlgItem(user_.Dialog(), IDC_NAME));
        EXPECT_EQ(
            EnabledAmong({IDC_NEW, IDC_DELETE, IDC_WATERMARK_LIST, IDC_CANCEL, IDC_POINT_SIZE}),
            (std::vector<int>{IDC_CANCEL, IDC_POINT_SIZE}));
        user_.Click(IDC_CANCEL);
    });
}

TEST_F(EditorCommands, ANewEntryIsSortedInSelectedAndAnnounced) {
    list_.Count = 3;
    EditTo(1, [this] {
        Add(TEXT("Zebra"), TEXT("stripes"));
        user_.Choose(IDC_COLOR, TEXT("Green"));
        user_.Click(IDOK);
    });
    ExpectMessages({NewSelected("Zebra")});
    EXPECT_EQ(Narrow(NamesIn(Stored())), "<NONE> Alpha Delta Zebra");
    EXPECT_EQ(list_.Selected, 3);
    EXPECT_EQ(list_.Entries[3].Green, 255);
    EditTo(1, [this] {
        Add(TEXT("Bravo"), tests::Text(64, TEXT('b')));
        user_.Click(IDOK);
    });
    EXPECT_EQ(list_.Selected, 2);
    EXPECT_EQ(Stored().Entries[2].Index, 2u);
    EXPECT_EQ(TextIn(Stored().Entries[2].Text).size(), 63u);
}

TEST_F(EditorCommands, WhatIsTypedAfterNewReplacesTheNameAndNoCharacterIsHalved) {
    list_.Selected = 0;
    EditTo(1, [this] {
        user_.Click(IDC_NEW);
        user_.Type(TEXT("hello Internal Only\xD83D\xDE00"));
        user_.PressKey(VK_RETURN);
    });
    ExpectMessages({NewSelected("hello Internal Only")});
    EXPECT_EQ(list_.Selected, 5);
}

TEST_F(EditorCommands, ARefusedEntryIsStillBeingAdded) {
    EditTo(0, [this] {
        Add(TEXT("<NONE>"), TEXT(""));
        user_.Click(IDOK);
        user_.TypeText(IDC_NAME, TEXT("   "));
        user_.Click(IDOK);
        user_.TypeText(IDC_NAME, TEXT("Tango"));
        user_.Click(IDOK);
        EXPECT_TRUE(Session().IsAdding());
        user_.PressKey(VK_ESCAPE);
    });
    ExpectMessages({kNoneNotAdded, kNameEmpty, kTextEmpty});
}

TEST_F(EditorCommands, NoTakesTheFocusFromSettingsThatItDisablesAndTheirTextWithIt) {
    list_.Entries[0].PointSize = 33;
    list_.Selected = 0;
    user_.WillAnswer({IDNO});
    EditTo(0, [this] {
        user_.Choose(IDC_WATERMARK_LIST, TEXT("Alpha"));
        user_.TypeText(IDC_POINT_SIZE, TEXT("48"));
        user_.PressKey(VK_RETURN);
        EXPECT_EQ(::GetFocus(), ::GetDlgItem(user_.Dialog(), IDC_WATERMARK_LIST));
        EXPECT_EQ(Edited().PointSize, 33);
    });
    ExpectMessages({kOverwrite});
}

TEST_F(EditorCommands, AnExistingNameIsOverwrittenAsAWholeOnYes) {
    user_.WillAnswer({IDNO, IDYES});
    EditTo(1, [this] {
        Add(TEXT("Delta"), TEXT("other"));
        user_.Click(IDC_BOLD);
        user_.Click(IDOK);
        EXPECT_EQ(TextOf(IDC_TEXT), "other");
        user_.Click(IDOK);
    });
    ExpectMessages({kOverwrite, kOverwrite, NewSelected("Delta")});
    EXPECT_EQ(Stored().Count, 5);
    EXPECT_EQ(Stored().Entries[2].Bold, 1);
    EXPECT_EQ(Narrow(TextIn(Stored().Entries[2].Text)), "other");
}

TEST_F(EditorCommands, AFullListTakesNoMoreUntilOneGoes) {
    while (list_.Count < kWatermarkCapacity) list_.Entries[list_.Count++] = list_.Entries[4];
    list_.Selected = 0;
    user_.WillAnswer({IDOK});
    Edit([this] {
        user_.Click(IDC_NEW);
        EXPECT_EQ(EnabledAmong({IDC_NEW, IDC_DELETE, IDC_NAME, IDC_WATERMARK_LIST}),
                  (std::vector<int>{IDC_NAME, IDC_WATERMARK_LIST}));
        user_.Choose(IDC_WATERMARK_LIST, TEXT("Alpha"));
        user_.Click(IDC_DELETE);
        EXPECT_TRUE(IsEnabled(IDC_NEW));
    });
    ExpectMessages({kListFull, kConfirmDelete});
}

TEST_F(EditorCommands, ADeletionShowsTheEntryBeforeAndEscapeTakesItBack) {
    list_.Selected = 2;
    user_.WillAnswer({IDCANCEL, IDOK, IDOK});
    EditTo(0, [this] {
        user_.Click(IDC_DELETE);
        EXPECT_EQ(WorkingWatermarkList.Count, 5);
        user_.Click(IDC_DELETE);
        EXPECT_EQ(Send(IDC_WATERMARK_LIST, CB_GETCURSEL), 1);
        EXPECT_EQ(TextOf(IDC_NAME), "Alpha");
        EXPECT_EQ(EnabledAmong({IDC_NEW, IDC_CANCEL, IDC_DELETE, IDC_POINT_SIZE}),
                  (std::vector<int>{IDC_NEW, IDC_DELETE, IDC_POINT_SIZE}));
        user_.Click(IDC_BOLD);
        EXPECT_TRUE(IsEnabled(IDC_CANCEL)) << "any command brings it back";
        user_.Click(IDC_DELETE);
        EXPECT_EQ(TextOf(IDC_NAME), "<NONE>");
        EXPECT_FALSE(IsEnabled(IDC_CANCEL));
        EXPECT_TRUE(EnabledAmong({IDC_DELETE, IDC_POINT_SIZE, IDC_NAME}).empty());
        EXPECT_EQ(::GetFocus(), ::GetDlgItem(user_.Dialog(), IDC_WATERMARK_LIST));
        user_.PressKey(VK_ESCAPE);
    });
    ExpectMessages({kConfirmDelete, kConfirmDelete, kConfirmDelete});
    EXPECT_EQ(Narrow(NamesIn(WorkingWatermarkList)), "<NONE> Alpha Delta Echo Foxtrot");
}

TEST_F(EditorCommands, ADeletionTakesOneEntryAndLaterOnesAreNotAskedAbout) {
    list_.Entries[0].InUse = list_.Entries[1].InUse = 0;
    list_.Orientation = 2;
    list_.Selected = 2;
    user_.WillAnswer({IDOK});
    EditTo(1, [this] {
        user_.Click(IDC_DELETE);
        EXPECT_EQ(TextOf(IDC_WATERMARK_LIST), "Alpha");
        user_.Choose(IDC_WATERMARK_LIST, TEXT("Foxtrot"));
        user_.TypeText(IDC_POINT_SIZE, TEXT("20"));
        user_.Click(IDOK);
    });
    ExpectMessages({kConfirmDelete});
    EXPECT_EQ(Narrow(NamesIn(Stored())), "<NONE> Alpha Echo Foxtrot");
    EXPECT_EQ(Stored().Entries[3].PointSize, 20);
    EXPECT_EQ(Stored().Entries[0].InUse, 1u);
    EXPECT_EQ(Stored().Orientation, 0u);
}

TEST_F(EditorCommands, EntryZeroIsNeverDeleted) {
    list_.Count = 1;
    list_.Selected = 0;
    Edit([this] {
        EXPECT_FALSE(user_.Click(IDC_DELETE));
        SendCommand(IDC_DELETE);
    });
    list_.Count = 2;
    list_.Selected = 1;
    user_.WillAnswer({IDOK});
    Edit([this] {
        user_.Click(IDC_NEW);
        WorkingWatermarkList.Count = 1;
        SendCommand(IDC_DELETE);
        EXPECT_TRUE(IsEnabled(IDC_NEW));
        EXPECT_EQ(WorkingWatermarkList.Count, 1);
    });
    ExpectMessages({kNotDeleted, kConfirmDelete, kListEmpty});
}

TEST_F(EditorCommands, APageBuiltMeanwhileHasItsOwnPrinterAndItsOwnFirstList) {
    const tests::TestPrinter other(TEXT("Other"));
    EditTo(1, [&] {
        SetCurrentPrinter(other.Name().c_str());
        InitPrinterWatermarkList(other.Name().c_str());
        user_.Click(IDOK);
    });
    EXPECT_EQ(Narrow(NamesIn(Stored())), "<NONE> Alpha Delta Echo Foxtrot");
    const std::string othersList = other.StoredValue(TEXT("WaterMarkList"));
    EXPECT_EQ(othersList.substr(sizeof(UINT32), sizeof(INT32)), std::string(4, 0)) << "its count";
}

TEST_F(EditorCommands, AnEmptyListTakesItsFirstEntry) {
    list_ = {};
    EditTo(1, [this] {
        SendCommand(IDC_WATERMARK_LIST);
        EXPECT_FALSE(IsEnabled(IDC_NAME));
        Add(TEXT("First"), TEXT("first"));
        user_.Click(IDOK);
    });
    EXPECT_EQ(Narrow(NamesIn(Stored())), "First");
}

TEST_F(EditorCommands, ARenamedEntryIsStoredUnaskedAndWithoutThePrinterTheUserIsTold) {
    const auto rename = [this] {
        user_.TypeText(IDC_NAME, TEXT("Renamed"));
        user_.Click(IDOK);
    };
    EditTo(1, rename);
    ExpectMessages({});
    EXPECT_EQ(Narrow(NamesIn(Stored())), "<NONE> Renamed Delta Echo Foxtrot");
    CopyText(list_.Entries[1].Name, TEXT("Alpha"));
    SetCurrentPrinter(TEXT("No such printer"));
    EditTo(1, rename);
    ExpectMessages({kNotOpened});
    EXPECT_EQ(Narrow(TextIn(list_.Entries[1].Name)), "Renamed");
}

}  // namespace
}  // namespace oemui
