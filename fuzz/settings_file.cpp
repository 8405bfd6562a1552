// The model's settings file, and with it the layer's reader of such files: what comes out of it
// ends within its room, and a program is started only by a command line that fits.

#include <filesystem>
#include <fstream>

#include "common/model_identity.h"
#include "fuzz/fuzz_machine.h"
#include "fuzz/fuzz_text.h"
#include "install/uninstaller.h"
#include "platform/base/machine.h"
#include "tests/support/plugin_fixture.h"

extern "C" int LLVMFuzzerInitialize(int*, char***) {
    fuzz::UseMachineInMemory();
    tests::LoadPlugin();
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* bytes, std::size_t size) {
    static const std::filesystem::path file =
        platform::MachineFolder() / "Windows" / oemui::Model().SettingsFile;
    std::ofstream(file, std::ios::binary)
        .write(reinterpret_cast<const char*>(bytes), static_cast<std::streamsize>(size));
    const oemui::ProgramName program = oemui::UninstallerName();
    fuzz::Require(program.View().size() < MAX_PATH);
    const auto command = oemui::BuildUninstallCommand(program.View(), TEXT("QVRT_UNI.INI"));
    fuzz::Require(command.empty() == (program.empty() || program.View().size() > 249));
    static_cast<void>(::GetPrivateProfileIntW(TEXT("EAIDCData"), TEXT("EAIDCDisable"), 1,
                                              oemui::Model().SettingsFile));
    return 0;
}
