/// One watermark and a printer's list of them: the layouts that memory, the printer's data and
/// every devmode share.
#pragma once

#include <span>

#include "common/fixed_text.h"
#include "watermark/watermark_limits.h"

namespace oemui {

/// Values of `WatermarkRecord::PositionKind`.
enum class PositionKind : UINT32 { kCenter, kUserSetting };

/// Values of `WatermarkList::Orientation`; any other value draws the page as the paper is.
enum class PageOrientation : UINT32 { kPortrait = 1, kLandscape = 2 };

/// The number under which a record keeps a choice.
template <typename Choice>
[[nodiscard]] constexpr UINT32 StoredValue(Choice choice) {
    return static_cast<UINT32>(choice);
}

/// One watermark. Little-endian; texts are UTF-16, terminated inside their array. The ranges are
/// the editor's: a record from outside may hold anything.
struct WatermarkRecord {
    UINT32 Index;  ///< position in the list, from 0
    UINT32 InUse;  ///< 1 = the slot holds a watermark
    WCHAR Name[kNameCapacity];
    WCHAR Text[kTextCapacity];  ///< what is printed
    WCHAR FaceName[kFaceNameCapacity];
    INT32 PointSize;  ///< points, 8..200
    BYTE Bold;        ///< nonzero = bold
    BYTE Italic;
    BYTE Red;  ///< colour of the text, 0..255 each
    BYTE Green;
    BYTE Blue;
    BYTE Padding[3];
    UINT32 AngleKind;     ///< one of `AngleKind`, in watermark_angle.h
    INT32 AngleDegrees;   ///< -180..180, counter-clockwise
    UINT32 PositionKind;  ///< centred, or by the offsets
    INT32 OffsetX;        ///< points (1/72 inch) from the page's centre, -999..999
    INT32 OffsetY;
    UINT32 ColorIndex;  ///< one of the seven named colours, 0..6
};
static_assert(sizeof(WatermarkRecord) == 300);
static_assert(offsetof(WatermarkRecord, Text) == 72);
static_assert(offsetof(WatermarkRecord, FaceName) == 200);
static_assert(offsetof(WatermarkRecord, PointSize) == 264);
static_assert(offsetof(WatermarkRecord, AngleKind) == 276);
static_assert(offsetof(WatermarkRecord, ColorIndex) == 296);

/// A printer's watermarks. Entry 0 stands for no watermark; entries 0..Count-1 are the list.
struct WatermarkList {
    UINT32 NoneSelected;  ///< 1 when last saved by the editor with entry 0 selected
    INT32 Count;          ///< 0..16
    INT32 Selected;       ///< 0..Count-1
    UINT32 Orientation;   ///< of the previewed page: 1 portrait, 2 landscape
    WatermarkRecord Entries[kWatermarkCapacity];
};
static_assert(sizeof(WatermarkList) == 4816);
static_assert(offsetof(WatermarkList, Entries) == 16);

/// Copies a watermark field by field, each text up to and including its terminator. The padding and
/// the characters behind the terminators of the destination stay as they were; a source text
/// without terminator is cut at its array's end.
void CopyWatermark(WatermarkRecord* destination, const WatermarkRecord& source);

/// Copies the header and the listed entries. Slots behind the source's `Count` stay as they were.
void CopyWatermarkList(WatermarkList* destination, const WatermarkList& source);

/// Whether an index names an entry of the list, whatever the list's header says.
[[nodiscard]] constexpr bool IsListed(const WatermarkList& list, INT32 index) {
    return index >= 0 && index < list.Count && index < kWatermarkCapacity;
}

/// The listed entries, never more than there are slots.
[[nodiscard]] constexpr auto ListedEntries(auto& list) {
    const INT32 count = std::clamp(list.Count, INT32{0}, kWatermarkCapacity);
    return std::span(list.Entries).first(static_cast<std::size_t>(count));
}

/// The index itself when it can index a list's slots, otherwise 0 (no watermark).
[[nodiscard]] constexpr UINT32 UsableWatermarkIndex(UINT32 index) {
    return index < static_cast<UINT32>(kWatermarkCapacity) ? index : 0;
}

}  // namespace oemui
