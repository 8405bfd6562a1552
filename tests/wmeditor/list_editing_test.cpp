#include "wmeditor/watermark_list_editing.h"

#include <algorithm>
#include <cstring>
#include <string>

#include "tests/support/plugin_fixture.h"
#include "tests/wmeditor/editor_lists.h"
#include "wmeditor/new_watermark.h"

namespace oemui {
namespace {

using tests::MakeList;
using tests::MakeWatermark;
using tests::NamesIn;
using tests::Narrow;

class ListEditing : public tests::PluginTest {};

TEST_F(ListEditing, SortOrdersAllButEntryZeroAndFollowsTheLastEntry) {
    WatermarkList list = MakeList({TEXT("<NONE>"), TEXT("delta"), TEXT("Alpha"), TEXT("Charlie")});
    list.Selected = 3;
    SortWatermarks(&list);
    EXPECT_EQ(Narrow(NamesIn(list)), "<NONE> Alpha Charlie delta");
    EXPECT_EQ(list.Selected, 2);

    // An exchanged entry keeps its index until it moves again: "c" stood in the middle.
    list = MakeList({TEXT("0"), TEXT("c"), TEXT("d"), TEXT("b"), TEXT("a")});
    SortWatermarks(&list);
    EXPECT_EQ(Narrow(NamesIn(list)), "0 a b c d");
    EXPECT_EQ(list.Entries[2].Index, 2u);
    EXPECT_EQ(list.Entries[4].Index, 4u);

    list = MakeList({TEXT("zero"), TEXT("same"), TEXT("SAME")});  // equal names change places
    list.Selected = 2;
    SortWatermarks(&list);
    EXPECT_EQ(Narrow(NamesIn(list)), "zero SAME same");
    EXPECT_EQ(list.Selected, 1);
}

TEST_F(ListEditing, InsertionSelectsTheNewEntryInItsPlace) {
    WatermarkList list = MakeList({TEXT("<NONE>"), TEXT("Alpha"), TEXT("Charlie")});
    WatermarkRecord bravo = MakeWatermark(TEXT("Bravo"), TEXT("text"));
    InsertNewWatermark(&list, bravo);
    EXPECT_EQ(Narrow(NamesIn(list)), "<NONE> Alpha Bravo Charlie");
    EXPECT_EQ(list.Selected, 2);
    while (list.Count < kWatermarkCapacity) InsertNewWatermark(&list, bravo);
    const WatermarkList full = list;
    InsertNewWatermark(&list, bravo);
    EXPECT_EQ(std::memcmp(&list, &full, sizeof list), 0);
}

TEST_F(ListEditing, RemovalClosesTheGapAndClearsTheRest) {
    WatermarkList list = MakeList({TEXT("<NONE>"), TEXT("A"), TEXT("B"), TEXT("C")});
    list.Selected = 3;
    list.NoneSelected = 1;
    list.Entries[0].InUse = list.Entries[3].InUse = 0;
    for (const INT32 index : {-1, 0, 4, 16}) {
        RemoveWatermark(&list, index);
        EXPECT_EQ(list.Count, 4) << index;
    }
    RemoveWatermark(&list, 2);
    EXPECT_EQ(Narrow(NamesIn(list)), "<NONE> A C");
    EXPECT_EQ(list.Selected, 1);
    EXPECT_EQ(list.NoneSelected, 0u);
    EXPECT_EQ(list.Orientation, 0u);
    for (UINT32 i = 0; i < 4; ++i) {
        EXPECT_EQ(list.Entries[i].Index, i);
        EXPECT_EQ(list.Entries[i].InUse, i < 3 ? 1u : 0u);
    }
    WatermarkRecord cleared{};
    cleared.Index = 3;
    EXPECT_EQ(std::memcmp(&list.Entries[3], &cleared, sizeof cleared), 0);
}

TEST_F(ListEditing, NamesAreFoundExactlyAndTheLastOneWins) {
    const WatermarkList list = MakeList({TEXT("none"), TEXT("ABC"), TEXT("abc"), TEXT("abc")});
    EXPECT_EQ(FindWatermarkByName(list, TEXT("abc")), 3);
    EXPECT_EQ(FindWatermarkByName(list, TEXT("ABC")), 1);
    EXPECT_EQ(FindWatermarkByName(list, TEXT("Abc")), 16);
}

TEST_F(ListEditing, ChangesAreCountedOnlyUnderOneName) {
    const WatermarkRecord stored = MakeWatermark(TEXT("A"), TEXT("text"));
    WatermarkRecord edited = stored;
    edited.AngleKind = edited.PositionKind = edited.Index = edited.InUse = edited.Red = 9;
    EXPECT_EQ(CountWatermarkChanges(stored, edited), 0);
    edited.PointSize = 48;
    EXPECT_EQ(CountWatermarkChanges(stored, edited), 1);
    CopyText(edited.Text, TEXT("Text"));
    CopyText(edited.FaceName, TEXT("Other"));
    edited.Bold = edited.Italic = 1;
    edited.AngleDegrees = edited.OffsetX = edited.OffsetY = 1;
    edited.ColorIndex = 1;
    EXPECT_EQ(CountWatermarkChanges(stored, edited), 9);
    CopyText(edited.Name, TEXT("a"));
    EXPECT_EQ(CountWatermarkChanges(stored, edited), 0);
}

TEST_F(ListEditing, OnlySpacesAreBlank) {
    EXPECT_TRUE(IsBlankText(TEXT("   ")));
    EXPECT_FALSE(IsBlankText(TEXT("\t")));
    EXPECT_FALSE(IsBlankText(TEXT("  x ")));
}

TEST_F(ListEditing, DefaultNameTakesTheSmallestFreeNumber) {
    const auto proposal = [](const WatermarkList& list) {
        return Narrow(DefaultWatermarkName(list).View());
    };
    EXPECT_EQ(proposal(MakeList({TEXT("Watermark - #1")})), "Watermark - #1");
    EXPECT_EQ(proposal(MakeList({TEXT("0"), TEXT("Watermark - #2"), TEXT("Watermark - #1")})),
              "Watermark - #3");
}

TEST_F(ListEditing, CopyTouchesNothingBehindTheList) {
    WatermarkList source = MakeList({TEXT("0"), TEXT("A")});
    source.Selected = 1;
    source.Entries[1].OffsetY = -999;
    WatermarkList destination;
    std::memset(static_cast<void*>(&destination), 0x5A, sizeof destination);
    CopyWatermarkList(&destination, source);
    EXPECT_EQ(destination.Selected, 1);
    EXPECT_EQ(Narrow(NamesIn(destination)), "0 A");
    EXPECT_EQ(destination.Entries[1].OffsetY, -999);
    EXPECT_EQ(destination.Entries[1].Name[2], 0x5A5A) << "behind the terminator";
    EXPECT_EQ(destination.Entries[2].PointSize, 0x5A5A5A5A);
}

TEST_F(ListEditing, ListsFromOutsideStayInsideTheirSlots) {
    for (const INT32 count : {INT_MIN, -1, 0, 1, 17, INT_MAX}) {
        WatermarkList list;
        std::memset(static_cast<void*>(&list), 0x41, sizeof list);  // no text is terminated
        list.Count = list.Selected = count;
        EXPECT_EQ(Narrow(DefaultWatermarkName(list).View()), "Watermark - #1");
        EXPECT_EQ(FindWatermarkByName(list, TEXT("x")), 16);
        EXPECT_EQ(CountWatermarkChanges(list.Entries[0], list.Entries[15]), 0);
        SortWatermarks(&list);
        InsertNewWatermark(&list, list.Entries[3]);
        RemoveWatermark(&list, 1);
        WatermarkList copy{};
        CopyWatermarkList(&copy, list);
        EXPECT_EQ(copy.Entries[0].Name[31], 0);
    }
}

}  // namespace
}  // namespace oemui
