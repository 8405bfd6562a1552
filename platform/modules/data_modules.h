/// Modules that are open for their resources alone: their bytes are read, nothing of them runs.
#pragma once

#include <windef.h>

#include <filesystem>

#include "platform/modules/modules.h"

namespace platform {

/// Opens a file for its resources. \param file  a whole module.
/// \return its handle, to be closed; null with ERROR_BAD_EXE_FORMAT when it has no resources.
[[nodiscard]] HMODULE OpenDataModule(const std::filesystem::path& file);

/// \return false when the handle is none of these.
bool CloseDataModule(HMODULE module);

/// The resources behind a handle; null when it is none of these. Valid until the module is closed.
[[nodiscard]] const ModuleImage* FindDataModule(HMODULE module);

}  // namespace platform
