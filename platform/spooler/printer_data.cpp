// A printer's data: values in the registry, and questions carried to the printer.
#include <winreg.h>
#include <winspool.h>

#include <algorithm>

#include "platform/base/fail.h"
#include "platform/faults/failure_points.h"
#include "platform/spooler/port_monitor.h"
#include "platform/spooler/print_keys.h"
#include "platform/spooler/printer_handles.h"
#include "platform/spooler/printer_record.h"

namespace {

using platform::InjectedFailure;
using platform::spooler::OpenPrinter;
using platform::spooler::PjlRequest;
using platform::spooler::PrintKey;

namespace spooler = platform::spooler;

struct ValueBuffer {
    LPDWORD type;  // may be null
    LPBYTE bytes;
    DWORD size;
    LPDWORD needed;
};

DWORD GiveValue(const platform::RegistryValue& stored, const ValueBuffer& value) {
    *value.needed = static_cast<DWORD>(stored.bytes.size());
    if (value.type != nullptr) *value.type = stored.type;
    if (stored.bytes.size() > value.size) return ERROR_MORE_DATA;
    std::copy(stored.bytes.begin(), stored.bytes.end(), value.bytes);
    return ERROR_SUCCESS;
}

DWORD ReadStoredValue(const OpenPrinter& printer, LPCWSTR name, const ValueBuffer& value) {
    PrintKey key;
    if (const DWORD error = key.Open(spooler::PrinterDataPath(printer.name))) return error;
    platform::RegistryValue stored;
    const DWORD error = key.Read(name, &stored);
    return error != ERROR_SUCCESS ? error : GiveValue(stored, value);
}

DWORD ReadAnswer(const OpenPrinter& printer, const PjlRequest& request, const ValueBuffer& value) {
    if (!request.wantsAnswer) return ERROR_NOT_SUPPORTED;
    spooler::PrinterRecord record;
    if (const DWORD error = spooler::LoadPrinter(printer.name, &record)) return error;
    platform::RegistryValue answer = {REG_BINARY, {}};
    const DWORD error = spooler::AskPrinter(record.port, request, *printer.time, &answer.bytes);
    return error != ERROR_SUCCESS ? error : GiveValue(answer, value);
}

DWORD ReadValue(HANDLE handle, LPCWSTR name, const ValueBuffer& value) {
    if (name == nullptr || value.needed == nullptr || (value.bytes == nullptr && value.size != 0)) {
        return ERROR_INVALID_PARAMETER;
    }
    OpenPrinter printer;
    if (const DWORD error = spooler::FindHandle(handle, 0, &printer)) return error;
    if (printer.name.empty()) return ERROR_FILE_NOT_FOUND;  // the print server has no values here
    if (const auto request = spooler::ParsePjlName(name)) {
        return ReadAnswer(printer, *request, value);
    }
    return ReadStoredValue(printer, name, value);
}

DWORD WriteStoredValue(const OpenPrinter& printer, LPCWSTR name, DWORD type,
                       std::span<const BYTE> bytes) {
    // Only of a printer that is still there: a removed one must not come back with its data.
    PrintKey printerKey;
    const DWORD error = printerKey.Open(spooler::PrinterPath(printer.name));
    if (error != ERROR_SUCCESS) return error == ERROR_FILE_NOT_FOUND ? ERROR_INVALID_HANDLE : error;
    PrintKey key;
    if (const DWORD missing = key.Create(spooler::PrinterDataPath(printer.name))) return missing;
    return key.Write(name, type, bytes);
}

// A question is announced by setting it: its answer is fetched when it is read.
DWORD CarryRequest(const OpenPrinter& printer, const PjlRequest& request) {
    spooler::PrinterRecord record;
    if (const DWORD error = spooler::LoadPrinter(printer.name, &record)) return error;
    if (request.wantsAnswer) return spooler::CheckPrinterPort(record.port);
    return spooler::AskPrinter(record.port, request, *printer.time, nullptr);
}

DWORD WriteValue(HANDLE handle, LPCWSTR name, DWORD type, const BYTE* bytes, DWORD size) {
    if (name == nullptr || *name == u'\0' || (bytes == nullptr && size != 0)) {
        return ERROR_INVALID_PARAMETER;
    }
    OpenPrinter printer;
    if (const DWORD error = spooler::PrinterOfHandle(handle, PRINTER_ACCESS_ADMINISTER, &printer)) {
        return error;
    }
    if (const auto request = spooler::ParsePjlName(name)) return CarryRequest(printer, *request);
    return platform::ChangeAtOnce([&] {
        return WriteStoredValue(printer, name, type, {bytes, size});
    });
}

}  // namespace

DWORD WINAPI GetPrinterDataW(HANDLE printer, LPWSTR name, LPDWORD type, LPBYTE buffer, DWORD size,
                             LPDWORD needed) {
    if (const auto error = InjectedFailure("GetPrinterDataW")) return *error;
    return platform::Contained([&] {
        return ReadValue(printer, name, {type, buffer, size, needed});
    });
}

DWORD WINAPI SetPrinterDataW(HANDLE printer, LPWSTR name, DWORD type, LPBYTE bytes, DWORD size) {
    if (const auto error = InjectedFailure("SetPrinterDataW")) return *error;
    return platform::Contained([&] { return WriteValue(printer, name, type, bytes, size); });
}
