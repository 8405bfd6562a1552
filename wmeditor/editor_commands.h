/// The commands of the watermark editor. User-interface thread, inside the dialog's modal loop.
#pragma once

#include <windows.h>

namespace oemui {

/// Handles a command of any control; none once the dialog has ended.
/// \param notification  the control's notification code.
/// \return whether the command ended the dialog.
bool HandleEditorCommand(HWND dialog, int controlId, UINT notification);

/// Ends the dialog. Commands that come after, such as the focus leaving a control, do nothing.
void FinishEditor(HWND dialog, INT_PTR result);

/// Shows a message box from the string table, below which the editor stays usable.
/// \return the button's ID; 0 when the editor has been closed or taken to another entry meanwhile,
///         so that the answer is about nothing any more, and when the box cannot be shown.
int AskInEditor(HWND dialog, UINT textId, UINT captionId, UINT type);

/// OK: checks a new watermark, asks before settings are overwritten, stores the list as the
/// printer's, writes it back to the caller and ends the dialog with 1. Tells the user what is wrong
/// or has failed. Nothing is done when the editor is closed while the user is asked.
/// \return whether the dialog ended.
bool ConfirmEditor(HWND dialog);

}  // namespace oemui
