#include "watermark/watermark_list.h"

namespace oemui {
namespace {

/// A terminated text keeps the characters behind its terminator: stored bytes stay the same.
template <std::size_t Capacity>
void TerminateText(WCHAR (&text)[Capacity]) {
    if (TextIn(text).size() == Capacity) text[Capacity - 1] = 0;
}

}  // namespace

void CopyWatermark(WatermarkRecord* destination, const WatermarkRecord& source) {
    destination->Index = source.Index;
    destination->InUse = source.InUse;
    CopyText(destination->Name, TextIn(source.Name));
    CopyText(destination->Text, TextIn(source.Text));
    CopyText(destination->FaceName, TextIn(source.FaceName));
    destination->PointSize = source.PointSize;
    destination->Bold = source.Bold;
    destination->Italic = source.Italic;
    destination->Red = source.Red;
    destination->Green = source.Green;
    destination->Blue = source.Blue;
    destination->AngleKind = source.AngleKind;
    destination->AngleDegrees = source.AngleDegrees;
    destination->PositionKind = source.PositionKind;
    destination->OffsetX = source.OffsetX;
    destination->OffsetY = source.OffsetY;
    destination->ColorIndex = source.ColorIndex;
}

void TerminateTexts(WatermarkRecord* record) {
    TerminateText(record->Name);
    TerminateText(record->Text);
    TerminateText(record->FaceName);
}

bool SanitizeWatermarkList(WatermarkList* list) {
    if (list->Count < 0 || list->Count > kWatermarkCapacity) {
        *list = {};
        return false;
    }
    if (list->Selected < 0 || list->Selected >= list->Count) list->Selected = 0;
    for (WatermarkRecord& record : list->Entries) TerminateTexts(&record);
    return true;
}

}  // namespace oemui
