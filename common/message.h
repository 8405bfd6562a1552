/// Message boxes.
#pragma once

#include <windows.h>

namespace oemui {

/// Shows a message box without owner, text and caption from the string table of the plug-in's
/// module (at most 259 characters each).
/// \param type  MB_OK, MB_OKCANCEL or MB_YESNO.
/// \return the button, or 0 when the box could not be shown.
int ShowMessage(UINT textId, UINT captionId, UINT type);

/// The same for a text that is at hand, such as one with a number or a name put in.
int ShowMessageText(LPCWSTR text, UINT captionId, UINT type);

}  // namespace oemui
