/// Pictures of windows. For the user-interface thread only.
#pragma once

#include <windef.h>

#include <filesystem>

class QPixmap;
class QWidget;

namespace platform {

/// Draws a dialog, one control or any widget as it looks now into a PNG file; an open list is not
/// part of it. False when the handle is wrong or the file cannot be written; what was there under
/// its name is then as it was, and never half a picture.
[[nodiscard]] bool SavePicture(HWND window, const std::filesystem::path& file);
[[nodiscard]] bool SavePicture(QWidget& widget, const std::filesystem::path& file);
[[nodiscard]] bool SavePicture(const QPixmap& picture, const std::filesystem::path& file);

}  // namespace platform
