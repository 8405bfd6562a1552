/// What the editor's lists offer: the watermarks, and the typefaces, colours and angles.
#pragma once

#include "watermark/watermark_list.h"

namespace oemui {

/// Fills the watermark list, wide enough for the longest name, and selects an entry.
void FillWatermarkList(HWND dialog, const WatermarkList& list, INT32 selected);

/// Fills the lists that stay the same: typefaces, colours and angles.
void FillFixedLists(HWND dialog);

/// Called once for every font family; adds those that can be scaled or come from the device to the
/// typeface list. \param dialog  the editor's window. \return 1: the enumeration goes on.
int CALLBACK AddFontFamilyToList(const LOGFONTW* font, const TEXTMETRICW* metrics, DWORD fontType,
                                 LPARAM dialog) noexcept;

}  // namespace oemui
