/// Reading records of the spooler: asking for the size, then for the records.
#pragma once

#include <windows.h>

#include <algorithm>
#include <cstddef>
#include <memory>
#include <span>
#include <string>

#include "host/errors/failure.h"

namespace host {

/// Records with their strings, in one block of memory aligned for any record.
template <typename Record>
class RecordBlock {
public:
    /// \param read  calls the spooler with (buffer, size, &needed, &count); its result is the
    ///        call's. A call that tells no number answers one record.
    /// \param what  the text for a failure.
    template <typename Read>
    RecordBlock(const std::string& what, Read read) {
        if (read(nullptr, DWORD{0}, &size_, &count_)) return;
        // The records may grow between two calls: the size is asked for again a few times.
        for (int attempt = 0; attempt < 5 && ::GetLastError() == ERROR_INSUFFICIENT_BUFFER;
             ++attempt) {
            const DWORD size = size_;
            bytes_ = std::make_unique<std::byte[]>(size);
            if (read(reinterpret_cast<LPBYTE>(bytes_.get()), size, &size_, &count_)) {
                size_ = size;
                return;
            }
        }
        FailWithLastError(what);
    }

    /// No more than the block has room for, whatever number the spooler told.
    [[nodiscard]] std::span<Record> Records() const {
        const std::size_t room = bytes_ != nullptr ? size_ / sizeof(Record) : 0;
        return {reinterpret_cast<Record*>(bytes_.get()), std::min<std::size_t>(count_, room)};
    }

    /// The record of a call that answers one.
    [[nodiscard]] Record& Single() const {
        if (Records().empty()) throw Failure("the spooler answers nothing");
        return Records().front();
    }

private:
    std::unique_ptr<std::byte[]> bytes_;
    DWORD size_ = 0;
    DWORD count_ = 1;
};

/// A text of a record, which may be null.
[[nodiscard]] inline std::u16string RecordText(const WCHAR* text) {
    return text != nullptr ? std::u16string(text) : std::u16string();
}

}  // namespace host
