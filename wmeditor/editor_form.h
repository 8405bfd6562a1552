/// How the watermark editor's controls show an entry, and what they say. User-interface thread
/// only.
///
/// Setting the text of an edit from here runs that edit's own handling before the call returns:
/// the platform reports the change at once. Selections and checks set from here report nothing.
#pragma once

#include "wmeditor/editor_session.h"

namespace oemui {

/// Sets every setting control from the edited record, makes it the preview's and paints it.
void ShowEdited(EditorSession& session);

/// Reads the size edit into the edited record and the preview's.
void TakeSize(EditorSession& session);

/// Sets the size edit from the edited record; the preview follows.
void ShowEditedSize(const EditorSession& session);

/// Enables what may be done with the current entry: entry 0 cannot be changed or deleted.
void EnableForCurrentEntry(const EditorSession& session);

/// Takes up the entry that is selected in the watermark list and shows it; nothing without one.
void ShowSelectedEntry(EditorSession& session);

/// Takes up an entry of the list and shows it.
void ShowEntry(EditorSession& session, INT32 index);

/// Enables or disables the settings together, but for the user angle and the offsets, which follow
/// the choices of angle and position.
void EnableSettings(HWND dialog, bool enabled);

/// Enables the user angle when the angle list's selected choice is "User Define".
void EnableUserAngleByChoice(HWND dialog);

/// The edits and up-downs of both offsets.
void EnableOffsets(HWND dialog, bool enabled);

/// The edited record with everything that the controls show read anew; the position stays.
[[nodiscard]] WatermarkRecord RecordInControls(const EditorSession& session);

/// Draws the preview at once.
void RepaintPreview(const EditorSession& session);

}  // namespace oemui
