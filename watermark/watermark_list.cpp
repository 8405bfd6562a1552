#include "watermark/watermark_list.h"

namespace oemui {

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

void CopyWatermarkList(WatermarkList* destination, const WatermarkList& source) {
    destination->NoneSelected = source.NoneSelected;
    destination->Count = source.Count;
    destination->Selected = source.Selected;
    destination->Orientation = source.Orientation;
    WatermarkRecord* copy = destination->Entries;
    for (const WatermarkRecord& entry : ListedEntries(source)) CopyWatermark(copy++, entry);
}

}  // namespace oemui
