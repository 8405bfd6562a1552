/// The Qt application under dialogs and drawing.
#pragma once

class QStyle;

namespace platform {

/// Makes the process's QApplication at the first call unless the host has made one already; without
/// a display it draws off the screen. The thread of the first call is the user-interface thread.
void EnsureApplication();

/// The one look of dialogs and message boxes, whatever the host's own.
QStyle* DialogStyle();

}  // namespace platform
