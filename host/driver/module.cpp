#include "host/driver/module.h"

#include <atomic>
#include <filesystem>

#include "host/errors/failure.h"
#include "host/spooler/printers.h"
#include "platform/base/machine.h"
#include "platform/base/paths.h"
#include "platform/text/text_encoding.h"

namespace host {
namespace {

/// The driver's interface as plug-ins get it. What a plug-in wants to know while a page is shown it
/// asks through the page's own function table, so that the answers here are those of a driver
/// without a page.
class DriverInterface final : public IPrintOemDriverUI {
public:
    STDMETHODIMP QueryInterface(REFIID iid, void** object) override {
        const bool known = iid == IID_IUnknown || iid == IID_IPrintOemDriverUI;
        *object = known ? static_cast<IPrintOemDriverUI*>(this) : nullptr;
        if (!known) return E_NOINTERFACE;
        AddRef();
        return S_OK;
    }
    STDMETHODIMP_(ULONG) AddRef() override { return ++references_; }
    STDMETHODIMP_(ULONG) Release() override {
        const ULONG left = --references_;
        if (left == 0) delete this;
        return left;
    }
    STDMETHODIMP DrvGetDriverSetting(PVOID driver, PCSTR feature, PVOID output, DWORD outputSize,
                                     PDWORD neededSize, PDWORD optionsReturned) override {
        POEMUIPROCS procedures = ProceduresOf(driver);
        if (procedures == nullptr) return E_NOTIMPL;
        const BOOL done = procedures->DrvGetDriverSetting(driver, feature, output, outputSize,
                                                          neededSize, optionsReturned);
        return done == E_NOTIMPL ? E_NOTIMPL : (done ? S_OK : E_FAIL);
    }
    STDMETHODIMP DrvUpgradeRegistrySetting(HANDLE, PCSTR, PCSTR) override { return E_NOTIMPL; }
    STDMETHODIMP DrvUpdateUISetting(PVOID driver, PVOID optItem, DWORD previousSelection,
                                    DWORD mode) override {
        POEMUIPROCS procedures = ProceduresOf(driver);
        if (procedures == nullptr) return E_NOTIMPL;
        return procedures->DrvUpdateUISetting(driver, optItem, previousSelection, mode) ? S_OK
                                                                                        : E_FAIL;
    }

private:
    ~DriverInterface() = default;

    static POEMUIPROCS ProceduresOf(PVOID driver) {
        return driver != nullptr ? static_cast<POEMUIOBJ>(driver)->pOemUIProcs : nullptr;
    }

    std::atomic<ULONG> references_{1};
};

using GetClassObject = HRESULT(STDAPICALLTYPE*)(REFCLSID, REFIID, void**);

IPrintOemUI* CreatePlugIn(HMODULE module, const std::string& file) {
    const auto getClassObject = reinterpret_cast<GetClassObject>(
        reinterpret_cast<void*>(::GetProcAddress(module, "DllGetClassObject")));
    if (getClassObject == nullptr) FailWithLastError(file + " is no plug-in");
    IClassFactory* factory = nullptr;
    if (FAILED(
            getClassObject(CLSID_OEMUI, IID_IClassFactory, reinterpret_cast<void**>(&factory)))) {
        throw Failure(file + " gives no class factory");
    }
    const std::unique_ptr<IUnknown, Released> factoryOwner(factory);
    void* plugIn = nullptr;
    if (FAILED(factory->CreateInstance(nullptr, IID_IPrintOemUI, &plugIn))) {
        throw Failure(file + " gives no user interface object");
    }
    return static_cast<IPrintOemUI*>(plugIn);
}

// The registry names the module: what it names, over links too, must be a file of the machine
// before any of its code runs.
const std::u16string& RequireOwnFile(const std::u16string& path) {
    std::error_code error;
    const std::filesystem::path file =
        std::filesystem::canonical(platform::ExistingFile(path), error);
    const std::string name = Quoted(platform::Utf8(path));
    if (error) FailWith(name + " cannot be loaded", ERROR_MOD_NOT_FOUND);
    const std::filesystem::path below = file.lexically_relative(platform::MachineFolder());
    if (below.empty() || *below.begin() == "..") {
        throw Failure(name + " lies outside the machine and is not loaded");
    }
    return path;
}

// The driver has its library of strings loaded before any plug-in, which asks for it by its bare
// name: the driver's folder is not searched for those. A driver without the library goes on.
oemui::UniqueLibrary LoadStringsBeside(const std::u16string& module) {
    const std::u16string strings =
        module.substr(0, module.find_last_of(u"\\/") + 1) + u"UNIRES.DLL";
    if (platform::ExistingFile(strings).empty()) return {};
    return oemui::UniqueLibrary(::LoadLibraryW(RequireOwnFile(strings).c_str()));
}

}  // namespace

DriverModule::DriverModule(const std::u16string& path)
    : path_(RequireOwnFile(path)),
      strings_(LoadStringsBeside(path)),
      module_(::LoadLibraryW(path.c_str())) {
    const std::string file = Escaped(platform::Utf8(path));
    if (!module_) FailWithLastError(file + " cannot be loaded");
    plugIn_.reset(CreatePlugIn(module_.Get(), file));
    auto* driverInterface = new DriverInterface;
    const std::unique_ptr<IUnknown, Released> ownReference(driverInterface);
    if (FAILED(plugIn_->PublishDriverInterface(driverInterface))) {
        throw Failure(file + " refuses the driver's interface");
    }
}

DriverModule LoadPrinterModule(HANDLE printer) {
    return DriverModule(DriverModulePath(printer));
}

}  // namespace host
