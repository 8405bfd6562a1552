/// A handle for a window of the host's, so that dialogs and message boxes can be owned by it.
#pragma once

#include "platform/gui/windows/window.h"

namespace platform {

/// Lives no longer than the widget.
class OwnerWindow : public Window {
public:
    explicit OwnerWindow(QWidget& widget) : Window(WindowKind::kOwner, nullptr, 0) {
        Adopt(&widget);
    }
};

}  // namespace platform
