/// Reading records of the spooler: asking for the size, then for the records.
#pragma once

#include <windows.h>

#include <cstddef>
#include <memory>
#include <string>

#include "host/errors/failure.h"

namespace host {

/// Records with their strings, in one block of memory aligned for any record.
template <typename Record>
class RecordBlock {
public:
    /// \param read  calls the spooler with (buffer, size, &needed); its result is the call's.
    /// \param what  the text for a failure.
    template <typename Read>
    RecordBlock(const std::string& what, Read read) {
        DWORD needed = 0;
        if (read(nullptr, DWORD{0}, &needed)) return;
        // The records may grow between two calls: the size is asked for again a few times.
        for (int attempt = 0; attempt < 5 && ::GetLastError() == ERROR_INSUFFICIENT_BUFFER;
             ++attempt) {
            const DWORD size = needed;
            bytes_ = std::make_unique<std::byte[]>(size);
            if (read(reinterpret_cast<LPBYTE>(bytes_.get()), size, &needed)) return;
        }
        FailWithLastError(what);
    }

    const Record* Records() const { return reinterpret_cast<const Record*>(bytes_.get()); }
    Record* Records() { return reinterpret_cast<Record*>(bytes_.get()); }

private:
    std::unique_ptr<std::byte[]> bytes_;
};

/// A text of a record, which may be null.
inline std::u16string RecordText(const WCHAR* text) {
    return text ? std::u16string(text) : std::u16string();
}

}  // namespace host
