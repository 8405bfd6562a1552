/// The spooler's record of a printer.
#pragma once

#include <windows.h>

#include <winspool.h>

#include <memory>

namespace oemui {

/// A `PRINTER_INFO_2W` with its texts behind it, in memory of its own.
class PrinterInfo {
public:
    /// Asks the spooler; empty when it gives no record or memory is short.
    static PrinterInfo Read(HANDLE printer);

    explicit operator bool() const { return bytes_ != nullptr; }
    PRINTER_INFO_2W* operator->() const { return reinterpret_cast<PRINTER_INFO_2W*>(Bytes()); }
    /// The record as `SetPrinterW` takes it.
    BYTE* Bytes() const { return bytes_.get(); }

private:
    std::unique_ptr<BYTE[]> bytes_;
};

}  // namespace oemui
