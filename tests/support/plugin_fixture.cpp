#include "tests/support/plugin_fixture.h"

#include <algorithm>
#include <fstream>

#include "common/current_printer.h"
#include "common/model_identity.h"
#include "common/plugin_module.h"
#include "tests/support/test_machine.h"

namespace tests {

std::string Narrow(std::basic_string_view<WCHAR> text) {
    std::string narrow(text.size(), '?');
    std::transform(text.begin(), text.end(), narrow.begin(), [](WCHAR character) {
        return character < 0x80 ? static_cast<char>(character) : '?';
    });
    return narrow;
}

std::basic_string<WCHAR> Wide(std::string_view text) {
    return {text.begin(), text.end()};
}

void BecomeModel(char letter) {
    oemui::DeriveModelIdentity(Wide(std::string("C:\\driver\\QVR") + letter + "__UI.DLL"));
}

PluginTest::PluginTest() {
    EnterFreshMachine();
    oemui::RecordPluginModule(::GetModuleHandleW(nullptr));
    BecomeModel('T');
    oemui::CurrentPrinterName = nullptr;
    oemui::PreviewPaperSize = {};
}

PluginTest::~PluginTest() {
    EXPECT_EQ(LeaveMachine(), "") << "left open";
}

void WriteIniFile(std::basic_string_view<WCHAR> name, std::string_view content) {
    std::ofstream(WindowsFolder() / Narrow(name), std::ios::binary) << content;
}

}  // namespace tests
