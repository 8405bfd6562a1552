/// What the editor's lists offer: the watermarks, and the typefaces, colours and angles.
#pragma once

#include "watermark/watermark_list.h"

namespace oemui {

/// Fills the watermark list, wide enough for the longest name, and selects an entry.
void FillWatermarkList(HWND dialog, const WatermarkList& list, INT32 selected);

// In the watermark list the number that an item carries names its entry; its position may not,
// for an item that could not be added is missing.

/// Selects the item of an entry; none when it has no item.
void SelectListedWatermark(HWND dialog, INT32 index);

/// Adds an item at the end for an entry that was put into the list at this index, and selects the
/// item at that place.
void AddListedWatermark(HWND dialog, LPCWSTR name, INT32 index);

/// Takes out the item of an entry that was removed from the list.
void RemoveListedWatermark(HWND dialog, INT32 index);

/// Fills the lists that stay the same: typefaces, colours and angles.
void FillFixedLists(HWND dialog);

/// Called once for every font family; adds those that can be scaled or come from the device to the
/// typeface list. \param dialog  the editor's window. \return 1: the enumeration goes on.
int CALLBACK AddFontFamilyToList(const LOGFONTW* font, const TEXTMETRICW* metrics, DWORD fontType,
                                 LPARAM dialog) noexcept;

}  // namespace oemui
