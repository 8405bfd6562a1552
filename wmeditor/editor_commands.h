/// The commands of the watermark editor. User-interface thread, inside the dialog's modal loop.
#pragma once

#include <windows.h>

namespace oemui {

/// Handles a command of any control.
/// \param notification  the control's notification code.
/// \return whether the command ended the dialog.
bool HandleEditorCommand(HWND dialog, int controlId, UINT notification);

/// OK: checks a new watermark, asks before settings are overwritten, stores the list as the
/// printer's, writes it back to the caller and ends the dialog with 1. Tells the user what is wrong
/// or has failed. \return whether the dialog ended.
bool ConfirmEditor(HWND dialog);

}  // namespace oemui
