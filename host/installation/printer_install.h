/// Installing and removing drivers and printers, with the events that the spooler sends.
#pragma once

#include <string>
#include <vector>

#include "host/driver/models.h"
#include "host/installation/package_files.h"
#include "host/installation/ports.h"

namespace host {

struct InstallRequest {
    std::string name;  ///< UTF-8; a server part `\\server\` is dropped, but the event has it
    const Model* model = nullptr;
    PortSpec port;
    bool bidirectional = false;
};

/// Copies the model's files into the machine, registers driver, port and printer,
/// sends the plug-in its printer event, and gives the printer its default devmode, by which a whole
/// printer is told from one whose installation was killed: that one is completed. What was
/// registered before a failure stays, except a new printer.
/// \return the printer's name, UTF-8.
std::string InstallPrinter(const InstallRequest& request, const PackageSource& source);

/// Sends the plug-in its event, if its module can be loaded, and removes the printer with its data.
void RemovePrinter(const std::string& name);

/// Removes the printers of a model, sends the plug-in the driver's deletion and takes the driver
/// out of the spooler. The driver's files are left to the uninstaller that the plug-in starts. Can
/// be done again when it was killed, also without the module.
/// \return the names of the printers removed, UTF-8.
std::vector<std::string> UninstallDriver(const Model& model);

struct ColorProfile {
    std::string name;  ///< UTF-8
    DWORD flags;       ///< QCP_PROFILE*
};

/// The colour profile that the plug-in names for a printer's output.
[[nodiscard]] ColorProfile QueryProfile(const std::string& printerName);

}  // namespace host
