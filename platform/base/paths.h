/// Look-ups in folders without regard to case, as the platform's file system does them.
#pragma once

#include <filesystem>
#include <string_view>

namespace platform {

/// The file or folder that a path below a folder names, each part found in any case. Parts are
/// divided by backslashes or slashes; ".." never leaves the folder. Parts that do not exist are
/// kept as they are spelled, so the result may name what is still to be made.
std::filesystem::path ResolveIgnoringCase(const std::filesystem::path& folder,
                                          std::u16string_view relative);

/// The file of the running program.
std::filesystem::path ProgramFile();

}  // namespace platform
