// Makes the shared object it is linked into a module of the platform: embeds the compiled resources
// and calls the module's entry when it is mapped and unmapped.

#include <windows.h>

#include "platform/modules/modules.h"

// The resources lie in the module as the resource compiler wrote them, in a section of their own:
// there they are found without mapping the module.
asm(R"(
    .section .rsrc, "a"
    .balign 8
    .hidden module_resources_begin
    .hidden module_resources_end
    .global module_resources_begin
module_resources_begin:
    .incbin ")" MODULE_RESOURCES R"("
    .global module_resources_end
module_resources_end:
    .byte 0
    .previous
)");

extern "C" __attribute__((visibility("hidden"))) const unsigned char module_resources_begin[];
extern "C" __attribute__((visibility("hidden"))) const unsigned char module_resources_end[];

// A module of resources alone has no entry.
extern "C" __attribute__((weak)) BOOL WINAPI DllMain(HINSTANCE module, DWORD reason,
                                                     LPVOID reserved);

namespace {

struct Registration {
    Registration() { platform::AttachModule(image); }
    ~Registration() { platform::DetachModule(image); }

    platform::ModuleImage image = {
        module_resources_begin,
        static_cast<std::size_t>(module_resources_end - module_resources_begin),
        module_resources_begin, &DllMain};
};

// The last to be made and the first to go, so that the entry finds the module's own objects alive.
// NOLINTNEXTLINE(cert-err58-cpp): a failure to register would be a failure to load.
__attribute__((init_priority(65535))) Registration registration;

}  // namespace
