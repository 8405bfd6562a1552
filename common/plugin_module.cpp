#include "common/plugin_module.h"

namespace oemui {
namespace {

constinit HINSTANCE pluginModule = nullptr;

}  // namespace

HINSTANCE PluginModule() {
    return pluginModule;
}

void RecordPluginModule(HINSTANCE module) {
    pluginModule = module;
}

}  // namespace oemui
