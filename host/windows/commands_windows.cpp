// pictures, and pages in windows.
#include <QGuiApplication>
#include <memory>
#include <ostream>

#include "host/commands.h"
#include "host/failure.h"
#include "host/windows/page_pictures.h"
#include "host/windows/page_window.h"
#include "host/windows/property_sheet.h"
#include "platform/gui/windows/application.h"

namespace host {

bool HasScreen() {
    platform::gui::EnsureApplication();
    return QGuiApplication::platformName() != "offscreen";
}

void ShowPageWindow(const std::string& printerName, PageKind kind) {
    if (!HasScreen()) {
        throw Failure("there is no display to open a window on; without --window the page is text");
    }
    PropertySheet(printerName, kind).Run();
}

void AddPicturesCommand(CLI::App& app, CommandContext& context) {
    CLI::App* command = app.add_subcommand("pictures", "write pictures of every window as PNG");
    auto folder = std::make_shared<std::string>();
    command->add_option("folder", *folder, "folder for the pictures")->required();
    command->callback([folder, &context] { SavePictures(*folder, context.source, context.out); });
}

}  // namespace host
