/// The keys of dialogs: Tab, Enter, Escape, help, arrows in groups, mnemonics.
#pragma once

#include "platform/gui/dialogs/dialog.h"

namespace platform {

/// \param focused  the control that got the key; may be null. \return whether the key is used up.
bool HandleDialogKey(Dialog& dialog, Control* focused, const QKeyEvent& event);
/// The control that the focus is given to at first; may be null.
[[nodiscard]] Control* FirstTabStop(const Dialog& dialog);
/// Moves the focus to the next tab stop after a control (null: from the ends), or before it.
void MoveToTabStop(Dialog& dialog, const Control* from, bool forward);

}  // namespace platform
