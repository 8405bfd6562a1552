/// Makes watermarks of any content, such as a damaged stored list, safe to index and to read.
#pragma once

#include "watermark/watermark_list.h"

namespace oemui {

/// Terminates every text of the record inside its array; a terminated record is not changed.
void TerminateTexts(WatermarkRecord* record);

/// Makes a list from outside safe: a `Selected` outside the list becomes 0, every text is
/// terminated. A well-formed list stays as it is, byte for byte.
/// \return false, with the whole list cleared, when `Count` lies outside 0..16.
[[nodiscard]] bool SanitizeWatermarkList(WatermarkList* list);

}  // namespace oemui
