#include "platform/spooler/drivers.h"

#include <winspool.h>

#include <array>
#include <string>

#include "platform/base/fail.h"
#include "platform/faults/failure_points.h"
#include "platform/spooler/print_keys.h"
#include "platform/spooler/printer_handles.h"
#include "platform/spooler/printer_record.h"
#include "platform/spooler/record_buffer.h"
#include "platform/text/letter_case.h"

namespace platform::spooler {
namespace {

constexpr std::u16string_view kEnvironment = u"Windows x64";
constexpr std::u16string_view kDriverFolder = u"C:\\Windows\\System32\\spool\\drivers\\x64\\3\\";
constexpr DWORD kDriverVersion = 3;

struct DriverRecord {
    std::u16string name;
    DWORD version = kDriverVersion;
    std::u16string driver;
    std::u16string printerDescription;
    std::u16string configuration;
};

// The driver's files are registered by their bare names and stand in the driver's directory.
std::u16string DriverFile(const std::u16string& registered) {
    const bool isPath = registered.find_first_of(u"\\:") != registered.npos;
    return registered.empty() || isPath ? registered : std::u16string(kDriverFolder) + registered;
}

std::u16string BareName(std::u16string_view path) {
    const std::size_t end = path.find_last_of(u"\\:");
    return std::u16string(end == path.npos ? path : path.substr(end + 1));
}

DWORD LoadDriver(std::u16string_view name, DriverRecord* driver) {
    if (!IsKeyName(name)) return ERROR_UNKNOWN_PRINTER_DRIVER;
    PrintKey key;
    const DWORD error = key.Open(SubKeyPath(kDriversPath, name));
    if (error == ERROR_FILE_NOT_FOUND) return ERROR_UNKNOWN_PRINTER_DRIVER;
    if (error != ERROR_SUCCESS) return error;
    driver->name = name;
    driver->version = key.Number(u"Version", kDriverVersion);
    driver->driver = DriverFile(key.Text(u"Driver"));
    driver->printerDescription = DriverFile(key.Text(u"Data File"));
    driver->configuration = DriverFile(key.Text(u"Configuration File"));
    return key.Error();
}

DWORD StoreDriver(const DRIVER_INFO_2W& info) {
    const struct {
        LPCWSTR value;
        LPCWSTR file;
    } files[] = {{u"Driver", info.pDriverPath},
                 {u"Data File", info.pDataFile},
                 {u"Configuration File", info.pConfigFile}};
    for (const auto& [value, file] : files) {
        if (file == nullptr || *file == u'\0') return ERROR_INVALID_PARAMETER;
    }
    return ChangeAtOnce([&] {
        PrintKey key;
        DWORD error = key.Create(SubKeyPath(kDriversPath, info.pName));
        for (const auto& [value, file] : files) {
            if (error == ERROR_SUCCESS) error = key.SetText(value, BareName(file));
        }
        return error != ERROR_SUCCESS ? error : key.SetNumber(u"Version", kDriverVersion);
    });
}

DWORD AddDriver(LPCWSTR server, DWORD level, const DRIVER_INFO_2W* info) {
    if (level != 2) return ERROR_INVALID_LEVEL;
    if (server != nullptr || info == nullptr || info->pName == nullptr || !IsKeyName(info->pName)) {
        return ERROR_INVALID_PARAMETER;
    }
    if (!IsOwnEnvironment(info->pEnvironment)) return ERROR_INVALID_ENVIRONMENT;
    return StoreDriver(*info);
}

DWORD RemoveUnusedDriver(std::u16string_view name) {
    bool known = false;
    if (const DWORD error = IsDriver(name, &known)) return error;
    if (!known) return ERROR_UNKNOWN_PRINTER_DRIVER;
    std::vector<PrinterRecord> printers;
    if (const DWORD error = ListPrinters(&printers)) return error;
    for (const PrinterRecord& printer : printers) {
        if (EqualIgnoringUnicodeCase(printer.driver, name)) return ERROR_PRINTER_DRIVER_IN_USE;
    }
    return RemoveKey(SubKeyPath(kDriversPath, name));
}

DWORD DeleteDriver(LPCWSTR server, LPCWSTR environment, LPCWSTR name) {
    if (server != nullptr || name == nullptr) return ERROR_INVALID_PARAMETER;
    if (!IsOwnEnvironment(environment)) return ERROR_INVALID_ENVIRONMENT;
    return ChangeAtOnce([name] { return RemoveUnusedDriver(name); });
}

DRIVER_INFO_2W PackDriver(const DriverRecord& driver, RecordTail& tail) {
    DRIVER_INFO_2W info = {};
    info.cVersion = driver.version;
    info.pName = tail.AddText(driver.name);
    info.pEnvironment = tail.AddText(kEnvironment);
    info.pDriverPath = tail.AddText(driver.driver);
    info.pDataFile = tail.AddText(driver.printerDescription);
    info.pConfigFile = tail.AddText(driver.configuration);
    return info;
}

DWORD ReadDriver(HANDLE printer, LPCWSTR environment, DWORD level, const CallerBuffer& buffer) {
    if (const DWORD error = CheckBuffer(level, 2, buffer)) return error;
    OpenPrinter open;
    if (const DWORD error = PrinterOfHandle(printer, 0, &open)) return error;
    if (!IsOwnEnvironment(environment)) return ERROR_INVALID_ENVIRONMENT;
    PrinterRecord record;
    const DWORD error = LoadPrinter(open.name, &record);
    if (error != ERROR_SUCCESS) {
        return error == ERROR_INVALID_PRINTER_NAME ? ERROR_INVALID_HANDLE : error;
    }
    std::vector<DriverRecord> driver(1);
    if (const DWORD missing = LoadDriver(record.driver, &driver.front())) return missing;
    return FillRecords(driver, buffer, PackDriver);
}

}  // namespace

bool IsOwnEnvironment(LPCWSTR environment) {
    return environment == nullptr || EqualIgnoringUnicodeCase(environment, kEnvironment);
}

DWORD IsDriver(std::u16string_view name, bool* known) {
    DriverRecord driver;
    const DWORD error = LoadDriver(name, &driver);
    *known = error == ERROR_SUCCESS;
    return error == ERROR_UNKNOWN_PRINTER_DRIVER ? ERROR_SUCCESS : error;
}

}  // namespace platform::spooler

using platform::Answer;
using platform::Fail;
using platform::InjectedFailure;

namespace spooler = platform::spooler;

BOOL WINAPI GetPrinterDriverW(HANDLE printer, LPWSTR environment, DWORD level, LPBYTE buffer,
                              DWORD size, LPDWORD needed) {
    if (const auto error = InjectedFailure("GetPrinterDriverW")) return Fail(*error);
    return Answer(platform::Contained([&] {
        return spooler::ReadDriver(printer, environment, level, {buffer, size, needed});
    }));
}

BOOL WINAPI AddPrinterDriverW(LPWSTR server, DWORD level, LPBYTE record) {
    if (const auto error = InjectedFailure("AddPrinterDriverW")) return Fail(*error);
    return Answer(platform::Contained([&] {
        return spooler::AddDriver(server, level, reinterpret_cast<const DRIVER_INFO_2W*>(record));
    }));
}

BOOL WINAPI DeletePrinterDriverW(LPWSTR server, LPWSTR environment, LPWSTR driver) {
    if (const auto error = InjectedFailure("DeletePrinterDriverW")) return Fail(*error);
    return Answer(
        platform::Contained([&] { return spooler::DeleteDriver(server, environment, driver); }));
}
