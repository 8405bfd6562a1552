/// The platform's paths and the files of this system behind them. Look-ups below `C:` ignore case,
/// as the platform's file system does.
#pragma once

#include <filesystem>
#include <initializer_list>
#include <string>
#include <string_view>

namespace platform {

/// The file that a platform path names; an empty path when it names none (no machine, relative
/// path with a drive, unknown drive). A path without drive is taken below the Windows directory.
[[nodiscard]] std::filesystem::path NativePath(std::u16string_view platformPath);

/// The same, empty also when there is no such file.
[[nodiscard]] std::filesystem::path ExistingFile(std::u16string_view platformPath);

/// The platform path under which the plug-in sees a file.
[[nodiscard]] std::u16string PlatformPath(const std::filesystem::path& nativePath);

/// The file or folder that a path below a folder names, each part found in any case. Parts are
/// divided by backslashes or slashes; ".." never leaves the folder. Parts that do not exist are
/// kept as they are spelled, so the result may name what is still to be made.
[[nodiscard]] std::filesystem::path ResolveIgnoringCase(const std::filesystem::path& folder,
                                                        std::u16string_view relative);

/// The file of this name, so resolved, in the first folder that has it; empty when none has. An
/// empty folder has none.
[[nodiscard]] std::filesystem::path FindFile(std::initializer_list<std::filesystem::path> folders,
                                             std::u16string_view name);

/// The file or folder itself, behind all links; empty when it is none of the machine's.
[[nodiscard]] std::filesystem::path IfInside(const std::filesystem::path& file);

/// The file of the running program.
[[nodiscard]] std::filesystem::path ProgramFile();

/// The running program's folder and the current one, as far as they are the machine's; else empty.
[[nodiscard]] std::filesystem::path ProgramFolder();
[[nodiscard]] std::filesystem::path CurrentFolder();

}  // namespace platform
