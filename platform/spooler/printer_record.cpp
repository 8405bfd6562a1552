#include "platform/spooler/printer_record.h"

#include <winreg.h>

#include <algorithm>
#include <array>
#include <cstring>

#include "platform/spooler/print_keys.h"
#include "platform/text/letter_case.h"

namespace platform::spooler {
namespace {

constexpr std::size_t kPrinterNameLimit = 220;
constexpr LPCWSTR kDevmodeValue = u"Default DevMode";

struct TextField {
    LPCWSTR value;
    std::u16string PrinterRecord::*stored;
    LPWSTR PRINTER_INFO_2W::*given;
};

constexpr auto kTextFields = std::to_array<TextField>({
    {u"Name", &PrinterRecord::name, &PRINTER_INFO_2W::pPrinterName},
    {u"Share Name", &PrinterRecord::shareName, &PRINTER_INFO_2W::pShareName},
    {u"Port", &PrinterRecord::port, &PRINTER_INFO_2W::pPortName},
    {u"Printer Driver", &PrinterRecord::driver, &PRINTER_INFO_2W::pDriverName},
    {u"Description", &PrinterRecord::comment, &PRINTER_INFO_2W::pComment},
    {u"Location", &PrinterRecord::location, &PRINTER_INFO_2W::pLocation},
    {u"Separator File", &PrinterRecord::separatorFile, &PRINTER_INFO_2W::pSepFile},
    {u"Print Processor", &PrinterRecord::processor, &PRINTER_INFO_2W::pPrintProcessor},
    {u"Datatype", &PrinterRecord::datatype, &PRINTER_INFO_2W::pDatatype},
    {u"Parameters", &PrinterRecord::parameters, &PRINTER_INFO_2W::pParameters},
});

struct NumberField {
    LPCWSTR value;
    DWORD PrinterRecord::*stored;
    DWORD PRINTER_INFO_2W::*given;
};

constexpr auto kNumberFields = std::to_array<NumberField>({
    {u"Attributes", &PrinterRecord::attributes, &PRINTER_INFO_2W::Attributes},
    {u"Priority", &PrinterRecord::priority, &PRINTER_INFO_2W::Priority},
    {u"Default Priority", &PrinterRecord::defaultPriority, &PRINTER_INFO_2W::DefaultPriority},
    {u"StartTime", &PrinterRecord::startTime, &PRINTER_INFO_2W::StartTime},
    {u"UntilTime", &PrinterRecord::untilTime, &PRINTER_INFO_2W::UntilTime},
});

constexpr std::size_t kSmallestDevmode = offsetof(DEVMODEW, dmFields) + sizeof(DWORD);

// The size that a devmode gives itself; 0 when it makes no sense.
std::size_t DevmodeSize(const DEVMODEW& devmode) {
    if (devmode.dmSize < kSmallestDevmode) return 0;
    return std::size_t{devmode.dmSize} + devmode.dmDriverExtra;
}

void ReadFields(const PrintKey& key, PrinterRecord* printer) {
    for (const TextField& field : kTextFields) printer->*field.stored = key.Text(field.value);
    for (const NumberField& field : kNumberFields) {
        printer->*field.stored = key.Number(field.value, printer->*field.stored);
    }
    printer->devmode = key.Bytes(kDevmodeValue);
    if (!IsDevmode(printer->devmode)) printer->devmode.clear();
}

DWORD OpenPrinterKey(std::u16string_view name, PrintKey* key) {
    const DWORD error = key->Open(PrinterPath(name));
    return error == ERROR_FILE_NOT_FOUND ? ERROR_INVALID_PRINTER_NAME : error;
}

}  // namespace

std::u16string ShortPrinterName(std::u16string_view name) {
    if (name.starts_with(u"\\\\")) {
        const std::size_t serverEnd = name.find(u'\\', 2);
        if (serverEnd == name.npos) return {};
        name.remove_prefix(serverEnd + 1);
    }
    name = name.substr(0, name.find(u','));
    if (!IsKeyName(name) || name.size() > kPrinterNameLimit) return {};
    return std::u16string(name);
}

std::u16string PrinterPath(std::u16string_view name) {
    return SubKeyPath(kPrintersPath, name);
}

std::u16string PrinterDataPath(std::u16string_view name) {
    return SubKeyPath(PrinterPath(name), u"PrinterDriverData");
}

DWORD RequirePrinter(std::u16string_view name) {
    PrintKey key;
    return OpenPrinterKey(name, &key);
}

DWORD LoadPrinter(std::u16string_view name, PrinterRecord* printer) {
    return ReadAtOnce([&] {
        PrintKey key;
        if (const DWORD error = OpenPrinterKey(name, &key)) return error;
        *printer = {};
        ReadFields(key, printer);
        // The stored name is the spelling; the key's own is what the printer is opened by.
        if (!EqualIgnoringUnicodeCase(printer->name, name)) printer->name = name;
        return key.Error();
    });
}

DWORD StorePrinter(const PrinterRecord& printer) {
    PrintKey key;
    DWORD error = key.Open(PrinterPath(printer.name));
    if (error != ERROR_SUCCESS) return error;
    PrinterRecord stored;
    ReadFields(key, &stored);
    error = key.Error();
    for (const TextField& field : kTextFields) {
        if (error == ERROR_SUCCESS && printer.*field.stored != stored.*field.stored) {
            error = key.SetText(field.value, printer.*field.stored);
        }
    }
    for (const NumberField& field : kNumberFields) {
        if (error == ERROR_SUCCESS && printer.*field.stored != stored.*field.stored) {
            error = key.SetNumber(field.value, printer.*field.stored);
        }
    }
    if (error == ERROR_SUCCESS && printer.devmode != stored.devmode) {
        error = key.Write(kDevmodeValue, REG_BINARY, printer.devmode);
    }
    return error;
}

DWORD ListPrinters(std::vector<PrinterRecord>* printers) {
    printers->clear();
    // One view: a printer that another process removes meanwhile is there to the end.
    return ReadAtOnce([printers]() -> DWORD {
        std::vector<std::u16string> names;
        if (const DWORD error = ListSubKeys(kPrintersPath, &names)) return error;
        for (const std::u16string& name : names) {
            // Whatever else lies there cannot be opened as a printer.
            if (ShortPrinterName(name) != name) continue;
            PrinterRecord printer;
            const DWORD error = LoadPrinter(name, &printer);
            if (error == ERROR_INVALID_PRINTER_NAME) continue;
            if (error != ERROR_SUCCESS) return error;
            printers->push_back(std::move(printer));
        }
        return ERROR_SUCCESS;
    });
}

PRINTER_INFO_2W PackPrinter(const PrinterRecord& printer, RecordTail& tail) {
    PRINTER_INFO_2W info = {};
    for (const TextField& field : kTextFields) {
        info.*field.given = tail.AddText(printer.*field.stored);
    }
    for (const NumberField& field : kNumberFields) info.*field.given = printer.*field.stored;
    info.pDevMode = static_cast<DEVMODEW*>(tail.AddBlock(printer.devmode));
    return info;
}

DWORD UnpackPrinter(const PRINTER_INFO_2W& info, PrinterRecord* printer) {
    for (const TextField& field : kTextFields) {
        printer->*field.stored = info.*field.given != nullptr ? info.*field.given : u"";
    }
    for (const NumberField& field : kNumberFields) printer->*field.stored = info.*field.given;
    if (info.pDevMode == nullptr) return ERROR_SUCCESS;
    const std::size_t size = DevmodeSize(*info.pDevMode);
    if (size == 0) return ERROR_INVALID_DATA;
    const auto* bytes = reinterpret_cast<const BYTE*>(info.pDevMode);
    printer->devmode.assign(bytes, bytes + size);
    return ERROR_SUCCESS;
}

bool IsDevmode(const std::vector<BYTE>& bytes) {
    if (bytes.size() < kSmallestDevmode) return false;
    DEVMODEW devmode = {};
    std::memcpy(&devmode, bytes.data(), std::min(bytes.size(), sizeof devmode));
    const std::size_t size = DevmodeSize(devmode);
    return size != 0 && size <= bytes.size();
}

}  // namespace platform::spooler
