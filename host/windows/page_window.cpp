#include "host/windows/page_window.h"

#include <QGuiApplication>

#include "host/errors/failure.h"
#include "host/windows/lost_display.h"
#include "host/windows/property_sheet.h"
#include "platform/gui/windows/application.h"

namespace host {

bool HasScreen() {
    platform::EnsureApplication();
    return QGuiApplication::platformName() != "offscreen";
}

void ShowPageWindow(const std::string& printerName, PageKind kind) {
    if (!HasScreen()) {
        throw Failure("there is no display to open a window on; without --window the page is text");
    }
    const LostDisplayNotice notice;
    static_cast<void>(PropertySheet(printerName, kind).Run());
}

}  // namespace host
