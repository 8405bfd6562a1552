#include <cstdlib>
#include <iostream>

#include "host/commands/commands.h"

int main(int count, char** arguments) {
    // The standard error stream is for the plug-in's messages; what the window library has to say
    // about a missing display is of no use in a terminal.
    ::setenv("QT_LOGGING_RULES", "*.warning=false;qt.qpa.plugin.info=false", 0);
    return host::RunHost({arguments + 1, arguments + count}, std::cout, std::cerr,
                         host::OwnPackageSource());
}
