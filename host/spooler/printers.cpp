#include "host/spooler/printers.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstring>
#include <iterator>

#include "host/errors/failure.h"
#include "host/errors/suggestions.h"
#include "platform/text/text_encoding.h"

namespace host {
namespace {

// The longest text that the host keeps in a printer's data, in bytes.
constexpr DWORD kMostDataBytes = 1024;

PrinterSummary Summarize(const PRINTER_INFO_2W& record) {
    return {RecordText(record.pPrinterName),
            RecordText(record.pPortName),
            RecordText(record.pDriverName),
            RecordText(record.pPrintProcessor),
            (record.Attributes & PRINTER_ATTRIBUTE_ENABLE_BIDI) != 0,
            record.pDevMode != nullptr};
}

[[noreturn]] void RefuseForm(const std::string& definition) {
    throw UsageFailure(Quoted(definition) +
                       " is no form: expected Name=WIDTHxHEIGHT, each 1 to 100000 millimetres");
}

// Thousandths of a millimetre.
LONG ParseMillimetres(std::string_view text, const std::string& definition) {
    double millimetres = 0;
    const char* end = text.data() + text.size();
    const auto [rest, error] = std::from_chars(text.data(), end, millimetres);
    if (error != std::errc() || rest != end || !(millimetres >= 1 && millimetres <= 100'000)) {
        RefuseForm(definition);
    }
    return static_cast<LONG>(std::lround(millimetres * 1000));
}

}  // namespace

std::vector<PrinterSummary> ListPrinters() {
    const RecordBlock<PRINTER_INFO_2W> block(
        "the printers cannot be listed",
        [](LPBYTE buffer, DWORD size, LPDWORD needed, LPDWORD count) {
            return ::EnumPrintersW(PRINTER_ENUM_LOCAL, nullptr, 2, buffer, size, needed, count);
        });
    std::vector<PrinterSummary> printers;
    std::ranges::transform(block.Records(), std::back_inserter(printers), Summarize);
    return printers;
}

oemui::UniquePrinter OpenNamedPrinter(const std::string& name, DWORD access) {
    oemui::UniquePrinter printer = oemui::OpenPrinterFor(platform::Utf16(name).c_str(), access);
    if (printer) return printer;
    const DWORD error = ::GetLastError();
    if (error != ERROR_INVALID_PRINTER_NAME) {
        FailWith("printer " + Quoted(name) + " cannot be opened", error);
    }
    std::vector<std::string> known;
    for (const PrinterSummary& other : ListPrinters()) known.push_back(platform::Utf8(other.name));
    throw Failure(UnknownName("printer", name, known));
}

RecordBlock<PRINTER_INFO_2W> PrinterRecord(HANDLE printer) {
    return {"the printer cannot be read", [&](LPBYTE buffer, DWORD size, LPDWORD needed, LPDWORD) {
                return ::GetPrinterW(printer, 2, buffer, size, needed);
            }};
}

PrinterSummary SummaryOf(HANDLE printer) {
    return Summarize(PrinterRecord(printer).Single());
}

std::vector<Form> ListForms(HANDLE printer) {
    const RecordBlock<FORM_INFO_1W> block(
        "the forms cannot be listed",
        [&](LPBYTE buffer, DWORD size, LPDWORD needed, LPDWORD count) {
            return ::EnumFormsW(printer, 1, buffer, size, needed, count);
        });
    std::vector<Form> forms;
    for (const FORM_INFO_1W& form : block.Records()) {
        forms.push_back({RecordText(form.pName), form.Size, (form.Flags & FORM_BUILTIN) == 0});
    }
    return forms;
}

void AddForm(HANDLE printer, const std::string& definition) {
    const std::size_t equals = definition.rfind('=');
    const std::size_t cross = definition.find('x', equals == std::string::npos ? 0 : equals);
    if (equals == std::string::npos || cross == std::string::npos || equals == 0) {
        RefuseForm(definition);
    }
    const std::string_view text = definition;
    std::u16string name = platform::Utf16(text.substr(0, equals));
    FORM_INFO_1W form{};
    form.Flags = FORM_USER;
    form.pName = name.data();
    form.Size.cx = ParseMillimetres(text.substr(equals + 1, cross - equals - 1), definition);
    form.Size.cy = ParseMillimetres(text.substr(cross + 1), definition);
    form.ImageableArea = {0, 0, form.Size.cx, form.Size.cy};
    if (!::AddFormW(printer, 1, reinterpret_cast<LPBYTE>(&form))) {
        FailWithLastError("form " + Quoted(definition) + " cannot be added");
    }
}

void RemoveForm(HANDLE printer, const std::string& name) {
    if (::DeleteFormW(printer, platform::Utf16(name).data())) return;
    const DWORD error = ::GetLastError();
    if (error != ERROR_INVALID_FORM_NAME && error != ERROR_INVALID_PARAMETER) {
        FailWith("form " + Quoted(name) + " cannot be removed", error);
    }
    std::vector<std::string> known;
    for (const Form& form : ListForms(printer)) {
        if (form.ownToUser) known.push_back(platform::Utf8(form.name));
    }
    throw Failure(UnknownName("form of yours", name, known));
}

std::u16string DriverModulePath(HANDLE printer) {
    const RecordBlock<DRIVER_INFO_2W> block(
        "the printer's driver cannot be read",
        [&](LPBYTE buffer, DWORD size, LPDWORD needed, LPDWORD) {
            return ::GetPrinterDriverW(printer, nullptr, 2, buffer, size, needed);
        });
    return RecordText(block.Single().pConfigFile);
}

std::u16string PrinterDataText(HANDLE printer, const char16_t* name) {
    BYTE bytes[kMostDataBytes] = {};
    DWORD type = REG_NONE;
    DWORD size = 0;
    const DWORD status =
        ::GetPrinterDataW(printer, const_cast<LPWSTR>(name), &type, bytes, sizeof(bytes), &size);
    if (status != ERROR_SUCCESS || type != REG_SZ || size > sizeof(bytes)) return {};
    std::u16string text(size / sizeof(char16_t), u'\0');
    std::memcpy(text.data(), bytes, text.size() * sizeof(char16_t));
    return text.substr(0, text.find(u'\0'));
}

std::optional<DWORD> PrinterDataNumber(HANDLE printer, const char16_t* name) {
    DWORD type = REG_NONE;
    DWORD size = 0;
    DWORD value = 0;
    const DWORD status = ::GetPrinterDataW(printer, const_cast<LPWSTR>(name), &type,
                                           reinterpret_cast<LPBYTE>(&value), sizeof(value), &size);
    const bool isNumber = status == ERROR_SUCCESS && type == REG_DWORD && size == sizeof(value);
    return isNumber ? std::optional(value) : std::nullopt;
}

std::vector<BYTE> PrinterDataBytes(HANDLE printer, const char16_t* name, DWORD mostBytes) {
    std::vector<BYTE> bytes(mostBytes);
    DWORD size = 0;
    const DWORD status = ::GetPrinterDataW(printer, const_cast<LPWSTR>(name), nullptr, bytes.data(),
                                           mostBytes, &size);
    bytes.resize(status == ERROR_SUCCESS ? std::min(size, mostBytes) : 0);
    return bytes;
}

DWORD PrinterDataSize(HANDLE printer, const char16_t* name) {
    DWORD size = 0;
    const DWORD status =
        ::GetPrinterDataW(printer, const_cast<LPWSTR>(name), nullptr, nullptr, 0, &size);
    return status == ERROR_SUCCESS || status == ERROR_MORE_DATA ? size : 0;
}

void SetPrinterDataText(HANDLE printer, const char16_t* name, const std::u16string& text) {
    std::u16string terminated = text + u'\0';
    const DWORD status = ::SetPrinterDataW(
        printer, const_cast<LPWSTR>(name), REG_SZ, reinterpret_cast<LPBYTE>(terminated.data()),
        static_cast<DWORD>(terminated.size() * sizeof(char16_t)));
    if (status != ERROR_SUCCESS) FailWith("the printer's settings cannot be stored", status);
}

}  // namespace host
