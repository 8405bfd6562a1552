/// The plug-in as the driver holds it: its module loaded by file, its object made through the class
/// factory, the driver's own interface published to it.
#pragma once

#include <windows.h>

#include <memory>
#include <string>

#include "common/oem_driver_interface.h"
#include "host/spooler/handles.h"

namespace host {

class DriverModule {
public:
    /// Loads a module and makes its object. Throws `Failure` when the file is no plug-in.
    /// \param path  the platform path of the module.
    explicit DriverModule(const std::u16string& path);
    /// Releases the object, then the module.
    ~DriverModule();
    DriverModule(const DriverModule&) = delete;
    DriverModule& operator=(const DriverModule&) = delete;

    IPrintOemUI& PlugIn() const { return *plugIn_; }
    HMODULE Handle() const { return module_.get(); }
    const std::u16string& Path() const { return path_; }

private:
    struct Released {
        void operator()(IPrintOemUI* plugIn) const { plugIn->Release(); }
    };
    std::u16string path_;
    ModuleHandle module_;
    std::unique_ptr<IPrintOemUI, Released> plugIn_;
};

/// Loads the module of a printer's registered driver.
std::unique_ptr<DriverModule> LoadPrinterModule(HANDLE printer);

}  // namespace host
