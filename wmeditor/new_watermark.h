/// A watermark that is being added: how it starts, the name proposed for it, and what is refused.
#pragma once

#include "wmeditor/editor_session.h"

namespace oemui {

/// New: shows the settings of entry 0 under a name of their own, to be added at OK. Refused, with a
/// message, when the list is full.
void StartNewWatermark(EditorSession& session);

/// Proposes "Watermark - #" and the smallest number from 1 that no entry but entry 0 uses.
[[nodiscard]] FixedText<kNameCapacity> DefaultWatermarkName(const WatermarkList& list);

/// Whether the record may be added to the list: a name other than entry 0's, and neither name nor
/// text blank. Tells the user what is wrong.
[[nodiscard]] bool ValidateNewWatermark(const WatermarkList& list, const WatermarkRecord& record);

/// Whether the text is empty or made of spaces (U+0020) only.
[[nodiscard]] bool IsBlankText(TextView text);

}  // namespace oemui
