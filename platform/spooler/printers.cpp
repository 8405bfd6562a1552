// Opening, reading, writing, adding and removing printers.
#include <winspool.h>

#include "platform/base/fail.h"
#include "platform/faults/failure_points.h"
#include "platform/spooler/drivers.h"
#include "platform/spooler/print_keys.h"
#include "platform/spooler/print_processors.h"
#include "platform/spooler/printer_handles.h"
#include "platform/spooler/printer_record.h"
#include "platform/spooler/record_buffer.h"
#include "platform/text/letter_case.h"

namespace {

using platform::Answer;
using platform::Fail;
using platform::InjectedFailure;
using platform::spooler::CallerBuffer;
using platform::spooler::OpenPrinter;
using platform::spooler::PrinterRecord;
using platform::spooler::PrintKey;

namespace spooler = platform::spooler;

// Without a name the machine's print server is opened, which has the forms.
DWORD Open(LPCWSTR given, DWORD access, HANDLE* printer) {
    std::u16string name;
    if (given != nullptr) {
        name = spooler::ShortPrinterName(given);
        if (name.empty()) return ERROR_INVALID_PRINTER_NAME;
        if (const DWORD error = spooler::RequirePrinter(name)) return error;
    }
    *printer = spooler::AddHandle({std::move(name), access});
    return ERROR_SUCCESS;
}

DWORD LoadOpenPrinter(HANDLE handle, DWORD access, PrinterRecord* printer) {
    OpenPrinter open;
    if (const DWORD error = spooler::PrinterOfHandle(handle, access, &open)) return error;
    const DWORD error = spooler::LoadPrinter(open.name, printer);
    // Removed since it was opened.
    return error == ERROR_INVALID_PRINTER_NAME ? ERROR_INVALID_HANDLE : error;
}

// What a printer must have before it is stored.
DWORD CheckPrinter(const PrinterRecord& printer) {
    if (printer.port.empty()) return ERROR_UNKNOWN_PORT;
    bool known = false;
    if (const DWORD error = spooler::IsDriver(printer.driver, &known)) return error;
    if (!known) return ERROR_UNKNOWN_PRINTER_DRIVER;
    if (const DWORD error = spooler::IsPrintProcessor(printer.processor, &known)) return error;
    return known ? ERROR_SUCCESS : ERROR_UNKNOWN_PRINTPROCESSOR;
}

DWORD SetOpenPrinter(HANDLE handle, const PRINTER_INFO_2W& info) {
    PrinterRecord printer;
    if (const DWORD error = LoadOpenPrinter(handle, PRINTER_ACCESS_ADMINISTER, &printer)) {
        return error;
    }
    const std::u16string name = printer.name;
    if (const DWORD error = spooler::UnpackPrinter(info, &printer)) return error;
    if (!platform::EqualIgnoringUnicodeCase(name, printer.name)) return ERROR_INVALID_PRINTER_NAME;
    printer.name = name;
    if (const DWORD error = CheckPrinter(printer)) return error;
    return spooler::StorePrinter(printer);
}

// As one change: dying in between leaves no half printer, and nobody takes the driver away
// meanwhile.
DWORD AddPrinterKeys(const PrinterRecord& printer) {
    return platform::ChangeAtOnce([&printer] {
        PrintKey key;
        bool created = false;
        DWORD error = CheckPrinter(printer);
        if (error == ERROR_SUCCESS)
            error = key.Create(spooler::PrinterPath(printer.name), &created);
        if (error == ERROR_SUCCESS && !created) return DWORD{ERROR_PRINTER_ALREADY_EXISTS};
        if (error == ERROR_SUCCESS) error = spooler::StorePrinter(printer);
        PrintKey printerData;
        if (error != ERROR_SUCCESS) return error;
        return printerData.Create(spooler::PrinterDataPath(printer.name));
    });
}

DWORD Add(LPCWSTR server, DWORD level, const PRINTER_INFO_2W* info, HANDLE* handle) {
    if (level != 2) return ERROR_INVALID_LEVEL;
    if (server != nullptr || info == nullptr) return ERROR_INVALID_PARAMETER;
    PrinterRecord printer;
    if (const DWORD error = spooler::UnpackPrinter(*info, &printer)) return error;
    if (printer.name.empty() || spooler::ShortPrinterName(printer.name) != printer.name) {
        return ERROR_INVALID_PRINTER_NAME;
    }
    printer.attributes |= PRINTER_ATTRIBUTE_LOCAL;
    if (const DWORD error = AddPrinterKeys(printer)) return error;
    *handle = spooler::AddHandle({printer.name, PRINTER_ALL_ACCESS});
    return ERROR_SUCCESS;
}

DWORD Read(HANDLE handle, DWORD level, const CallerBuffer& buffer) {
    if (const DWORD error = spooler::CheckBuffer(level, 2, buffer)) return error;
    std::vector<PrinterRecord> record(1);
    if (const DWORD error = LoadOpenPrinter(handle, 0, &record.front())) return error;
    return spooler::FillRecords(record, buffer, spooler::PackPrinter);
}

DWORD Remove(HANDLE handle) {
    OpenPrinter open;
    const DWORD error = spooler::PrinterOfHandle(handle, PRINTER_ACCESS_ADMINISTER, &open);
    if (error != ERROR_SUCCESS) return error;
    const DWORD missing = spooler::RemoveKey(spooler::PrinterPath(open.name));
    return missing == ERROR_FILE_NOT_FOUND ? ERROR_INVALID_HANDLE : missing;
}

DWORD Enumerate(DWORD flags, LPCWSTR server, DWORD level, const CallerBuffer& buffer,
                LPDWORD returned) {
    if (const DWORD error = spooler::CheckBuffer(level, 2, buffer)) return error;
    if (returned == nullptr || server != nullptr) return ERROR_INVALID_PARAMETER;
    *returned = 0;
    std::vector<PrinterRecord> printers;
    if ((flags & PRINTER_ENUM_LOCAL) != 0) {
        if (const DWORD error = spooler::ListPrinters(&printers)) return error;
    }
    return spooler::FillRecords(printers, buffer, spooler::PackPrinter, returned);
}

}  // namespace

BOOL WINAPI OpenPrinterW(LPWSTR name, HANDLE* printer, PRINTER_DEFAULTSW* defaults) {
    if (const auto error = InjectedFailure("OpenPrinterW")) return Fail(*error);
    if (printer == nullptr) return Fail(ERROR_INVALID_PARAMETER);
    *printer = nullptr;
    const DWORD access = defaults != nullptr ? defaults->DesiredAccess : 0;
    return Answer(platform::Contained(
        [&] { return Open(name, access != 0 ? access : PRINTER_ACCESS_USE, printer); }));
}

BOOL WINAPI ClosePrinter(HANDLE printer) {
    return Answer(spooler::RemoveHandle(printer) ? ERROR_SUCCESS : ERROR_INVALID_HANDLE);
}

BOOL WINAPI GetPrinterW(HANDLE printer, DWORD level, LPBYTE buffer, DWORD size, LPDWORD needed) {
    if (const auto error = InjectedFailure("GetPrinterW")) return Fail(*error);
    return Answer(platform::Contained([&] {
        return Read(printer, level, {buffer, size, needed});
    }));
}

BOOL WINAPI SetPrinterW(HANDLE printer, DWORD level, LPBYTE record, DWORD command) {
    if (const auto error = InjectedFailure("SetPrinterW")) return Fail(*error);
    if (level != 2) return Fail(ERROR_INVALID_LEVEL);
    if (command != 0) return Fail(ERROR_NOT_SUPPORTED);
    const auto* info = reinterpret_cast<const PRINTER_INFO_2W*>(record);
    if (info == nullptr) return Fail(ERROR_INVALID_PARAMETER);
    return Answer(platform::Contained(
        [&] { return platform::ChangeAtOnce([&] { return SetOpenPrinter(printer, *info); }); }));
}

HANDLE WINAPI AddPrinterW(LPWSTR server, DWORD level, LPBYTE record) {
    if (const auto error = InjectedFailure("AddPrinterW")) return Fail<HANDLE>(*error);
    const auto* info = reinterpret_cast<const PRINTER_INFO_2W*>(record);
    HANDLE handle = nullptr;
    const DWORD error = platform::Contained([&] { return Add(server, level, info, &handle); });
    return error == ERROR_SUCCESS ? handle : Fail<HANDLE>(error);
}

BOOL WINAPI DeletePrinter(HANDLE printer) {
    if (const auto error = InjectedFailure("DeletePrinter")) return Fail(*error);
    return Answer(platform::Contained([&] { return Remove(printer); }));
}

BOOL WINAPI EnumPrintersW(DWORD flags, LPWSTR server, DWORD level, LPBYTE buffer, DWORD size,
                          LPDWORD needed, LPDWORD returned) {
    if (const auto error = InjectedFailure("EnumPrintersW")) return Fail(*error);
    return Answer(platform::Contained([&] {
        return Enumerate(flags, server, level, {buffer, size, needed}, returned);
    }));
}
