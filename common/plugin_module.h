/// The plug-in's own module: where its strings and its dialog come from.
#pragma once

#include <windows.h>

namespace oemui {

/// The handle recorded when the module was attached; null before that. Any thread.
HINSTANCE PluginModule();

/// Records the handle. Called by the module's entry point before anything else of the module runs.
void RecordPluginModule(HINSTANCE module);

}  // namespace oemui
