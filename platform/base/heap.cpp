// Every block is an allocation of its own, so that memory checkers see its bounds, and is
// known to its heap, so that a pointer of another heap or of none is refused instead of followed.

#include "platform/base/heap.h"

#include <winbase.h>
#include <winerror.h>

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <unordered_map>

#include "platform/base/fail.h"
#include "platform/base/handles.h"
#include "platform/faults/failure_points.h"
#include "platform/faults/live_objects.h"

using platform::Fail;

namespace {

// More than anybody asks for in earnest: answered as memory that is not there.
constexpr SIZE_T kLargestBlock = SIZE_T{1} << 32;

using Block = std::unique_ptr<void, decltype(&std::free)>;

struct Heap {
    std::mutex mutex;
    std::unordered_map<const void*, std::size_t> blocks;
    std::size_t bytes = 0;
};

platform::HandleTable<Heap>& CreatedHeaps() {
    static platform::HandleTable<Heap> heaps("heap");
    return heaps;
}

// Lives as long as the process and is not counted, unlike its blocks.
const std::shared_ptr<Heap>& ProcessHeap() {
    static const auto heap = std::make_shared<Heap>();
    return heap;
}

std::shared_ptr<Heap> FindHeap(const void* handle) {
    return handle == ProcessHeap().get() ? ProcessHeap() : CreatedHeaps().Find(handle);
}

void* Allocate(Heap& heap, SIZE_T size, bool zero) {
    if (size > kLargestBlock) return nullptr;
    const SIZE_T room = std::max<SIZE_T>(size, 1);
    Block block(zero ? std::calloc(room, 1) : std::malloc(room), std::free);
    if (block == nullptr) return nullptr;
    const std::lock_guard lock(heap.mutex);
    heap.blocks.emplace(block.get(), size);
    heap.bytes += size;
    platform::CountObject("heap block", 1);
    return block.release();
}

void* Resize(Heap& heap, void* block, SIZE_T size, bool zero) {
    const std::lock_guard lock(heap.mutex);
    const auto known = heap.blocks.find(block);
    if (known == heap.blocks.end() || size > kLargestBlock) return nullptr;
    const std::size_t before = known->second;
    void* moved = std::realloc(block, std::max<SIZE_T>(size, 1));
    if (moved == nullptr) return nullptr;
    if (zero && size > before) std::memset(static_cast<char*>(moved) + before, 0, size - before);
    auto entry = heap.blocks.extract(known);  // needs no memory of its own
    entry.key() = moved;
    entry.mapped() = size;
    heap.blocks.insert(std::move(entry));
    heap.bytes = heap.bytes - before + size;
    return moved;
}

bool Free(Heap& heap, void* block) {
    const std::lock_guard lock(heap.mutex);
    const auto known = heap.blocks.find(block);
    if (known == heap.blocks.end()) return false;
    heap.bytes -= known->second;
    heap.blocks.erase(known);
    std::free(block);
    platform::CountObject("heap block", -1);
    return true;
}

}  // namespace

HANDLE WINAPI HeapCreate(DWORD options, SIZE_T, SIZE_T maximumSize) try {
    if (const auto error = platform::InjectedFailure("HeapCreate")) return Fail<HANDLE>(*error);
    if (options != 0 || maximumSize != 0) return Fail<HANDLE>(ERROR_INVALID_PARAMETER);
    return CreatedHeaps().Insert(std::make_shared<Heap>());
} catch (...) {
    return platform::FailCaught<HANDLE>();
}

BOOL WINAPI HeapDestroy(HANDLE heap) {
    const std::shared_ptr<Heap> gone = CreatedHeaps().Remove(heap);
    if (!gone) return Fail(ERROR_INVALID_HANDLE);
    const std::lock_guard lock(gone->mutex);
    for (const auto& [block, size] : gone->blocks) {
        std::free(const_cast<void*>(block));  // the map's key is const, the block is ours
        platform::CountObject("heap block", -1);
    }
    gone->blocks.clear();
    return TRUE;
}

HANDLE WINAPI GetProcessHeap() {
    return ProcessHeap().get();
}

LPVOID WINAPI HeapAlloc(HANDLE heap, DWORD flags, SIZE_T size) try {
    if (platform::InjectedFailure("HeapAlloc")) return nullptr;
    const std::shared_ptr<Heap> owner = FindHeap(heap);
    return owner ? Allocate(*owner, size, (flags & HEAP_ZERO_MEMORY) != 0) : nullptr;
} catch (...) {
    return nullptr;
}

LPVOID WINAPI HeapReAlloc(HANDLE heap, DWORD flags, LPVOID block, SIZE_T size) {
    if (platform::InjectedFailure("HeapReAlloc")) return nullptr;
    const std::shared_ptr<Heap> owner = FindHeap(heap);
    return owner ? Resize(*owner, block, size, (flags & HEAP_ZERO_MEMORY) != 0) : nullptr;
}

BOOL WINAPI HeapFree(HANDLE heap, DWORD, LPVOID block) {
    if (block == nullptr) return TRUE;
    const std::shared_ptr<Heap> owner = FindHeap(heap);
    if (!owner) return Fail(ERROR_INVALID_HANDLE);
    return Free(*owner, block) ? TRUE : Fail(ERROR_INVALID_PARAMETER);
}

std::size_t platform::HeapBytes(void* heap) {
    const std::shared_ptr<Heap> owner = FindHeap(heap);
    if (!owner) return 0;
    const std::lock_guard lock(owner->mutex);
    return owner->bytes;
}
