/// Texts for the property pages, and the driver's items on them.
#pragma once

#include "common/oem_driver_interface.h"
#include "common/text.h"

namespace oemui {

/// Loads a text of a module's string table into a block of the page's heap.
/// \return the text in a block of its own size, terminated; null when the text is missing or empty
///         or the heap is exhausted. It goes with the heap, or with `HeapFree`.
PWSTR LoadItemText(HANDLE heap, HINSTANCE module, UINT textId);

/// Copies a text into a block of the page's heap, terminated; null when the heap is exhausted.
PWSTR CopyToHeap(HANDLE heap, TextView text);

/// The text behind a pointer of the page's records; empty for null.
inline TextView ItemText(LPCWSTR text) {
    return text == nullptr ? TextView() : TextView(text);
}

/// The plug-in's module as the driver hands it to the page.
inline HINSTANCE PageModule(const OEMCUIPPARAM& params) {
    return static_cast<HINSTANCE>(params.hModule);
}

/// The first of the driver's items with this public ID (`DMPUB_...`); null when it has none.
POPTITEM FindDriverItem(const OEMCUIPPARAM& params, BYTE publicId);

/// A choice of an item; null when the item has no such choice.
POPTPARAM FindChoice(const OPTITEM& item, LONG choice);

/// The driver's functions; null when the driver gives none.
POEMUIPROCS DriverFunctions(const OEMCUIPPARAM& params);

/// Tells the driver that the plug-in set an item of the document page to its first choice, if the
/// driver wants to know.
void ReportSelectionToDriver(const OEMCUIPPARAM& params, POPTITEM item);

}  // namespace oemui
