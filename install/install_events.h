/// What is done when a printer of this driver is installed, and when the driver is removed.
#pragma once

#include <windows.h>

namespace oemui {

/// Prepares a printer that was just added (PRINTER_EVENT_INITIALIZE): copies a setting into its
/// driver data, keeps the uninstaller from a pending deletion, installs and assigns the print
/// processor. A step that fails is skipped; doing it again changes nothing more. Spooler's thread.
/// \param printerName  shortened in place: the buffer begins with the bare printer name afterwards,
///                     without server and port list. Null does what needs no name.
void HandlePrinterEvent(PWSTR printerName, INT event);

/// Writes "EAIDCDisable" into the driver data of a printer.
/// \param shortName  the bare printer name.
[[nodiscard]] bool SetPrinterDriverDataValue(LPCWSTR shortName, DWORD number);

/// Starts the family's uninstaller when the driver is removed (DRIVER_EVENT_DELETE), and does not
/// wait for it. Spooler's thread.
void HandleDriverEvent(DWORD event);

}  // namespace oemui
