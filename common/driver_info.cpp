#include "common/driver_info.h"

#include "common/file_name.h"
#include "common/page_heap.h"

namespace oemui {

HeapBlock QueryDriverInfo(HANDLE heap, HANDLE printer, DWORD level) {
    constexpr int kAttempts = 5;
    HeapBlock info(heap);
    DWORD size = 0;
    for (int attempt = 0; attempt < kAttempts; ++attempt) {
        DWORD needed = 0;
        if (::GetPrinterDriverW(printer, nullptr, level, info.Bytes(), size, &needed)) return info;
        if (::GetLastError() != ERROR_INSUFFICIENT_BUFFER) continue;
        if (!info.Resize(needed)) break;
        size = needed;
    }
    return HeapBlock(heap);
}

PWSTR BuildHelpFilePath(HANDLE printer, HANDLE heap, HINSTANCE module, UINT textId) {
    constexpr std::size_t kLongestPath = 259;
    const HeapBlock info = QueryDriverInfo(heap, printer, 2);
    if (!info) return nullptr;
    const LPCWSTR driver = info.As<DRIVER_INFO_2W>().pDriverPath;
    if (driver == nullptr) return nullptr;
    const TextView directory = DirectoryOf(TextView(driver).substr(0, kLongestPath));
    if (directory.empty()) return nullptr;
    const MessageText file(textId, module);
    const TextView name = file.View().substr(0, kLongestPath - directory.size());
    return name.empty() ? nullptr : CopyToHeap(heap, {directory, name});
}

}  // namespace oemui
