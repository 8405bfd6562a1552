/// The public settings of the document that the plug-in's items depend on.
#pragma once

#include "common/oem_driver_interface.h"
#include "devmode/private_devmode.h"

namespace oemui {

/// As the public devmode has them; without one, a single copy in colour.
struct DocumentSettings {
    SHORT Copies = 1;
    bool Collated = false;
    bool Monochrome = false;

    [[nodiscard]] bool HasCopies() const { return Copies > 1; }
};

inline DocumentSettings ReadDocumentSettings(const OEMCUIPPARAM& params) {
    const DEVMODEW* devmode = params.pPublicDM;
    if (devmode == nullptr) return {};
    return {devmode->dmCopies, devmode->dmCollate != 0, devmode->dmColor == DMCOLOR_MONOCHROME};
}

/// The plug-in's block of the document's devmode; null when the driver gives none.
inline PrivateDevmode* PagePrivateDevmode(const OEMCUIPPARAM& params) {
    return static_cast<PrivateDevmode*>(params.pOEMDM);
}

}  // namespace oemui
