/// The modules that are mapped, by their handles. A module is a shared object with resources, which
/// the glue linked into it makes known.
#pragma once

#include <windef.h>

#include <cstddef>

namespace platform {

/// One loaded module; its address is the module handle.
struct ModuleImage {
    const unsigned char* resources;  ///< binary resources, the format of a .res file
    std::size_t resourcesSize;       ///< bytes
    const void* codeAddress;         ///< any address inside the module, to find its file
    BOOL(WINAPI* entry)(HINSTANCE, DWORD, LPVOID);  ///< `DllMain`, or null
};

/// Called when the module is mapped, before anything else of it runs: registers it and calls its
/// entry with DLL_PROCESS_ATTACH.
void AttachModule(ModuleImage& image);

/// Called when the module is about to go: calls its entry with DLL_PROCESS_DETACH and forgets it.
void DetachModule(ModuleImage& image);

/// The module behind a handle; with a null handle the program itself. Null when the handle is no
/// module's, or the program has no resources of its own. Valid until the module is unmapped.
[[nodiscard]] const ModuleImage* FindModule(HINSTANCE module);

}  // namespace platform
