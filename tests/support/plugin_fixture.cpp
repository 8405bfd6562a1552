#include "tests/support/plugin_fixture.h"

#include "common/current_printer.h"
#include "common/model_identity.h"
#include "common/plugin_module.h"

namespace tests {

void BecomeModel(char letter) {
    oemui::DeriveModelIdentity(Wide(std::string("C:\\driver\\QVR") + letter + "__UI.DLL"));
}

void LoadPlugin() {
    oemui::RecordPluginModule(::GetModuleHandleW(nullptr));
    BecomeModel('T');
    oemui::SetCurrentPrinter(nullptr);
    oemui::PreviewPaperSize = {};
}

PluginTest::PluginTest() {
    LoadPlugin();
}

}  // namespace tests
