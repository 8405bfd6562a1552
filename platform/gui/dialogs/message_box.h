/// Message boxes. For the user-interface thread only.
#pragma once

#include <filesystem>
#include <vector>

#include "platform/user/user.h"

namespace platform {

/// Shows a box and waits. \return the ID of the button; closing the box or Escape is the only
/// button, or Cancel; a box of Yes and No cannot be closed.
int ShowMessageBox(const MessageBoxRequest& request);

/// Draws what `ShowMessageBox` would show into a PNG file; false when it cannot be written.
[[nodiscard]] bool SaveMessageBoxPicture(const MessageBoxRequest& request,
                                         const std::filesystem::path& file);

/// The buttons of a type, in their order.
[[nodiscard]] std::vector<int> MessageBoxButtons(UINT type);

}  // namespace platform
