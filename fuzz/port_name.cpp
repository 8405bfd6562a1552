// A port's name: it is classified without reading past its end, and a host comes with a kind.

#include "fuzz/fuzz_machine.h"
#include "fuzz/fuzz_text.h"
#include "printerprops/port_discovery.h"
#include "tests/support/test_printer.h"

extern "C" int LLVMFuzzerInitialize(int*, char***) {
    fuzz::UseMachineInMemory();
    // A machine has its ports; without any the registry is set up anew at each look.
    tests::WriteRegistryText(TEXT("System\\CurrentControlSet\\Control\\Print\\Monitors\\LPR "
                                  "Port\\Ports\\Queue"),
                             TEXT("Server Name"), TEXT("127.0.0.1"));
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* bytes, std::size_t size) {
    fuzz::Text name = fuzz::TextOf(bytes, size);
    oemui::PrinterLink link{};
    oemui::ClassifyPort(name.data(), &link);
    fuzz::Require((link.Found == 1) == oemui::IsNetworkKind(link.Kind));
    return 0;
}
