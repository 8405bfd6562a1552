#include "platform/spooler/printer_handles.h"

#include <winerror.h>

#include <memory>
#include <utility>

#include "platform/base/handles.h"
#include "platform/spooler/printer_record.h"

namespace platform::spooler {
namespace {

HandleTable<OpenPrinter>& Handles() {
    static HandleTable<OpenPrinter> handles("printer");
    return handles;
}

}  // namespace

HANDLE AddHandle(OpenPrinter printer) {
    return Handles().Insert(std::make_shared<OpenPrinter>(std::move(printer)));
}

bool RemoveHandle(HANDLE handle) {
    return Handles().Remove(handle) != nullptr;
}

DWORD FindHandle(HANDLE handle, DWORD access, OpenPrinter* opened) {
    const auto found = Handles().Find(handle);
    if (!found) return ERROR_INVALID_HANDLE;
    if (!found->name.empty() && (found->access & access) != access) return ERROR_ACCESS_DENIED;
    *opened = *found;
    if (found->name.empty()) return ERROR_SUCCESS;
    const DWORD error = RequirePrinter(found->name);
    return error == ERROR_INVALID_PRINTER_NAME ? ERROR_INVALID_HANDLE : error;  // removed meanwhile
}

DWORD PrinterOfHandle(HANDLE handle, DWORD access, OpenPrinter* printer) {
    const DWORD error = FindHandle(handle, access, printer);
    return error == ERROR_SUCCESS && printer->name.empty() ? ERROR_INVALID_HANDLE : error;
}

}  // namespace platform::spooler
