// A port's name: it is classified without reading past its end, and a host comes with a kind.

#include <filesystem>

#include "fuzz/fuzz_text.h"
#include "platform/base/machine.h"
#include "printerprops/port_discovery.h"

extern "C" int LLVMFuzzerInitialize(int*, char***) {
    platform::UseMachine(std::filesystem::temp_directory_path() / "oemui-fuzz-port-name");
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* bytes, std::size_t size) {
    fuzz::Text name = fuzz::TextOf(bytes, size);
    oemui::PrinterLink link{};
    oemui::ClassifyPort(name.data(), &link);
    fuzz::Require((link.Found == 1) == oemui::IsNetworkKind(link.Kind));
    return 0;
}
