#include <climits>

#include "tests/wmeditor/editor_fixture.h"
#include "wmeditor/choice_lists.h"

namespace oemui {
namespace {

using tests::Narrow;

class EditorSettings : public tests::EditorTest {};

const std::vector<int> kSettings = {
    IDC_NAME,   IDC_TEXT,  IDC_TYPEFACE, IDC_POINT_SIZE, IDC_BOLD,           IDC_POINT_SIZE_SPIN,
    IDC_ITALIC, IDC_ANGLE, IDC_COLOR,    IDC_CENTER,     IDC_SETTINGS_GROUP, IDC_USER_POSITION,
    IDC_DELETE};
const std::vector<int> kUserAngle = {IDC_USER_ANGLE, IDC_USER_ANGLE_SPIN, IDC_USER_ANGLE_LABEL};
const std::vector<int> kOffsets = {IDC_HORIZONTAL, IDC_HORIZONTAL_SPIN, IDC_VERTICAL,
                                   IDC_VERTICAL_SPIN};

TEST_F(EditorSettings, AnEntryIsShownInEveryControl) {
    WatermarkRecord& entry = list_.Entries[1];
    CopyText(entry.Text, TEXT("print"));
    entry.Bold = 7;
    entry.PointSize = 48;
    entry.ColorIndex = 4;
    entry.AngleKind = StoredValue(AngleKind::kUserDefine);
    entry.AngleDegrees = -30;
    entry.PositionKind = StoredValue(PositionKind::kUserSetting);
    entry.OffsetX = -12;
    entry.OffsetY = 999;
    const std::pair<int, const char*> shown[] = {
        {IDC_WATERMARK_LIST, "Alpha"}, {IDC_NAME, "Alpha"},     {IDC_TEXT, "print"},
        {IDC_POINT_SIZE, "48"},        {IDC_COLOR, "Red"},      {IDC_ANGLE, "User Define"},
        {IDC_USER_ANGLE, "-30"},       {IDC_HORIZONTAL, "-12"}, {IDC_VERTICAL, "999"}};
    EditTo(0, [&] {
        for (const auto& [control, text] : shown) EXPECT_EQ(TextOf(control), text) << control;
        for (const int button : {IDC_BOLD, IDC_USER_POSITION}) EXPECT_TRUE(IsChecked(button));
        for (const int button : {IDC_ITALIC, IDC_CENTER}) EXPECT_FALSE(IsChecked(button));
        for (const auto& controls : {kSettings, kUserAngle, kOffsets})
            EXPECT_EQ(EnabledAmong(controls), controls);
        EXPECT_EQ(Preview().Red, 255);
    });
}

TEST_F(EditorSettings, EntryZeroCannotBeChanged) {
    list_.Selected = 0;
    Edit([this] {
        for (const auto& controls : {kSettings, kUserAngle, kOffsets})
            EXPECT_TRUE(EnabledAmong(controls).empty());
        EXPECT_TRUE(user_.Choose(IDC_WATERMARK_LIST, TEXT("Delta")));
        EXPECT_EQ(TextOf(IDC_NAME), "Delta");
        EXPECT_EQ(EnabledAmong(kSettings), kSettings);
        EXPECT_TRUE(user_.Choose(IDC_WATERMARK_LIST, TEXT("<NONE>")));
        EXPECT_TRUE(EnabledAmong(kSettings).empty());
    });
}

TEST_F(EditorSettings, ShowingAnEntryBringsItsOwnAngleIntoRange) {
    list_.Entries[1].AngleKind = StoredValue(AngleKind::kVertical);
    list_.Entries[1].AngleDegrees = 30;
    list_.Entries[2].AngleDegrees = 400;
    list_.Entries[3].AngleKind = 77;
    list_.Entries[3].AngleDegrees = INT_MIN;
    Edit([this] {
        EXPECT_EQ(Edited().AngleDegrees, 30);
        EXPECT_EQ(Preview().AngleDegrees, 30);
        user_.Choose(IDC_WATERMARK_LIST, TEXT("Delta"));
        EXPECT_EQ(Preview().AngleDegrees, 180);
        user_.Choose(IDC_WATERMARK_LIST, TEXT("Echo"));
        EXPECT_EQ(Edited().AngleDegrees, -180);
        EXPECT_EQ(Send(IDC_ANGLE, CB_GETCURSEL), -1);
        EXPECT_TRUE(EnabledAmong(kUserAngle).empty());
    });
}

TEST_F(EditorSettings, TheAngleIsHeldBackAtOnce) {
    list_.Entries[1].AngleKind = StoredValue(AngleKind::kUserDefine);
    Edit([this] {
        user_.TypeText(IDC_USER_ANGLE, TEXT("250"));
        EXPECT_EQ(TextOf(IDC_USER_ANGLE), "180");
        EXPECT_EQ(Edited().AngleDegrees, 180);
        user_.TypeText(IDC_USER_ANGLE, TEXT("-181"));
        EXPECT_EQ(TextOf(IDC_USER_ANGLE), "-180");
        EXPECT_EQ(Preview().AngleDegrees, -180);
        user_.TypeText(IDC_USER_ANGLE, TEXT("1234"));
        EXPECT_EQ(TextOf(IDC_USER_ANGLE), "123") << "three characters above zero";
        user_.StepUpDown(IDC_USER_ANGLE_SPIN, -2);
        EXPECT_EQ(Edited().AngleDegrees, 121);
        user_.TypeText(IDC_USER_ANGLE, TEXT(""));
        EXPECT_EQ(Preview().AngleDegrees, 0);
    });
}

TEST_F(EditorSettings, TheUserAngleStartsFromTheLastPresetOfTheProcess) {
    list_.Entries[1].AngleDegrees = 30;
    Edit([this] {
        user_.Choose(IDC_ANGLE, TEXT("User Define"));
        EXPECT_EQ(TextOf(IDC_USER_ANGLE), "0");
        user_.Choose(IDC_ANGLE, TEXT("Diagonal"));
        EXPECT_EQ(Edited().AngleDegrees, static_cast<INT32>(DiagonalAngleDegrees()));
        EXPECT_TRUE(EnabledAmong(kUserAngle).empty());
        user_.Choose(IDC_ANGLE, TEXT("User Define"));
        EXPECT_EQ(TextOf(IDC_USER_ANGLE), "45");
        EXPECT_EQ(Edited().AngleKind, StoredValue(AngleKind::kUserDefine));
        EXPECT_EQ(EnabledAmong(kUserAngle), kUserAngle);
        user_.Choose(IDC_ANGLE, TEXT("Vertical"));
        EXPECT_EQ(Preview().AngleDegrees, 90);
        EXPECT_EQ(Preview().AngleKind, StoredValue(AngleKind::kHorizontal))
            << "as the entry was shown";
    });
    // In the next opening it takes no more than a look at the list.
    list_.Entries[1].AngleKind = StoredValue(AngleKind::kUserDefine);
    Edit([this] {
        EXPECT_EQ(TextOf(IDC_USER_ANGLE), "30");
        user_.Choose(IDC_ANGLE, TEXT("User Define"));
        EXPECT_EQ(TextOf(IDC_USER_ANGLE), "90");
        user_.Choose(IDC_ANGLE, TEXT("Horizontal"));  // as a module starts that was just loaded
    });
}

TEST_F(EditorSettings, TheSizeIsHeldBackWhenTheFocusLeaves) {
    Edit([this] {
        user_.TypeText(IDC_POINT_SIZE, TEXT("5"));
        EXPECT_EQ(Preview().PointSize, 5);
        user_.Click(IDC_BOLD);
        EXPECT_EQ(TextOf(IDC_POINT_SIZE), "8");
        EXPECT_EQ(Preview().PointSize, 8);
        user_.TypeText(IDC_POINT_SIZE, TEXT("9999"));
        EXPECT_EQ(Edited().PointSize, 999) << "three digits at most";
        user_.Click(IDC_ITALIC);
        EXPECT_EQ(Edited().PointSize, 200);
        user_.TypeText(IDC_POINT_SIZE, TEXT("-x"));
        EXPECT_EQ(TextOf(IDC_POINT_SIZE), "200") << "digits only";
        user_.StepUpDown(IDC_POINT_SIZE_SPIN, -1);
        EXPECT_EQ(Preview().PointSize, 199);
    });
}

TEST_F(EditorSettings, NamesAndTextsHaveTheirLimits) {
    Edit([this] {
        user_.TypeText(IDC_NAME, tests::Text(25, TEXT('n')));
        EXPECT_EQ(Narrow(TextIn(Edited().Name)), std::string(20, 'n'));
        user_.TypeText(IDC_TEXT, tests::Text(70, TEXT('t')));
        EXPECT_EQ(TextOf(IDC_TEXT), std::string(64, 't'));
        EXPECT_EQ(Narrow(TextIn(Preview().Text)), std::string(63, 't'));
        user_.TypeText(IDC_TEXT, TEXT(""));
        EXPECT_EQ(Preview().Text[0], 0);
    });
}

TEST_F(EditorSettings, StyleColourAndTypefaceReachBothRecords) {
    Edit([this] {
        user_.Click(IDC_BOLD);
        user_.Click(IDC_ITALIC);
        user_.Click(IDC_BOLD);
        user_.Choose(IDC_COLOR, TEXT("Magenta"));
        EXPECT_GT(Send(IDC_TYPEFACE, CB_GETCOUNT), 0) << "no family of the system";
        ::SendDlgItemMessageW(user_.Dialog(), IDC_TYPEFACE, CB_ADDSTRING, 0,
                              reinterpret_cast<LPARAM>(TEXT("Zzz Face")));
        user_.Choose(IDC_TYPEFACE, TEXT("Zzz Face"));
        for (const WatermarkRecord* record : {&Edited(), &Preview()}) {
            EXPECT_EQ(record->Bold, 0);
            EXPECT_EQ(record->Italic, 1);
            EXPECT_EQ(record->ColorIndex, 2u);
            EXPECT_EQ(record->Blue, 255);
            EXPECT_EQ(Narrow(TextIn(record->FaceName)), "Zzz Face");
        }
    });
}

TEST_F(EditorSettings, OnlyFamiliesThatScaleOrBelongToTheDeviceAreListed) {
    struct Row {
        DWORD type;
        int pitchAndFamily;
        bool listed;
    };
    constexpr Row kFamilies[] = {{TRUETYPE_FONTTYPE, 0, true},
                                 {DEVICE_FONTTYPE, 0x50, true},
                                 {RASTER_FONTTYPE, 3, false},
                                 {5, 0, true},
                                 {0, 2, true},
                                 {0, 0x52, false}};
    Edit([this, &kFamilies] {
        for (const Row& row : kFamilies) {
            LOGFONTW font{};
            CopyText(font.lfFaceName, TEXT("Probe"));
            TEXTMETRICW metrics{};
            metrics.tmPitchAndFamily = static_cast<BYTE>(row.pitchAndFamily);
            const LRESULT before = Send(IDC_TYPEFACE, CB_GETCOUNT);
            EXPECT_EQ(AddFontFamilyToList(&font, &metrics, row.type,
                                          reinterpret_cast<LPARAM>(user_.Dialog())),
                      1);
            EXPECT_EQ(Send(IDC_TYPEFACE, CB_GETCOUNT) - before, row.listed ? 1 : 0)
                << row.type << " " << row.pitchAndFamily;
        }
    });
}

TEST_F(EditorSettings, OffsetsFollowThePosition) {
    Edit([this] {
        EXPECT_TRUE(EnabledAmong(kOffsets).empty());
        user_.Click(IDC_USER_POSITION);
        EXPECT_EQ(EnabledAmong(kOffsets), kOffsets);
        EXPECT_FALSE(IsChecked(IDC_CENTER));
        user_.TypeText(IDC_HORIZONTAL, TEXT("-99"));
        user_.StepUpDown(IDC_HORIZONTAL_SPIN, 3);
        user_.TypeText(IDC_VERTICAL, TEXT("1234"));
        EXPECT_EQ(Preview().OffsetX, -96);
        EXPECT_EQ(Edited().OffsetY, 123);
        EXPECT_EQ(Edited().PositionKind, StoredValue(PositionKind::kUserSetting));
        user_.Click(IDC_CENTER);
        EXPECT_EQ(TextOf(IDC_HORIZONTAL), "0");
        EXPECT_EQ(Preview().OffsetX, 0);
        EXPECT_EQ(Edited().OffsetY, 0);
        EXPECT_EQ(Edited().PositionKind, StoredValue(PositionKind::kCenter));
    });
}

TEST_F(EditorSettings, ThePageStandsInTheMiddleOfTheArea) {
    const auto place = [this](int controlId) {
        RECT rect{};
        ::GetWindowRect(::GetDlgItem(user_.Dialog(), controlId), &rect);
        return rect;
    };
    for (const UINT32 orientation : {1u, 2u}) {
        list_.Orientation = orientation;
        Edit([&] {
            const RECT area = place(IDC_PREVIEW_AREA);
            const RECT page = place(IDC_PREVIEW_PAGE);
            EXPECT_EQ(page.right - page.left, orientation == 2 ? 163 : 115);
            EXPECT_EQ(page.bottom - page.top, orientation == 2 ? 115 : 163);
            EXPECT_NEAR(page.left + page.right, area.left + area.right, 3);
            EXPECT_NEAR(page.top + page.bottom, area.top + area.bottom, 3);
        });
    }
}

TEST_F(EditorSettings, AnyListOpens) {
    struct Row {
        int byte;
        INT32 count;
    };
    for (const Row& row :
         {Row{0x00, 0}, Row{0x7F, 17}, Row{0x80, 1}, Row{0xD8, 16}, Row{0xFF, -1}}) {
        std::memset(static_cast<void*>(&list_), row.byte, sizeof list_);
        list_.Count = list_.Selected = row.count;
        PreviewPaperSize = {row.byte, INT_MAX};
        const WatermarkList before = list_;
        EditTo(0, [this] {
            EXPECT_EQ(Session().CurrentIndex(), 0);
            EXPECT_TRUE(EnabledAmong(kSettings).empty());
            SendCommand(IDC_WATERMARK_LIST);
        });
        EXPECT_EQ(std::memcmp(&before, &list_, sizeof list_), 0);
    }
}

}  // namespace
}  // namespace oemui
