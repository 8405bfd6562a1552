#include "tests/sessions/stage.h"

#include "platform/gui/dialogs/hands.h"
#include "tests/support/test_printer.h"

namespace sessions {

/// A page whose diagonal has 45 degrees: the third party cannot measure the page of a driver that
/// is not there, and the plug-in then takes that.
void PreparePrinter(const tests::Text& name) {
    DEVMODEW devmode{};
    devmode.dmSize = sizeof devmode;
    devmode.dmFields = DM_PAPERLENGTH | DM_PAPERWIDTH;
    devmode.dmPaperWidth = 2000;
    devmode.dmPaperLength = 2020;  // 45.3 degrees, and whole ones are kept
    tests::WriteRegistryValue(TEXT("System\\CurrentControlSet\\Control\\Print\\Printers\\") + name,
                              TEXT("Default DevMode"), REG_BINARY, &devmode, sizeof devmode);
}

// The third party looks for each letter by itself.
void PrepareEditor(HWND) {
    platform::hands::TypeSlowly();
}

}  // namespace sessions
