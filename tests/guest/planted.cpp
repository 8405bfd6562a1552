// Stands where a library or a program of the driver's is looked for, and leaves a mark when any of
// it runs: 'L' the library, 'P' the program.
#include <windows.h>

#include <cstdio>
#include <cstdlib>

namespace {

void LeaveMark(char mark) {
    const char* path = std::getenv("PLANTED_MARK");
    std::FILE* file = path == nullptr ? nullptr : std::fopen(path, "a");
    if (file == nullptr) return;
    std::fputc(mark, file);
    std::fclose(file);
}

}  // namespace

extern "C" BOOL WINAPI DllMain(HINSTANCE, DWORD reason, LPVOID) {
    if (reason == DLL_PROCESS_ATTACH) LeaveMark('L');
    return TRUE;
}

int main() {
    LeaveMark('P');
}
