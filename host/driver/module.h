/// The plug-in as the driver holds it: its module loaded by file, its object made through the class
/// factory, the driver's own interface published to it.
#pragma once

#include <windows.h>

#include <memory>
#include <string>

#include "common/oem_driver_interface.h"
#include "common/unique_handle.h"

namespace host {

/// Gives an object of the component model back.
struct Released {
    void operator()(IUnknown* object) const { object->Release(); }
};

class DriverModule {
public:
    /// Loads a module and makes its object. Throws `Failure` when the file is no plug-in.
    /// \param path  the platform path of the module.
    explicit DriverModule(const std::u16string& path);
    DriverModule(const DriverModule&) = delete;
    DriverModule& operator=(const DriverModule&) = delete;

    [[nodiscard]] IPrintOemUI& PlugIn() const { return *plugIn_; }
    [[nodiscard]] HMODULE Handle() const { return module_.Get(); }
    [[nodiscard]] const std::u16string& Path() const { return path_; }

private:
    std::u16string path_;
    oemui::UniqueLibrary strings_;
    oemui::UniqueLibrary module_;
    std::unique_ptr<IPrintOemUI, Released> plugIn_;  ///< goes before its module
};

/// Loads the module of a printer's registered driver.
[[nodiscard]] DriverModule LoadPrinterModule(HANDLE printer);

}  // namespace host
