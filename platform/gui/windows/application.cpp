#include "platform/gui/windows/application.h"

#include <QApplication>
#include <QLocale>
#include <QStyleFactory>

namespace platform {
namespace {

// A display that is named but does not answer counts as none.
void ChooseScreen() {
    if (qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) return;
    const char* screens = "offscreen";
    if (qEnvironmentVariableIsSet("WAYLAND_DISPLAY")) screens = "wayland;offscreen";
    if (qEnvironmentVariableIsSet("DISPLAY")) screens = "xcb;offscreen";
    qputenv("QT_QPA_PLATFORM", screens);
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
    // The texts are English: numbers in fields have the digits and signs of those in texts.
    QLocale::setDefault(QLocale::c());
}

QStyle* DialogStyle() {
    static QStyle* const style = QStyleFactory::create(QStringLiteral("Fusion"));
    return style;
}

}  // namespace platform
