#include "common/heap_text.h"

namespace oemui {

PWSTR LoadItemText(HANDLE heap, HINSTANCE module, UINT textId) {
    auto* block =
        static_cast<PWSTR>(::HeapAlloc(heap, HEAP_ZERO_MEMORY, kMessageCapacity * sizeof(WCHAR)));
    if (block == nullptr) return nullptr;
    const int length = ::LoadStringW(module, textId, block, static_cast<int>(kMessageCapacity));
    if (length <= 0) {
        ::HeapFree(heap, 0, block);
        return nullptr;
    }
    PWSTR shrunk = ShrinkText(heap, block, static_cast<std::size_t>(length));
    return shrunk != nullptr ? shrunk : block;
}

PWSTR ShrinkText(HANDLE heap, PWSTR block, std::size_t length) {
    return static_cast<PWSTR>(
        ::HeapReAlloc(heap, HEAP_ZERO_MEMORY, block, (length + 1) * sizeof(WCHAR)));
}

PWSTR CopyToHeap(HANDLE heap, TextView text) {
    // Zero-filled: the terminator is there already.
    void* block = ::HeapAlloc(heap, HEAP_ZERO_MEMORY, (text.size() + 1) * sizeof(WCHAR));
    if (block != nullptr) std::copy(text.begin(), text.end(), static_cast<PWSTR>(block));
    return static_cast<PWSTR>(block);
}

}  // namespace oemui
