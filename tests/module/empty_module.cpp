// The floor for the time that loading a module takes: one with nothing in it.
#include <windows.h>

BOOL WINAPI DllMain(HINSTANCE, DWORD, LPVOID) {
    return TRUE;
}
