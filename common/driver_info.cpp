#include "common/driver_info.h"

#include "common/heap_text.h"

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

/// Puts the path of a file into `path`, room for 260 characters, in the directory of the driver's
/// file.
/// \return the path's length; 0 when the driver's path has no directory or the file no name.
std::size_t ComposeHelpFilePath(TextView driverPath, HINSTANCE module, UINT textId, PWSTR path) {
    const TextView fitting = driverPath.substr(0, kMessageCapacity - 1);
    const std::size_t backslash = fitting.rfind(TEXT('\\'));
    if (backslash == TextView::npos) return 0;
    const std::size_t directory = backslash + 1;
    std::copy_n(fitting.data(), directory, path);
    const int fileName = ::LoadStringW(module, textId, path + directory,
                                       static_cast<int>(kMessageCapacity - directory));
    return fileName > 0 ? directory + static_cast<std::size_t>(fileName) : 0;
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
    auto* path =
        static_cast<PWSTR>(::HeapAlloc(heap, HEAP_ZERO_MEMORY, kMessageCapacity * sizeof(WCHAR)));
    PBYTE info = path == nullptr ? nullptr : QueryDriverInfo(heap, printer, 2);
    const LPCWSTR driverPath =
        info == nullptr ? nullptr : reinterpret_cast<const DRIVER_INFO_2W*>(info)->pDriverPath;
    const std::size_t length =
        driverPath == nullptr ? 0 : ComposeHelpFilePath(driverPath, module, textId, path);
    PWSTR shrunk = length == 0 ? nullptr : ShrinkText(heap, path, length);
    FreeBlock(heap, info);
    if (shrunk == nullptr) FreeBlock(heap, path);
    return shrunk;
}

}  // namespace oemui
