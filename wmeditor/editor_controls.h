/// How the watermark editor's controls show an entry. User-interface thread only.
///
/// Setting the text of an edit from here runs that edit's own handling before the call returns:
/// the platform reports the change at once. Selections and checks set from here report nothing.
#pragma once

#include "watermark/watermark_list.h"

namespace oemui {

/// Sets every setting control from the record, makes the record the preview's and paints it.
/// \param shown  may be `EditedWatermark` itself; a copy of it is shown.
/// \param firstFill  also fills the lists of typefaces, colours and angles.
void FillEditorControls(HWND dialog, const WatermarkRecord& shown, bool firstFill);

/// Enables or disables the settings together, but for the user angle and the offsets, which follow
/// the choices of angle and position.
void EnableSettingControls(HWND dialog, bool enabled);

/// The user angle's edit, up-down and label.
void EnableUserAngle(HWND dialog, bool enabled);

/// The edits and up-downs of both offsets.
void EnableOffsets(HWND dialog, bool enabled);

/// Enables the user angle when the angle list's selected choice is "User Define".
void EnableUserAngleByChoice(HWND dialog);

/// Called once for every font family; adds those that can be scaled or come from the device to the
/// typeface list. \param dialog  the editor's window. \return 1: the enumeration goes on.
int CALLBACK AddFontFamilyToList(const LOGFONTW* font, const TEXTMETRICW* metrics, DWORD fontType,
                                 LPARAM dialog);

/// Gives a diagonal entry the angle of the current printer's page; other entries stay.
void RefreshDiagonalAngle(WatermarkRecord* entry);

/// The angle of the current printer's page diagonal in whole degrees.
INT32 WholeDiagonalDegrees();

/// Makes an entry the edited one and enables what may be done with it. Entry 0 cannot be changed.
/// \param index  a listed index; with an empty list 0, which then stands for a cleared record.
void TakeUpEntry(HWND dialog, INT32 index);

/// Copies an entry of the working list into `EditedWatermark`; a cleared record when the index is
/// not listed.
void EditEntry(INT32 index);

/// Shows the entry that is selected in the watermark list, the first one when there is none.
/// Settings of the entry shown before that were not confirmed are dropped.
void ShowSelectedEntry(HWND dialog);

/// Draws the preview at once.
void Repaint(HWND dialog);

/// Enables or disables one control, if the dialog has it.
void EnableControl(HWND dialog, int controlId, bool enabled);

/// Reads a control's text, cut to the array. A text that cannot be read leaves the array as it is.
template <std::size_t Capacity>
void ReadText(HWND dialog, int controlId, WCHAR (&text)[Capacity]) {
    const HWND control = ::GetDlgItem(dialog, controlId);
    if (control == nullptr) return;
    WCHAR read[Capacity] = {};
    const int length = ::GetWindowTextW(control, read, static_cast<int>(Capacity));
    if (length == 0 && ::GetWindowTextLengthW(control) > 0) return;
    CopyText(text, TextIn(read));
}

/// Shows a number with its sign in an edit.
void SetSignedNumber(HWND dialog, int editId, INT32 number);

/// The selected position of a list; -1 without a selection.
INT32 SelectedPosition(HWND dialog, int listId);

/// Selects an item of a list; clears the selection when the position is not below the count.
void SelectPosition(HWND dialog, int listId, UINT32 position, UINT32 count);

}  // namespace oemui
