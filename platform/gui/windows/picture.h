/// Pictures of windows. For the user-interface thread only.
#pragma once

#include <windef.h>

#include <filesystem>

namespace platform {

/// Draws a dialog, or one control, as it looks now into a PNG file; an open list is not part of it.
/// False when the handle is wrong or the file cannot be written.
bool SavePicture(HWND window, const std::filesystem::path& file);

}  // namespace platform
