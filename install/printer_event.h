/// What is done when a printer of this driver is installed.
#pragma once

#include <windows.h>

#include <cstddef>

#include "common/text.h"

namespace oemui {

/// Prepares a printer that was just added (PRINTER_EVENT_INITIALIZE): copies a setting into its
/// driver data, keeps the uninstaller from a pending deletion, installs and assigns the print
/// processor. A step that fails is skipped; doing it again changes nothing more. Spooler's thread.
/// \param printerName  shortened in place: the buffer begins with the bare printer name afterwards,
///                     without server and port list. Null does what needs no name.
/// \return E_NOTIMPL always.
HRESULT HandlePrinterEvent(PWSTR printerName, INT event);

/// Writes "EAIDCDisable" into the driver data of a printer.
/// \param shortName  the bare printer name.
bool SetPrinterDriverDataValue(LPCWSTR shortName, DWORD number);

/// Keeps a program from being deleted at the next start of the machine: the ending of its path in
/// the pending file operations is spoilt.
/// \param fileName  name and extension without directory; an empty one matches nothing.
void KeepUninstallerFromDeletion(LPCWSTR fileName);

/// The same on the value's characters: pairs of texts, a deletion being a pair whose second text is
/// empty. In every deletion of the file the third character from the path's end becomes '_'.
/// \param operations  changed in place, never read past its end; a pair that is cut off does not
///                    count.
/// \return whether anything changed.
bool SpoilPendingDeletions(WCHAR* operations, std::size_t length, TextView fileName);

/// Whether the spooler has a print processor of this name, in any case, for the environment it
/// runs in.
bool IsPrintProcessorInstalled(LPCWSTR processorName);

/// Makes a print processor the printer's own, unless it is already.
void AssignPrintProcessor(LPCWSTR shortName, LPCWSTR processorName);

}  // namespace oemui
