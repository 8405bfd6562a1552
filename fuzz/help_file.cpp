// A help file: a topic's text is no longer than the viewer takes.

#include <filesystem>
#include <fstream>

#include "fuzz/fuzz_machine.h"
#include "fuzz/fuzz_text.h"
#include "platform/base/machine.h"
#include "platform/gui/help/help_file.h"

extern "C" int LLVMFuzzerInitialize(int*, char***) {
    fuzz::UseMachineInMemory();
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* bytes, std::size_t size) {
    static const std::filesystem::path file = platform::MachineFolder() / "Windows" / "any.hlp";
    std::ofstream(file, std::ios::binary)
        .write(reinterpret_cast<const char*>(bytes), static_cast<std::streamsize>(size));
    for (const DWORD topic : {DWORD{0}, DWORD{1114}}) {
        fuzz::Require(platform::ReadHelpTopic(file, topic).size() <= 16384);
    }
    return 0;
}
