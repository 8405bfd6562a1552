/// A module's file before it is loaded.
#pragma once

#include <filesystem>
#include <vector>

namespace platform {

/// Whether a file is a shared object of this kind of machine with all that its headers say it has.
/// The loader maps what they say without looking: what is missing of the file ends the process when
/// it is touched.
[[nodiscard]] bool IsWholeModule(const std::filesystem::path& file);

/// The compiled resources of a whole module, read from its file; empty when it has none.
[[nodiscard]] std::vector<unsigned char> ReadModuleResources(const std::filesystem::path& file);

}  // namespace platform
