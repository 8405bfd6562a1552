/// OK in the watermark editor.
#pragma once

#include "wmeditor/editor_session.h"

namespace oemui {

/// OK: checks a new watermark, asks before settings are overwritten, stores the list as the
/// printer's, writes it back to the caller and ends the dialog with 1. Tells the user what is wrong
/// or has failed. Nothing is done when the editor is closed while the user is asked.
void ConfirmEditor(EditorSession& session);

}  // namespace oemui
