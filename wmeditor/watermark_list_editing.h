/// Operations on a list of watermarks in memory: order, insertion, removal, search, comparison.
///
/// Entry 0 stands for no watermark and stays first; entries 1 to `Count` - 1 are kept in name
/// order. No operation reads or writes outside the 16 slots, whatever the list's header says, and
/// no text is read past its array. They know nothing of controls; `ValidateNewWatermark` shows
/// messages.
#pragma once

#include "watermark/watermark_list.h"

namespace oemui {

/// What `FindWatermarkByName` answers when no entry has the name.
inline constexpr INT32 kNoSuchWatermark = 16;

inline constexpr INT32 kMinimumPointSize = 8;
inline constexpr INT32 kMaximumPointSize = 200;
inline constexpr INT32 kLargestUserAngle = 180;  // degrees, to either side
inline constexpr INT32 kVerticalDegrees = 90;    // what the vertical angle stands for

/// Orders entries 1 to `Count` - 1 by name, without regard to case. `Selected` follows its entry
/// when that is the last one.
void SortWatermarks(WatermarkList* list);

/// Appends the record as a new entry, selects it and sorts. Does nothing to a full list.
void InsertNewWatermark(WatermarkList* list, const WatermarkRecord& record);

/// Removes one entry, and with it every entry that is not in use, and closes the gaps. `Selected`
/// becomes 1, `NoneSelected` and `Orientation` 0.
/// \param index  1 to `Count` - 1; any other index removes nothing.
void RemoveWatermark(WatermarkList* list, INT32 index);

/// The last entry, entry 0 included, whose name is exactly this one; `kNoSuchWatermark` without.
INT32 FindWatermarkByName(const WatermarkList& list, TextView name);

/// How many settings differ; 0 when the names differ. Angle kind, position kind and the colour's
/// components are not compared.
int CountWatermarkChanges(const WatermarkRecord& stored, const WatermarkRecord& edited);

/// Whether the record may be added to the list: a name other than entry 0's, and neither name nor
/// text blank. Tells the user what is wrong.
bool ValidateNewWatermark(const WatermarkList& list, const WatermarkRecord& record);

/// Whether the text is empty or made of spaces (U+0020) only.
bool IsBlankText(TextView text);

/// Proposes "Watermark - #" and the smallest number from 1 that no entry but entry 0 uses.
void MakeDefaultWatermarkName(const WatermarkList& list, WCHAR (&name)[32]);

/// Sets the components of one of the seven named colours (0..6); other indices change nothing.
void SetColorFromIndex(WatermarkRecord* record, UINT32 colorIndex);

/// Brings a point size into 8..200. \return whether it had to be changed.
bool ClampPointSize(INT32* size);

/// Copies the header and the listed entries field by field. Slots behind the source's `Count` stay
/// as they were, and so do the characters behind the texts' terminators.
/// \return false without a source or a destination.
bool CopyWatermarkList(WatermarkList* destination, const WatermarkList* source);

}  // namespace oemui
