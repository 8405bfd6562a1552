/// Makes watermarks of any content, such as a damaged stored list, safe to index and to read.
#pragma once

#include "watermark/watermark_list.h"

namespace oemui {

/// Terminates every text of the record inside its array; a terminated record is not changed.
void TerminateTexts(WatermarkRecord* record);

/// Makes a list from outside safe and loses none of its entries: a `Count` outside 0..16 becomes
/// the number of slots up to the last one in use, a `Selected` outside the list becomes 0, every
/// text is terminated. Slots behind a `Count` in its range are nobody's and stay as they are. A
/// well-formed list stays as it is, byte for byte.
void SanitizeWatermarkList(WatermarkList* list);

}  // namespace oemui
