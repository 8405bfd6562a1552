/// Pictures of windows. For the user-interface thread only.
#pragma once

#include <windef.h>

#include <filesystem>

class QWidget;

namespace platform {

/// Draws a dialog, one control or any widget as it looks now into a PNG file; an open list is not
/// part of it. False when the handle is wrong or the file cannot be written.
[[nodiscard]] bool SavePicture(HWND window, const std::filesystem::path& file);
[[nodiscard]] bool SavePicture(QWidget& widget, const std::filesystem::path& file);

}  // namespace platform
