#include "host/installation/printer_install.h"

#include <windows.h>

#include <winspool.h>

#include <optional>

#include "host/driver/devmode.h"
#include "host/driver/module.h"
#include "host/errors/failure.h"
#include "host/spooler/printers.h"
#include "platform/text/text_encoding.h"

namespace host {
namespace {

constexpr std::size_t kLongestName = 220;

void RegisterDriver(const Model& model) {
    std::u16string name(model.driverName);
    std::u16string module = model.ModuleName();
    std::u16string help = model.FileName(u"_HLP.HLP");
    DRIVER_INFO_2W driver{};
    driver.cVersion = 3;
    driver.pName = name.data();
    driver.pDriverPath = module.data();
    driver.pDataFile = help.data();
    driver.pConfigFile = module.data();
    if (!::AddPrinterDriverW(nullptr, 2, reinterpret_cast<LPBYTE>(&driver))) {
        FailWithLastError("the driver cannot be registered");
    }
}

oemui::UniquePrinter RegisterPrinter(const InstallRequest& request, std::u16string name) {
    std::u16string port = platform::Utf16(request.port.name);
    std::u16string driver(request.model->driverName);
    std::u16string processor = u"winprint";
    std::u16string datatype = u"RAW";
    PRINTER_INFO_2W printer{};
    printer.pPrinterName = name.data();
    printer.pPortName = port.data();
    printer.pDriverName = driver.data();
    printer.pPrintProcessor = processor.data();
    printer.pDatatype = datatype.data();
    printer.Attributes =
        PRINTER_ATTRIBUTE_LOCAL | (request.bidirectional ? PRINTER_ATTRIBUTE_ENABLE_BIDI : 0u);
    oemui::UniquePrinter added(::AddPrinterW(nullptr, 2, reinterpret_cast<LPBYTE>(&printer)));
    if (!added) FailWithLastError("printer " + Quoted(request.name) + " cannot be installed");
    return added;
}

// The plug-in may shorten the name where it lies: it gets a copy of its own.
void SendPrinterEvent(const DriverModule& module, std::u16string name, INT event) {
    module.PlugIn().PrinterEvent(name.data(), event, 0, 0);
}

[[noreturn]] void RefuseName(const std::string& name) {
    throw UsageFailure(Quoted(name) + " is no name for a printer (1 to " +
                       std::to_string(kLongestName) +
                       " characters without commas, backslashes and control characters)");
}

// What follows the server of `\\server\name`, or the whole.
std::string ShortName(const std::string& name) {
    if (!name.starts_with("\\\\")) return name;
    const std::size_t serverEnd = name.find('\\', 2);
    if (serverEnd == std::string::npos || serverEnd == 2) RefuseName(name);
    return name.substr(serverEnd + 1);
}

std::u16string CheckedShortName(const std::string& name) {
    std::u16string shortName = platform::Utf16(ShortName(name));
    if (shortName.empty() || shortName.size() > kLongestName ||
        shortName.find_first_of(u",\\") != std::u16string::npos || Escaped(name) != name) {
        RefuseName(name);
    }
    return shortName;
}

bool IsRequested(const PrinterSummary& printer, const InstallRequest& request) {
    return printer.driver == request.model->driverName &&
           platform::Utf8(printer.port) == request.port.name &&
           printer.bidirectional == request.bidirectional;
}

// Asked before anything is written: a refused installation leaves the machine as it was. A printer
// of the name is there only when its installation was killed.
oemui::UniquePrinter OpenUnfinished(const InstallRequest& request, const std::u16string& name) {
    oemui::UniquePrinter printer = oemui::OpenPrinterFor(name.c_str(), PRINTER_ALL_ACCESS);
    DWORD error = ::GetLastError();
    if (printer) {
        const PrinterSummary found = SummaryOf(printer.Get());
        if (!found.isComplete && IsRequested(found, request)) return printer;
        error = ERROR_PRINTER_ALREADY_EXISTS;
    }
    if (error != ERROR_INVALID_PRINTER_NAME) {
        FailWith("printer " + Quoted(request.name) + " cannot be installed", error);
    }
    return printer;
}

// The devmode is stored last: it makes the printer a complete one.
void SetUpPrinter(HANDLE printer, const InstallRequest& request, const std::u16string& name) {
    DriverModule module = LoadPrinterModule(printer);
    SendPrinterEvent(module, platform::Utf16(request.name), PRINTER_EVENT_INITIALIZE);
    StorePrinterDevmode(printer, DefaultDevmode(module, printer, name));
}

void DeleteAndTell(const std::string& name) {
    const oemui::UniquePrinter printer = OpenNamedPrinter(name, PRINTER_ALL_ACCESS);
    try {
        const DriverModule module = LoadPrinterModule(printer.Get());
        SendPrinterEvent(module, SummaryOf(printer.Get()).name, PRINTER_EVENT_DELETE);
    } catch (const Failure&) {
        // A printer whose driver is gone must be removable all the same; nobody is left to tell.
    }
    if (!::DeletePrinter(printer.Get())) {
        FailWithLastError("printer " + Quoted(name) + " cannot be removed");
    }
}

std::vector<std::string> RemovePrintersOf(const Model& model) {
    std::vector<std::string> removed;
    for (const PrinterSummary& printer : ListPrinters()) {
        if (printer.driver != model.driverName) continue;
        removed.push_back(platform::Utf8(printer.name));
        DeleteAndTell(removed.back());
    }
    return removed;
}

// Nothing when an uninstaller has deleted the module already, or when it is damaged.
void LoadIfThere(std::optional<DriverModule>& plugIn, const Model& model) {
    const std::u16string folder = u"C:\\Windows\\System32\\spool\\drivers\\x64\\3\\";
    try {
        plugIn.emplace(folder + model.ModuleName());
    } catch (const Failure&) {
        plugIn.reset();
    }
}

}  // namespace

std::string InstallPrinter(const InstallRequest& request, const PackageSource& source) {
    const std::u16string name = CheckedShortName(request.name);
    const InstallationLock lock;
    oemui::UniquePrinter printer = OpenUnfinished(request, name);
    PlaceModelFiles(*request.model, source);
    RegisterDriver(*request.model);
    RegisterPort(request.port);
    const bool isNew = !printer;
    if (isNew) printer = RegisterPrinter(request, name);
    try {
        SetUpPrinter(printer.Get(), request, name);
    } catch (const Failure&) {
        if (isNew) ::DeletePrinter(printer.Get());
        throw;
    }
    return platform::Utf8(name);
}

void RemovePrinter(const std::string& name) {
    const InstallationLock lock;
    DeleteAndTell(name);
}

std::vector<std::string> UninstallDriver(const Model& model) {
    const InstallationLock lock;
    std::optional<DriverModule> plugIn;
    LoadIfThere(plugIn, model);
    std::vector<std::string> removed = RemovePrintersOf(model);
    ReleaseModelFiles(model);
    if (plugIn) plugIn->PlugIn().DriverEvent(DRIVER_EVENT_DELETE, 0, nullptr, 0);
    std::u16string driver(model.driverName);
    // Out of the spooler, but with its files: an uninstallation that was killed is completed.
    const bool isDone = ::DeletePrinterDriverW(nullptr, nullptr, driver.data()) ||
                        (plugIn && ::GetLastError() == ERROR_UNKNOWN_PRINTER_DRIVER);
    if (isDone) return removed;
    if (::GetLastError() == ERROR_UNKNOWN_PRINTER_DRIVER) {
        throw Failure("model " + std::string(1, model.letter) + " is not installed");
    }
    FailWithLastError("the driver cannot be removed");
}

ColorProfile QueryProfile(const std::string& printerName) {
    const oemui::UniquePrinter printer = OpenNamedPrinter(printerName, PRINTER_ACCESS_USE);
    const DriverModule module = LoadPrinterModule(printer.Get());
    ULONG size = 0;
    DWORD flags = 0;
    IPrintOemUI& plugIn = module.PlugIn();
    plugIn.QueryColorProfile(printer.Get(), nullptr, nullptr, nullptr, QCP_DEVICEPROFILE, nullptr,
                             &size, &flags);
    if (::GetLastError() != ERROR_INSUFFICIENT_BUFFER || size == 0 || size > 0xFFFF) {
        throw Failure("the driver names no colour profile");
    }
    std::u16string name(size / sizeof(char16_t) + 1, u'\0');
    if (FAILED(plugIn.QueryColorProfile(printer.Get(), nullptr, nullptr, nullptr, QCP_DEVICEPROFILE,
                                        name.data(), &size, &flags))) {
        FailWithLastError("the driver names no colour profile");
    }
    return {platform::Utf8(std::u16string_view(name).substr(0, name.find(u'\0'))), flags};
}

}  // namespace host
