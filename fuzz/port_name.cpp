// A port's name: it is classified without reading past its end, and a host comes with a kind.

#include "fuzz/fuzz_text.h"
#include "printerprops/port_discovery.h"
#include "tests/support/test_machine.h"

extern "C" int LLVMFuzzerInitialize(int*, char***) {
    static const tests::TestMachine machine;
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* bytes, std::size_t size) {
    fuzz::Text name = fuzz::TextOf(bytes, size);
    oemui::PrinterLink link{};
    oemui::ClassifyPort(name.data(), &link);
    fuzz::Require((link.Found == 1) == oemui::IsNetworkKind(link.Kind));
    return 0;
}
