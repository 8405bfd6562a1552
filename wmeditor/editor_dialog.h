/// The watermark editor: a modal dialog in which the watermarks of one printer are made, changed,
/// deleted and chosen.
#pragma once

#include <windows.h>

namespace oemui {

/// Dialog procedure of template `IDD_WATERMARK_EDITOR`. The creation parameter of
/// `DialogBoxParamW` is a pointer to the caller's `WatermarkList`, which must outlive the dialog.
/// Its contents are not trusted: a count or selection outside the list never becomes an index.
///
/// The dialog ends with 1 after OK: the list has been stored as the current printer's, as far as
/// the printer allowed, and written back into the caller's list. It ends with 0 after Cancel:
/// nothing stored, the caller's list untouched. On the thread that runs the dialog.
///
/// Of several editors in a process only the one opened last can be worked with; OK and Cancel close
/// the others with 0, and nothing is stored after a dialog's window has gone.
INT_PTR CALLBACK WatermarkEditorProc(HWND dialog, UINT message, WPARAM first,
                                     LPARAM second) noexcept;

}  // namespace oemui
