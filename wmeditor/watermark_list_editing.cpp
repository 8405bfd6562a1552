#include "wmeditor/watermark_list_editing.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace oemui {
namespace {

/// A terminated copy of a record's text, for the platform's comparisons.
using TerminatedText = FixedText<kTextCapacity + 1>;

bool StandsBefore(const WatermarkRecord& left, const WatermarkRecord& right) {
    return ::lstrcmpiW(TerminatedText(TextIn(left.Name)).c_str(),
                       TerminatedText(TextIn(right.Name)).c_str()) < 0;
}

}  // namespace

bool SameText(TextView left, TextView right) {
    return ::lstrcmpW(TerminatedText(left).c_str(), TerminatedText(right).c_str()) == 0;
}

void SortWatermarks(WatermarkList* list) {
    const auto count = static_cast<INT32>(ListedEntries(*list).size());
    if (count < 2) {
        list->Entries[0].Index = 0;
        return;
    }
    for (INT32 i = 1; i < count - 1; ++i) {
        for (INT32 j = i + 1; j < count; ++j) {
            if (StandsBefore(list->Entries[i], list->Entries[j])) continue;
            // Equal names change places too, so that the entry added last comes first.
            std::swap(list->Entries[i], list->Entries[j]);
            list->Entries[i].Index = static_cast<UINT32>(i);
            if (list->Selected == j) list->Selected = i;
        }
    }
    list->Entries[count - 1].Index = static_cast<UINT32>(count - 1);
}

void InsertNewWatermark(WatermarkList* list, const WatermarkRecord& record) {
    const INT32 slot = list->Count;
    if (slot < 0 || slot >= kWatermarkCapacity) return;
    WatermarkRecord& entry = list->Entries[slot];
    CopyWatermark(&entry, record);
    entry.Index = static_cast<UINT32>(slot);
    entry.InUse = 1;
    list->Selected = slot;
    list->Count = slot + 1;
    SortWatermarks(list);
}

void RemoveWatermark(WatermarkList* list, INT32 index) {
    if (index < 1 || !IsListed(*list, index)) return;
    const auto entries = ListedEntries(*list);
    WatermarkList remaining{};
    remaining.Selected = 1;
    for (const WatermarkRecord& entry : entries) {
        if (&entry == &list->Entries[index]) continue;
        WatermarkRecord& kept = remaining.Entries[remaining.Count++];
        CopyWatermark(&kept, entry);
        kept.InUse = 1;
    }
    for (UINT32 slot = 0; slot < entries.size(); ++slot) remaining.Entries[slot].Index = slot;
    *list = remaining;
}

INT32 FindWatermarkByName(const WatermarkList& list, TextView name) {
    for (auto i = static_cast<INT32>(ListedEntries(list).size()); --i >= 0;) {
        if (SameText(TextIn(list.Entries[i].Name), name)) return i;
    }
    return kNoSuchWatermark;
}

int CountWatermarkChanges(const WatermarkRecord& stored, const WatermarkRecord& edited) {
    if (!SameText(TextIn(stored.Name), TextIn(edited.Name))) return 0;
    const bool differences[] = {
        !SameText(TextIn(stored.Text), TextIn(edited.Text)),
        !SameText(TextIn(stored.FaceName), TextIn(edited.FaceName)),
        stored.PointSize != edited.PointSize,
        stored.Bold != edited.Bold,
        stored.Italic != edited.Italic,
        stored.AngleDegrees != edited.AngleDegrees,
        stored.OffsetX != edited.OffsetX,
        stored.OffsetY != edited.OffsetY,
        stored.ColorIndex != edited.ColorIndex,
    };
    return static_cast<int>(std::ranges::count(differences, true));
}

}  // namespace oemui
