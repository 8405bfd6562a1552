/// The owner of a block of a heap.
#pragma once

#include <windows.h>

#include <cstddef>
#include <utility>

namespace oemui {

/// A zero-filled block, freed at the end of its scope; empty until it gets a size. What is handed
/// to a page for good has no owner here: it goes with the page's heap.
class HeapBlock {
public:
    explicit HeapBlock(HANDLE heap) : heap_(heap) {}
    HeapBlock(HeapBlock&& other) noexcept
        : heap_(other.heap_), block_(std::exchange(other.block_, nullptr)) {}
    HeapBlock& operator=(HeapBlock&&) = delete;
    ~HeapBlock() {
        if (block_ != nullptr) ::HeapFree(heap_, 0, block_);
    }

    explicit operator bool() const { return block_ != nullptr; }
    [[nodiscard]] BYTE* Bytes() const { return static_cast<BYTE*>(block_); }
    /// The record at the block's beginning.
    template <typename Record>
    [[nodiscard]] const Record& As() const {
        return *static_cast<const Record*>(block_);
    }

    /// Gives the block a size in bytes. \return false, and the block stays, when the heap refuses.
    [[nodiscard]] bool Resize(std::size_t size) {
        void* resized = block_ == nullptr ? ::HeapAlloc(heap_, HEAP_ZERO_MEMORY, size)
                                          : ::HeapReAlloc(heap_, HEAP_ZERO_MEMORY, block_, size);
        if (resized != nullptr) block_ = resized;
        return resized != nullptr;
    }

private:
    HANDLE heap_;
    void* block_ = nullptr;
};

}  // namespace oemui
