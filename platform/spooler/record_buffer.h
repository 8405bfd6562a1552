/// Buffers that operations fill with records: the records from the front, the texts and blocks they
/// point to behind them.
#pragma once

#include <winerror.h>
#include <winspool.h>

#include <cstring>
#include <limits>
#include <string_view>
#include <utility>
#include <vector>

namespace platform::spooler {

/// A caller's buffer, as it came.
struct CallerBuffer {
    LPBYTE bytes;
    DWORD size;      ///< bytes
    LPDWORD needed;  ///< bytes; must not be null
};

/// Places texts and blocks one behind the other; without a buffer it only counts.
class RecordTail {
public:
    /// \param start  offset of the first free byte.
    RecordTail(LPBYTE buffer, std::size_t start) : buffer_(buffer), end_(start) {}

    LPWSTR AddText(std::u16string_view text) {
        const std::size_t at = Reserve((text.size() + 1) * sizeof(WCHAR), sizeof(WCHAR));
        if (buffer_ == nullptr) return nullptr;
        std::memcpy(buffer_ + at, text.data(), text.size() * sizeof(WCHAR));
        std::memset(buffer_ + at + text.size() * sizeof(WCHAR), 0, sizeof(WCHAR));
        return reinterpret_cast<LPWSTR>(buffer_ + at);
    }

    /// Null for an empty block.
    void* AddBlock(const std::vector<BYTE>& block) {
        if (block.empty()) return nullptr;
        const std::size_t at = Reserve(block.size(), alignof(std::max_align_t));
        if (buffer_ == nullptr) return nullptr;
        std::memcpy(buffer_ + at, block.data(), block.size());
        return buffer_ + at;
    }

    /// Bytes from the front of the buffer.
    [[nodiscard]] std::size_t Size() const { return end_; }

private:
    [[nodiscard]] std::size_t Reserve(std::size_t size, std::size_t alignment) {
        const std::size_t at = (end_ + alignment - 1) / alignment * alignment;
        end_ = at + size;
        return at;
    }

    LPBYTE buffer_;
    std::size_t end_;
};

/// Fills the buffer with one record for every item.
/// \param pack  makes the record of an item, its texts placed in the tail.
/// \return ERROR_INSUFFICIENT_BUFFER, with the size needed and the buffer untouched, or
/// ERROR_SUCCESS.
/// \param returned  is told the number of records then; may be null.
template <class Item, class Pack>
[[nodiscard]] DWORD FillRecords(const std::vector<Item>& items, const CallerBuffer& buffer,
                                Pack pack, LPDWORD returned = nullptr) {
    using Record = decltype(pack(items.front(), std::declval<RecordTail&>()));
    const std::size_t recordBytes = items.size() * sizeof(Record);
    RecordTail counted(nullptr, recordBytes);
    for (const Item& item : items) pack(item, counted);
    if (counted.Size() > std::numeric_limits<DWORD>::max()) return ERROR_NOT_ENOUGH_MEMORY;
    *buffer.needed = static_cast<DWORD>(counted.Size());
    if (counted.Size() > buffer.size) return ERROR_INSUFFICIENT_BUFFER;
    RecordTail placed(buffer.bytes, recordBytes);
    for (std::size_t i = 0; i < items.size(); ++i) {
        const Record record = pack(items[i], placed);
        std::memcpy(buffer.bytes + i * sizeof(Record), &record, sizeof record);
    }
    if (returned != nullptr) *returned = static_cast<DWORD>(items.size());
    return ERROR_SUCCESS;
}

/// Checks what every operation that fills a buffer is given. \return a result code.
[[nodiscard]] inline DWORD CheckBuffer(DWORD level, DWORD levelOffered,
                                       const CallerBuffer& buffer) {
    if (level != levelOffered) return ERROR_INVALID_LEVEL;
    if (buffer.needed == nullptr || (buffer.bytes == nullptr && buffer.size != 0)) {
        return ERROR_INVALID_PARAMETER;
    }
    return ERROR_SUCCESS;
}

}  // namespace platform::spooler
