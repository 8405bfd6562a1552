// A module that remembers how its entry was called.

#include <windows.h>

namespace {

HINSTANCE attached = nullptr;
WCHAR ownFile[MAX_PATH];

}  // namespace

// Tells of its going through the last error; refuses to run when the last error says so.
extern "C" __attribute__((visibility("hidden"))) BOOL WINAPI DllMain(HINSTANCE module, DWORD reason,
                                                                     LPVOID) {
    if (reason == DLL_PROCESS_DETACH) SetLastError(4711);
    if (reason != DLL_PROCESS_ATTACH) return TRUE;
    const bool refuses = GetLastError() == 4712;
    attached = module;
    // The entry may ask about its module before the call that loads it is over.
    GetModuleFileNameW(module, ownFile, MAX_PATH);
    return refuses ? FALSE : TRUE;
}

extern "C" __attribute__((visibility("default"))) HINSTANCE AttachedAs() {
    return attached;
}

extern "C" __attribute__((visibility("default"))) LPCWSTR OwnFile() {
    return ownFile;
}
