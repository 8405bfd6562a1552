#include "platform/gui/application.h"

#include <QApplication>
#include <QStyleFactory>

namespace platform::gui {
namespace {

void ChooseScreen() {
    const bool hasDisplay =
        qEnvironmentVariableIsSet("DISPLAY") || qEnvironmentVariableIsSet("WAYLAND_DISPLAY");
    if (!hasDisplay && !qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) {
        qputenv("QT_QPA_PLATFORM", "offscreen");
    }
}

}  // namespace

void EnsureApplication() {
    if (QCoreApplication::instance() != nullptr) return;
    ChooseScreen();
    static int argumentCount = 1;
    static char program[] = "oemui";
    static char* arguments[] = {program, nullptr};
    // Never deleted: the window system's own libraries may be gone before static objects are.
    static auto* const application = new QApplication(argumentCount, arguments);
    application->setQuitOnLastWindowClosed(false);
}

QStyle* Style() {
    static QStyle* const style = QStyleFactory::create(QStringLiteral("Fusion"));
    return style;
}

}  // namespace platform::gui
