/// The printer's driver as the spooler knows it, and the help file beside it.
#pragma once

#include <windows.h>

#include <winspool.h>

#include "common/heap_block.h"

namespace oemui {

/// Asks the spooler for the driver information of a level (`DRIVER_INFO_2W` for level 2), five
/// times at most.
/// \return the information in a block of the heap; empty when the spooler does not give it.
HeapBlock QueryDriverInfo(HANDLE heap, HANDLE printer, DWORD level);

/// The path of a help file in the driver's directory.
/// \param textId  string ID of the file's name in the module.
/// \return the path, cut at 259 characters, in a block of the page's heap; null when the directory
///         or the name is unknown or the heap is exhausted.
[[nodiscard]] PWSTR BuildHelpFilePath(HANDLE printer, HANDLE heap, HINSTANCE module, UINT textId);

}  // namespace oemui
