/// The setting controls of the watermark editor: each changes the watermark being edited, and the
/// preview follows at once. User-interface thread only.
#pragma once

#include "wmeditor/editor_session.h"

namespace oemui {

/// Handles a command of a setting control. The handling runs on every notification of a control
/// but the size edit, where change and loss of the focus differ.
/// \return false when the control is not one of the settings.
[[nodiscard]] bool HandleSettingCommand(EditorSession& session, int controlId, UINT notification);

}  // namespace oemui
