// A module that remembers how its entry was called.

#include <windows.h>

namespace {

HINSTANCE attached = nullptr;

}  // namespace

// Tells of its going through the last error; refuses to run when the last error says so.
extern "C" __attribute__((visibility("hidden"))) BOOL WINAPI DllMain(HINSTANCE module, DWORD reason,
                                                                     LPVOID) {
    if (reason == DLL_PROCESS_DETACH) SetLastError(4711);
    if (reason != DLL_PROCESS_ATTACH) return TRUE;
    attached = module;
    return GetLastError() == 4712 ? FALSE : TRUE;
}

extern "C" __attribute__((visibility("default"))) HINSTANCE AttachedAs() {
    return attached;
}
