/// What is handed to a page, in zero-filled blocks of the page's heap; it goes with that heap.
#pragma once

#include "common/fixed_text.h"

namespace oemui {

/// Loads a text of a module's string table.
/// \return the text, at most 259 characters, in a block of its size; null when the text is missing
///         or empty or the heap is exhausted.
[[nodiscard]] PWSTR LoadItemText(HANDLE heap, HINSTANCE module, UINT textId);

/// Joins texts in one block, terminated; null when the heap is exhausted.
[[nodiscard]] PWSTR CopyToHeap(HANDLE heap, std::initializer_list<TextView> parts);

/// Records, one after the other, that know their size; null when the heap is exhausted.
template <typename Record>
[[nodiscard]] Record* AllocateForPage(HANDLE heap, std::size_t count = 1) {
    auto* records =
        static_cast<Record*>(::HeapAlloc(heap, HEAP_ZERO_MEMORY, count * sizeof(Record)));
    if (records == nullptr) return nullptr;
    for (std::size_t i = 0; i < count; ++i) records[i].cbSize = sizeof(Record);
    return records;
}

}  // namespace oemui
