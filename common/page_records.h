/// The records of a property page: the driver's items and functions, and the texts in them.
#pragma once

#include "common/oem_driver_interface.h"
#include "common/page_heap.h"
#include "common/text.h"

namespace oemui {

/// The text behind a pointer of the page's records; empty for null, and for the ID of a string of
/// the property sheet's own, which a driver may put in its place.
inline TextView ItemText(LPCWSTR text) {
    return IS_INTRESOURCE(text) ? TextView() : TextView(text);
}

/// The plug-in's module as the driver hands it to the page.
inline HINSTANCE PageModule(const OEMCUIPPARAM& params) {
    return static_cast<HINSTANCE>(params.hModule);
}

/// The first of the driver's items with this public ID (`DMPUB_...`); null when it has none.
[[nodiscard]] POPTITEM FindDriverItem(const OEMCUIPPARAM& params, BYTE publicId);

/// A choice of an item; null when the item has no such choice.
[[nodiscard]] POPTPARAM FindChoice(const OPTITEM& item, LONG choice);

/// The driver's functions; null when the driver gives none. Each of them may be missing.
[[nodiscard]] POEMUIPROCS DriverFunctions(const OEMCUIPPARAM& params);

/// Tells the driver that the plug-in set an item of the document page to its first choice, if the
/// driver wants to know.
void ReportSelectionToDriver(const OEMCUIPPARAM& params, POPTITEM item);

}  // namespace oemui
