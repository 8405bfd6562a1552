/// The window in front. For the user-interface thread only.
#pragma once

class QWidget;

namespace platform {

/// Makes a window on the screen the active one and waits until it is, for 200 ms at most: the
/// window system may refuse. Typing, clicks and timers stay for later.
void Activate(QWidget& window);

}  // namespace platform
