/// One watermark and a printer's list of them: the layouts that memory, the printer's data and
/// every devmode share.
#pragma once

#include "common/text.h"

namespace oemui {

/// Values of `WatermarkRecord::AngleKind`.
inline constexpr UINT32 kAngleHorizontal = 0;
inline constexpr UINT32 kAngleDiagonal = 1;
inline constexpr UINT32 kAngleVertical = 2;
inline constexpr UINT32 kAngleUserDefine = 3;

/// Values of `WatermarkRecord::PositionKind`.
inline constexpr UINT32 kPositionCenter = 0;
inline constexpr UINT32 kPositionUserSetting = 1;

/// One watermark. Little-endian; texts are UTF-16, terminated inside their array. The ranges are
/// the editor's: a record from outside may hold anything.
struct WatermarkRecord {
    UINT32 Index;  ///< position in the list, from 0
    UINT32 InUse;  ///< 1 = the slot holds a watermark
    WCHAR Name[32];
    WCHAR Text[64];  ///< what is printed
    WCHAR FaceName[32];
    INT32 PointSize;  ///< points, 8..200
    BYTE Bold;        ///< nonzero = bold
    BYTE Italic;
    BYTE Red;  ///< colour of the text, 0..255 each
    BYTE Green;
    BYTE Blue;
    BYTE Padding[3];
    UINT32 AngleKind;
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

/// Entries that a list holds at most.
inline constexpr INT32 kWatermarkCapacity = 16;

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

/// Terminates every text of the record inside its array; a terminated record is not changed.
void TerminateTexts(WatermarkRecord* record);

/// Makes a list from outside safe to index and to read: a `Selected` outside the list becomes 0,
/// every text is terminated. A well-formed list stays as it is, byte for byte.
/// \return false, with the whole list cleared, when `Count` lies outside 0..16.
bool SanitizeWatermarkList(WatermarkList* list);

/// The index itself when it can index a list's slots, otherwise 0 (no watermark).
constexpr UINT32 UsableWatermarkIndex(UINT32 index) {
    return index < static_cast<UINT32>(kWatermarkCapacity) ? index : 0;
}

}  // namespace oemui
