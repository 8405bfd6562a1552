/// What the watermark editor works on. Module-wide, because only one editor is open at a time in a
/// process; read and written on the thread that runs the dialog, without a lock. Everything but
/// `LastPresetAngle` is set anew at each opening.
#pragma once

#include "watermark/default_watermarks.h"

namespace oemui {

/// The list as it was when the dialog opened, after defaults were loaded; Cancel brings it back.
inline WatermarkList OpeningWatermarkList{};

/// The editor's window from its opening until OK or Cancel; null while no editor is open. Message
/// boxes leave the editor usable, so it may be another one, or none, after a box has been answered.
inline HWND EditorWindow = nullptr;

/// The caller's list, written back at OK; null while no editor is open.
inline WatermarkList* CallerWatermarkList = nullptr;

/// The settings of the entry being edited or added, as the controls show them.
inline WatermarkRecord EditedWatermark{};

/// What the preview draws; kept in step with `EditedWatermark` field by field.
inline WatermarkRecord PreviewWatermark{};

/// The entry being edited, 0..15.
inline INT32 CurrentIndex = 0;

/// 1 between New and the end of the dialog.
inline UINT32 AddingNew = 0;

/// The last of horizontal, diagonal and vertical (0..2) chosen in the angle list since the module
/// was loaded.
inline INT32 LastPresetAngle = 0;

/// The caller's page orientation: 2 landscape, anything else portrait.
inline UINT32 PreviewOrientation = 0;

/// Whether an index names an entry of the list being edited.
inline bool IsListed(INT32 index) {
    return index >= 0 && index < WorkingWatermarkList.Count && index < kWatermarkCapacity;
}

}  // namespace oemui
