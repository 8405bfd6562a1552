#include "wmeditor/watermark_list_editing.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <utility>

#include "resources/resource_ids.h"

namespace oemui {
namespace {

struct NamedColor {
    BYTE red;
    BYTE green;
    BYTE blue;
};

/// By `ColorIndex`.
constexpr std::array<NamedColor, 7> kColors = {{
    {0, 0, 0},      // black
    {0, 255, 255},  // cyan
    {255, 0, 255},  // magenta
    {255, 255, 0},  // yellow
    {255, 0, 0},    // red
    {0, 255, 0},    // green
    {0, 0, 255},    // blue
}};

/// A terminated copy of a record's text, for the platform's comparisons.
class TerminatedText {
public:
    explicit TerminatedText(TextView text) { CopyText(text_, text); }
    LPCWSTR Get() const { return text_; }

private:
    WCHAR text_[std::size(WatermarkRecord{}.Text) + 1];
};

bool SameText(TextView left, TextView right) {
    return ::lstrcmpW(TerminatedText(left).Get(), TerminatedText(right).Get()) == 0;
}

bool StandsBefore(const WatermarkRecord& left, const WatermarkRecord& right) {
    return ::lstrcmpiW(TerminatedText(TextIn(left.Name)).Get(),
                       TerminatedText(TextIn(right.Name)).Get()) < 0;
}

INT32 ListedCount(const WatermarkList& list) {
    return std::clamp(list.Count, 0, kWatermarkCapacity);
}

/// The number of the first entry in use; the count when there is none.
INT32 FirstInUse(const WatermarkList& list, INT32 count) {
    const WatermarkRecord* const end = list.Entries + count;
    const auto inUse = [](const WatermarkRecord& entry) { return entry.InUse == 1; };
    return static_cast<INT32>(std::find_if(list.Entries, end, inUse) - list.Entries);
}

bool NameIsTaken(const WatermarkList& list, TextView name) {
    const INT32 count = ListedCount(list);
    return std::any_of(list.Entries + std::min(count, 1), list.Entries + count,
                       [name](const WatermarkRecord& entry) { return TextIn(entry.Name) == name; });
}

bool Refuse(UINT textId) {
    ShowMessage(textId, IDS_CAPTION_ERROR, MB_OK);
    return false;
}

}  // namespace

void SortWatermarks(WatermarkList* list) {
    const INT32 count = ListedCount(*list);
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
    const INT32 count = ListedCount(*list);
    if (index < 1 || index >= count) return;
    list->Entries[index].InUse = 0;

    WatermarkList remaining{};
    remaining.Selected = 1;
    for (INT32 slot = 0; slot < count; ++slot) {
        const INT32 next = FirstInUse(*list, count);
        if (next < count) {
            CopyWatermark(&remaining.Entries[slot], list->Entries[next]);
            list->Entries[next].InUse = 0;
            ++remaining.Count;
        }
        remaining.Entries[slot].Index = static_cast<UINT32>(slot);
    }
    *list = remaining;
}

INT32 FindWatermarkByName(const WatermarkList& list, TextView name) {
    for (INT32 i = ListedCount(list) - 1; i >= 0; --i) {
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
    return static_cast<int>(std::count(std::begin(differences), std::end(differences), true));
}

bool ValidateNewWatermark(const WatermarkList& list, const WatermarkRecord& record) {
    const TextView name = TextIn(record.Name);
    if (SameText(name, TextIn(list.Entries[0].Name))) return Refuse(IDS_NONE_NOT_ADDED);
    if (IsBlankText(name)) return Refuse(IDS_NAME_EMPTY);
    if (IsBlankText(TextIn(record.Text))) return Refuse(IDS_TEXT_EMPTY);
    return true;
}

bool IsBlankText(TextView text) {
    return text.find_first_not_of(TEXT(' ')) == TextView::npos;
}

void MakeDefaultWatermarkName(const WatermarkList& list, WCHAR (&name)[32]) {
    const LoadedText<kListTextCapacity> base(IDS_NEW_WATERMARK_NAME);
    WCHAR candidate[2 * kListTextCapacity];
    LONG number = 0;
    do {
        ++number;
        ::wsprintfW(candidate, TEXT("%s - #%ld"), base.c_str(), number);
    } while (NameIsTaken(list, TextIn(candidate)));
    CopyText(name, TextIn(candidate));
}

void SetColorFromIndex(WatermarkRecord* record, UINT32 colorIndex) {
    if (colorIndex >= kColors.size()) return;
    const NamedColor& color = kColors[colorIndex];
    record->Red = color.red;
    record->Green = color.green;
    record->Blue = color.blue;
}

bool ClampPointSize(INT32* size) {
    const INT32 clamped = std::clamp(*size, kMinimumPointSize, kMaximumPointSize);
    return std::exchange(*size, clamped) != clamped;
}

bool CopyWatermarkList(WatermarkList* destination, const WatermarkList* source) {
    if (source == nullptr || destination == nullptr) return false;
    destination->NoneSelected = source->NoneSelected;
    destination->Count = source->Count;
    destination->Selected = source->Selected;
    destination->Orientation = source->Orientation;
    for (INT32 i = 0; i < ListedCount(*source); ++i) {
        CopyWatermark(&destination->Entries[i], source->Entries[i]);
    }
    return true;
}

}  // namespace oemui
