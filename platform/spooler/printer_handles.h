/// The printers that are open in this process, by handle.
#pragma once

#include <windef.h>

#include <memory>
#include <string>

#include "platform/spooler/port_monitor.h"

namespace platform::spooler {

struct OpenPrinter {
    std::u16string name;  ///< of the printer's key; empty: the machine's print server
    DWORD access;         ///< PRINTER_ACCESS_*
    std::shared_ptr<AnswerTime> time = std::make_shared<AnswerTime>();
};

[[nodiscard]] HANDLE AddHandle(OpenPrinter printer);
[[nodiscard]] bool RemoveHandle(HANDLE handle);

/// What a handle stands for, if it may be used so.
/// \param access  the rights needed, PRINTER_ACCESS_*; 0 for none. The print server needs none.
/// \return ERROR_INVALID_HANDLE or ERROR_ACCESS_DENIED.
[[nodiscard]] DWORD FindHandle(HANDLE handle, DWORD access, OpenPrinter* opened);

/// The same for what only a printer can do: the print server answers ERROR_INVALID_HANDLE.
[[nodiscard]] DWORD PrinterOfHandle(HANDLE handle, DWORD access, OpenPrinter* printer);

}  // namespace platform::spooler
