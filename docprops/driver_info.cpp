#include "docprops/driver_info.h"

#include "docprops/item_text.h"

namespace oemui {
namespace {

constexpr int kDriverInfoAttempts = 5;

/// Grows the block, or allocates it when there is none; the old block stays on failure.
PBYTE ResizeBlock(HANDLE heap, PBYTE block, DWORD size) {
    void* resized = block == nullptr ? ::HeapAlloc(heap, HEAP_ZERO_MEMORY, size)
                                     : ::HeapReAlloc(heap, HEAP_ZERO_MEMORY, block, size);
    return static_cast<PBYTE>(resized);
}

void FreeBlock(HANDLE heap, void* block) {
    if (block != nullptr) ::HeapFree(heap, 0, block);
}

/// Puts the path of a file into `path`, in the directory of the driver's file.
/// \return whether the driver's path has a directory and the file a name.
bool ComposeHelpFilePath(LPCWSTR driverPath, HINSTANCE module, UINT textId,
                         WCHAR (&path)[kMessageCapacity]) {
    CopyText(path, driverPath);
    const std::size_t backslash = TextIn(path).rfind(TEXT('\\'));
    if (backslash == TextView::npos) return false;
    const std::size_t directory = backslash + 1;
    return ::LoadStringW(module, textId, path + directory,
                         static_cast<int>(kMessageCapacity - directory)) > 0;
}

}  // namespace

PBYTE QueryDriverInfo(HANDLE heap, HANDLE printer, DWORD level) {
    PBYTE info = nullptr;
    DWORD size = 0;
    for (int attempt = 0; attempt < kDriverInfoAttempts; ++attempt) {
        DWORD needed = 0;
        if (::GetPrinterDriverW(printer, nullptr, level, info, size, &needed)) return info;
        if (::GetLastError() != ERROR_INSUFFICIENT_BUFFER) continue;
        PBYTE resized = ResizeBlock(heap, info, needed);
        if (resized == nullptr) break;
        info = resized;
        size = needed;
    }
    FreeBlock(heap, info);
    return nullptr;
}

PWSTR BuildHelpFilePath(HANDLE printer, HANDLE heap, HINSTANCE module, UINT textId) {
    PBYTE info = QueryDriverInfo(heap, printer, 2);
    if (info == nullptr) return nullptr;
    WCHAR path[kMessageCapacity];
    const LPCWSTR driverPath = reinterpret_cast<const DRIVER_INFO_2W*>(info)->pDriverPath;
    const bool composed =
        driverPath != nullptr && ComposeHelpFilePath(driverPath, module, textId, path);
    FreeBlock(heap, info);
    return composed ? CopyToHeap(heap, TextIn(path)) : nullptr;
}

}  // namespace oemui
