/// Help of the watermark editor, from the model's help file in the driver's directory. Nothing is
/// reported when there is none. User-interface thread only.
#pragma once

#include "common/fixed_text.h"

namespace oemui {

using HelpPath = FixedText<MAX_PATH>;

/// Answers `WM_HELP`: pops up the topic of the control asked about.
void ShowControlHelp(HWND dialog, const HELPINFO* request);

/// The Help button: opens the editor's topic.
void ShowEditorHelp(HWND dialog);

/// The topic that is popped up for a control, 1301 to 1305.
[[nodiscard]] DWORD HelpTopicOfControl(int controlId);

/// The help file beside the driver files of the current printer; the default path when the printer
/// cannot be opened.
/// \return false, with the path as it was, when the driver's directory is unknown or path and name
///         do not fit.
[[nodiscard]] bool FindHelpFilePath(HelpPath* path);

/// The help file where driver files are kept when no printer tells.
/// \return false, with the path as it was, when the system does not tell or the path does not fit.
[[nodiscard]] bool DefaultHelpFilePath(HelpPath* path);

}  // namespace oemui
