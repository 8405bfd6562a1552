/// Pages in windows, as the commands open them.
#pragma once

#include <string>

#include "host/page/session.h"

namespace host {

/// Whether there is a screen to show windows on.
[[nodiscard]] bool HasScreen();

/// Shows a page in a window until it is closed. Throws `Failure` without a screen, or when the page
/// cannot be had. \param printerName  UTF-8.
void ShowPageWindow(const std::string& printerName, PageKind kind);

}  // namespace host
