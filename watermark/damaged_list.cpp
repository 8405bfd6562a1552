#include "watermark/damaged_list.h"

namespace oemui {
namespace {

/// A terminated text keeps the characters behind its terminator: stored bytes stay the same.
template <std::size_t Capacity>
void TerminateText(WCHAR (&text)[Capacity]) {
    if (TextIn(text).size() == Capacity) text[Capacity - 1] = 0;
}

INT32 SlotsUpToLastInUse(const WatermarkList& list) {
    INT32 count = kWatermarkCapacity;
    while (count > 0 && list.Entries[count - 1].InUse != 1) --count;
    return count;
}

}  // namespace

void TerminateTexts(WatermarkRecord* record) {
    TerminateText(record->Name);
    TerminateText(record->Text);
    TerminateText(record->FaceName);
}

void SanitizeWatermarkList(WatermarkList* list) {
    if (list->Count < 0 || list->Count > kWatermarkCapacity)
        list->Count = SlotsUpToLastInUse(*list);
    if (!IsListed(*list, list->Selected)) list->Selected = 0;
    for (WatermarkRecord& record : list->Entries) TerminateTexts(&record);
}

}  // namespace oemui
