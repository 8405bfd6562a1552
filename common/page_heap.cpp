#include "common/page_heap.h"

namespace oemui {

PWSTR LoadItemText(HANDLE heap, HINSTANCE module, UINT textId) {
    const MessageText text(textId, module);
    return text.empty() ? nullptr : CopyToHeap(heap, {text.View()});
}

PWSTR CopyToHeap(HANDLE heap, std::initializer_list<TextView> parts) {
    std::size_t length = 0;
    for (const TextView part : parts) length += part.size();
    // Zero-filled: the terminator is there already.
    auto* const block =
        static_cast<PWSTR>(::HeapAlloc(heap, HEAP_ZERO_MEMORY, (length + 1) * sizeof(WCHAR)));
    if (block == nullptr) return nullptr;
    PWSTR end = block;
    for (const TextView part : parts) end = std::copy(part.begin(), part.end(), end);
    return block;
}

}  // namespace oemui
