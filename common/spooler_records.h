/// Records that the spooler gives: asked for their size first, then read.
#pragma once

#include <windows.h>

#include <winspool.h>

#include <memory>
#include <new>
#include <span>

namespace oemui {

/// Records of one kind with their texts behind them, in memory of their own; none when the spooler
/// gives none, memory is short, or more are announced than their bytes can hold.
template <typename Record>
class SpoolerRecords {
public:
    SpoolerRecords() = default;

    /// \param read  the spooler's function: buffer, its size in bytes, the size needed, the number
    ///              of records; answers a BOOL. Asked for the size it may fail as it likes.
    template <typename Read>
    explicit SpoolerRecords(Read read) {
        DWORD size = 0;
        DWORD count = 0;
        if (!read(nullptr, 0, &size, &count)) sizeError_ = ::GetLastError();
        if (size < sizeof(Record)) return;
        bytes_.reset(new (std::nothrow) BYTE[size]);
        DWORD needed = 0;
        if (!bytes_ || !read(bytes_.get(), size, &needed, &count)) return;
        if (count <= size / sizeof(Record)) count_ = count;
    }

    /// The error with which the spooler named the size; 0 when it did not fail.
    [[nodiscard]] DWORD SizeError() const { return sizeError_; }
    [[nodiscard]] std::span<Record> All() const {
        return {reinterpret_cast<Record*>(bytes_.get()), count_};
    }

private:
    std::unique_ptr<BYTE[]> bytes_;
    std::size_t count_ = 0;
    DWORD sizeError_ = ERROR_SUCCESS;
};

/// The spooler's record of a printer: one, or none when it gives none.
inline SpoolerRecords<PRINTER_INFO_2W> ReadPrinterInfo(HANDLE printer) {
    return SpoolerRecords<PRINTER_INFO_2W>(
        [printer](BYTE* buffer, DWORD size, DWORD* needed, DWORD* count) {
            *count = 1;
            return ::GetPrinterW(printer, 2, buffer, size, needed);
        });
}

}  // namespace oemui
