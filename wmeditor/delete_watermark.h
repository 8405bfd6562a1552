/// Deletion of a watermark in the editor.
#pragma once

#include "wmeditor/editor_session.h"

namespace oemui {

/// Delete: removes the current entry from the list being edited once the user agrees, and shows the
/// one before it. Cancel is then disabled until the next command. Entry 0 is never deleted.
void DeleteCurrentWatermark(EditorSession& session);

}  // namespace oemui
