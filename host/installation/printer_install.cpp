#include "host/installation/printer_install.h"

#include <windows.h>

#include <winspool.h>

#include <fstream>

#include "host/driver/devmode.h"
#include "host/driver/module.h"
#include "host/errors/failure.h"
#include "host/spooler/printers.h"
#include "platform/base/machine.h"
#include "platform/text/text_encoding.h"

namespace host {
namespace {

namespace fs = std::filesystem;

constexpr std::size_t kLongestName = 220;

fs::path SystemFolder() {
    return platform::MachineFolder() / "Windows/System32";
}

// Written beside the old file and put in its place, so that a module in use is not changed.
void CopyInto(const fs::path& file, const fs::path& folder) {
    const fs::path target = folder / file.filename();
    const fs::path fresh = folder / (file.filename().native() + ".new");
    std::error_code error;
    fs::create_directories(folder, error);
    fs::copy_file(file, fresh, fs::copy_options::overwrite_existing, error);
    if (!error) fs::rename(fresh, target, error);
    if (error) throw Failure(target.native() + " cannot be written: " + error.message());
}

void CopyPackage(const Model& model, const PackageSource& source) {
    const fs::path folder = source.packages / std::string(1, model.letter);
    if (!fs::exists(folder / platform::Utf8(model.ModuleName()))) {
        throw Failure("the package of model " + std::string(1, model.letter) + " is not in " +
                      folder.native());
    }
    for (const fs::directory_entry& entry : fs::directory_iterator(folder)) {
        if (!entry.is_regular_file()) continue;
        const bool settings = entry.path().extension() == ".INI";
        CopyInto(entry.path(),
                 settings ? platform::MachineFolder() / "Windows" : platform::DriverFolder());
    }
}

void CopyStandIns(const PackageSource& source) {
    const fs::path strings = source.standIns / "UNIRES.DLL";
    if (fs::exists(strings)) CopyInto(strings, platform::DriverFolder());
    const fs::path uninstaller = source.standIns / "UNINST.EXE";
    if (fs::exists(uninstaller)) CopyInto(uninstaller, SystemFolder());
}

// Nothing is ever printed here, but a print processor can only be registered when its file is
// there.
void PlacePrintProcessor(const Model& model) {
    const fs::path folder = SystemFolder() / "spool/prtprocs/x64";
    std::error_code error;
    fs::create_directories(folder, error);
    const fs::path file = folder / platform::Utf8(model.FileName(u"__PP.DLL"));
    if (!fs::exists(file)) std::ofstream(file) << "stands for the print processor\n";
    if (!fs::exists(file)) throw Failure(file.native() + " cannot be written");
}

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

std::string ShortName(const std::string& name) {
    const std::size_t backslash = name.rfind('\\');
    return backslash == std::string::npos ? name : name.substr(backslash + 1);
}

void CheckName(const std::string& name, const std::string& shortName) {
    const std::u16string wide = platform::Utf16(shortName);
    if (wide.empty() || wide.size() > kLongestName || wide.find(u',') != std::u16string::npos) {
        throw UsageFailure(Quoted(name) + " is no name for a printer (1 to " +
                           std::to_string(kLongestName) + " characters without commas)");
    }
}

// Asked before anything is written: a refused installation leaves the machine as it was.
void CheckIsNew(const std::string& name, const std::u16string& shortName) {
    const bool exists{oemui::OpenPrinterFor(shortName.c_str(), PRINTER_ACCESS_USE)};
    const DWORD error = exists ? ERROR_PRINTER_ALREADY_EXISTS : ::GetLastError();
    if (error == ERROR_INVALID_PRINTER_NAME) return;
    FailWith("printer " + Quoted(name) + " cannot be installed", error);
}

}  // namespace

PackageSource OwnPackageSource() {
    std::error_code error;
    const fs::path program = fs::read_symlink("/proc/self/exe", error);
    const fs::path root = program.parent_path().parent_path();
    return {root / "package", root / "standin"};
}

void InstallPrinter(const InstallRequest& request, const PackageSource& source) {
    const std::string shortName = ShortName(request.name);
    CheckName(request.name, shortName);
    const std::u16string name = platform::Utf16(shortName);
    CheckIsNew(request.name, name);
    CopyPackage(*request.model, source);
    CopyStandIns(source);
    PlacePrintProcessor(*request.model);
    RegisterDriver(*request.model);
    RegisterPort(request.port);
    const oemui::UniquePrinter printer = RegisterPrinter(request, name);
    try {
        DriverModule module = LoadPrinterModule(printer.Get());
        StorePrinterDevmode(printer.Get(), DefaultDevmode(module, printer.Get(), name));
        SendPrinterEvent(module, platform::Utf16(request.name), PRINTER_EVENT_INITIALIZE);
    } catch (const Failure&) {
        ::DeletePrinter(printer.Get());
        throw;
    }
}

void RemovePrinter(const std::string& name) {
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

std::vector<std::string> UninstallDriver(const Model& model) {
    std::vector<std::string> removed;
    const std::u16string module = u"C:\\Windows\\System32\\spool\\drivers\\x64\\3\\";
    std::u16string driver(model.driverName);
    const DriverModule plugIn(module + model.ModuleName());
    for (const PrinterSummary& printer : ListPrinters()) {
        if (printer.driver != driver) continue;
        removed.push_back(platform::Utf8(printer.name));
        RemovePrinter(removed.back());
    }
    plugIn.PlugIn().DriverEvent(DRIVER_EVENT_DELETE, 0, nullptr, 0);
    if (!::DeletePrinterDriverW(nullptr, nullptr, driver.data())) {
        FailWithLastError("the driver cannot be removed");
    }
    return removed;
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
