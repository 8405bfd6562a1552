/// Texts in blocks of a page's heap.
#pragma once

#include <windows.h>

#include "common/text.h"

namespace oemui {

/// Loads a text of a module's string table into a block of the page's heap.
/// \return the text, at most 259 characters, terminated, in a block shrunk to its size; null when
///         the text is missing or empty or the heap is exhausted. It goes with the heap, or with
///         `HeapFree`.
PWSTR LoadItemText(HANDLE heap, HINSTANCE module, UINT textId);

/// Shrinks a block of the heap to the text in it and its terminator; null, with the block still
/// there, when the heap refuses.
PWSTR ShrinkText(HANDLE heap, PWSTR block, std::size_t length);

/// Copies a text into a block of the page's heap, terminated; null when the heap is exhausted.
PWSTR CopyToHeap(HANDLE heap, TextView text);

}  // namespace oemui
