/// The help viewer of the windows user. For the user-interface thread only.
#pragma once

#include <filesystem>

#include "platform/user/user.h"

namespace platform {

/// Shows a topic and comes back at once: HELP_CONTEXTPOPUP as a note near the mouse or the control
/// with the focus, which goes at the next click or key; any other command as a window of its own,
/// which Escape closes. Neither is larger than the screen: what does not fit scrolls. Both go with
/// their owner. A missing file or topic is told in the same way.
void ShowHelp(const HelpRequest& request);

/// Draws what `ShowHelp` would show into a PNG file; false when the file cannot be written.
[[nodiscard]] bool SaveHelpPicture(const HelpRequest& request, const std::filesystem::path& file);

}  // namespace platform
