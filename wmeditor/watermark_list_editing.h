/// Operations on a list of watermarks in memory: order, insertion, removal, search, comparison.
///
/// Entry 0 stands for no watermark and stays first; entries 1 to `Count` - 1 are kept in name
/// order. No operation reads or writes outside the 16 slots, whatever the list's header says, and
/// no text is read past its array. They know nothing of controls and show no messages.
#pragma once

#include "watermark/watermark_list.h"

namespace oemui {

/// What `FindWatermarkByName` answers when no entry has the name.
inline constexpr INT32 kNoSuchWatermark = 16;

/// Whether two texts are the same to the platform, case included. Names and settings are compared
/// so; only the order of names disregards case.
[[nodiscard]] bool SameText(TextView left, TextView right);

/// Orders entries 1 to `Count` - 1 by name, without regard to case. `Selected` follows its entry
/// when that is the last one.
void SortWatermarks(WatermarkList* list);

/// Appends the record as a new entry, selects it and sorts. Does nothing to a full list.
void InsertNewWatermark(WatermarkList* list, const WatermarkRecord& record);

/// Removes one entry and closes the gap; all others stay, and are in use. `Selected` becomes 1,
/// `NoneSelected` and `Orientation` 0.
/// \param index  1 to `Count` - 1; any other index removes nothing.
void RemoveWatermark(WatermarkList* list, INT32 index);

/// The last entry, entry 0 included, whose name is exactly this one; `kNoSuchWatermark` without.
[[nodiscard]] INT32 FindWatermarkByName(const WatermarkList& list, TextView name);

/// How many settings differ; 0 when the names differ. Angle kind, position kind and the colour's
/// components are not compared.
[[nodiscard]] int CountWatermarkChanges(const WatermarkRecord& stored,
                                        const WatermarkRecord& edited);

}  // namespace oemui
