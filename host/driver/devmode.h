/// A document's settings: the public devmode, the driver's own block and the plug-in's block, in
/// one piece of memory as they are stored and handed around.
#pragma once

#include <windows.h>

#include <span>
#include <string>
#include <vector>

#include "host/driver/module.h"

namespace host {

/// The driver's own settings behind the public part; a stored format.
struct DriverBlock {
    DWORD Size;          ///< of this block, bytes
    DWORD Signature;     ///< kDriverSignature
    DWORD Version;       ///< 1
    DWORD NupSelection;  ///< choice of the N-up item, 0..6
};
static_assert(sizeof(DriverBlock) == 16);

inline constexpr DWORD kDriverSignature = 0x52535452;
inline constexpr DWORD kBookletSelection = 6;

class Devmode {
public:
    /// The driver's defaults for a printer; the plug-in's block is zero.
    /// \param plugInSize  bytes of the plug-in's block.
    Devmode(const std::u16string& printerName, DWORD plugInSize);

    [[nodiscard]] DEVMODEW& Public();
    [[nodiscard]] const DEVMODEW& Public() const;
    [[nodiscard]] DriverBlock& Driver();
    /// The plug-in's block; it may be empty.
    [[nodiscard]] std::span<BYTE> PlugIn();
    [[nodiscard]] std::span<const BYTE> PlugIn() const;
    [[nodiscard]] std::span<const BYTE> Bytes() const { return bytes_; }

    /// Takes over the public and the driver's settings of a stored devmode as far as they are
    /// valid. \return the stored plug-in block, whatever it holds; empty when there is none.
    /// \param stored  bytes from outside; nothing is read behind them.
    std::span<const BYTE> TakeStored(std::span<const BYTE> stored);

private:
    std::vector<BYTE> bytes_;
};

/// The devmode of a printer as new: defaults of the driver and of the plug-in.
[[nodiscard]] Devmode DefaultDevmode(DriverModule& module, HANDLE printer,
                                     const std::u16string& printerName);

/// The printer's default devmode: what is stored, merged over the defaults by driver and plug-in. A
/// printer without one, or with one that is no devmode of the driver's, has the defaults.
[[nodiscard]] Devmode PrinterDevmode(DriverModule& module, HANDLE printer,
                                     const std::u16string& printerName);

/// Keeps a devmode as the printer's default. The handle needs PRINTER_ACCESS_ADMINISTER.
void StorePrinterDevmode(HANDLE printer, const Devmode& devmode);

}  // namespace host
