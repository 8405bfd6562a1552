/// Printers and forms of the machine, read from the spooler into values.
#pragma once

#include <windows.h>

#include <winspool.h>

#include <optional>
#include <string>
#include <vector>

#include "common/unique_handle.h"
#include "host/spooler/records.h"

namespace host {

struct PrinterSummary {
    std::u16string name;
    std::u16string port;
    std::u16string driver;
    std::u16string printProcessor;
    bool bidirectional = false;
    bool isComplete = false;  ///< it has its default devmode, which installing gives it last
};

struct Form {
    std::u16string name;
    SIZEL size;      ///< thousandths of a millimetre
    bool ownToUser;  ///< added by a user of the machine, not one of the platform's
};

/// All printers, in the spooler's order. Throws `Failure` when the store cannot be read.
[[nodiscard]] std::vector<PrinterSummary> ListPrinters();

/// Opens a printer by its name (UTF-8); an unknown name is a `Failure` that tells the near ones.
/// \param access  PRINTER_ACCESS_USE, PRINTER_ALL_ACCESS...
[[nodiscard]] oemui::UniquePrinter OpenNamedPrinter(const std::string& name, DWORD access);

/// What the spooler keeps of an open printer.
[[nodiscard]] RecordBlock<PRINTER_INFO_2W> PrinterRecord(HANDLE printer);
[[nodiscard]] PrinterSummary SummaryOf(HANDLE printer);

/// The forms of the printer's machine, in the order in which the form item lists them.
[[nodiscard]] std::vector<Form> ListForms(HANDLE printer);

/// Takes a form of the user's away. Throws `Failure` when there is none of that name.
void RemoveForm(HANDLE printer, const std::string& name);

/// Adds a form of the user's. \param definition  "Name=WIDTHxHEIGHT" in millimetres, decimals
/// allowed. Throws `UsageFailure` when it is not understood.
void AddForm(HANDLE printer, const std::string& definition);

/// The platform path of the registered driver's module.
[[nodiscard]] std::u16string DriverModulePath(HANDLE printer);

/// A text value of the printer's data; empty when there is none or when it is no text.
[[nodiscard]] std::u16string PrinterDataText(HANDLE printer, const char16_t* name);

/// A number of the printer's data, if there is one.
[[nodiscard]] std::optional<DWORD> PrinterDataNumber(HANDLE printer, const char16_t* name);

/// A value of the printer's data as it is, at most so many bytes; empty when there is none or more.
[[nodiscard]] std::vector<BYTE> PrinterDataBytes(HANDLE printer, const char16_t* name,
                                                 DWORD mostBytes);

/// The size in bytes of a value of the printer's data; 0 when there is none.
[[nodiscard]] DWORD PrinterDataSize(HANDLE printer, const char16_t* name);

void SetPrinterDataText(HANDLE printer, const char16_t* name, const std::u16string& text);

}  // namespace host
