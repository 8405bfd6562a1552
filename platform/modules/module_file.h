/// A module's file before it is loaded.
#pragma once

#include <filesystem>

namespace platform {

/// Whether a file is a shared object of this kind of machine with all that its headers say it has.
/// The loader maps what they say without looking: what is missing of the file ends the process when
/// it is touched.
[[nodiscard]] bool IsWholeModule(const std::filesystem::path& file);

}  // namespace platform
