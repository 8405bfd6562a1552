#include "host/windows/lost_display.h"

#include <QString>
#include <cstdlib>
#include <iostream>

namespace host {
namespace {

bool watching = false;
QtMessageHandler messagesBefore = nullptr;

// Without the way through other ends of the process, which may wait for the display.
void EndIfWatching() {
    if (!watching) return;
    std::cerr << "driverhost: the display has gone; what was not applied is lost" << std::endl;
    std::_Exit(EXIT_FAILURE);
}

// Some kinds of display end with the process's own exit, others with a fatal message.
void TakeMessage(QtMsgType type, const QMessageLogContext& context, const QString& text) {
    if (type == QtFatalMsg) EndIfWatching();
    if (messagesBefore != nullptr) messagesBefore(type, context, text);
}

}  // namespace

LostDisplayNotice::LostDisplayNotice() {
    static const bool registered = std::atexit(EndIfWatching) == 0;
    watching = registered;
    messagesBefore = qInstallMessageHandler(TakeMessage);
}

LostDisplayNotice::~LostDisplayNotice() {
    watching = false;
    qInstallMessageHandler(messagesBefore);
}

}  // namespace host
