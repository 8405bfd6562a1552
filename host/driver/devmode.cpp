#include "host/driver/devmode.h"

#include <algorithm>
#include <array>
#include <cstring>

#include "host/errors/failure.h"
#include "host/spooler/records.h"
#include "platform/text/text_encoding.h"

namespace host {
namespace {

// The driver takes part of a stored public devmode only when every value is one it knows.
struct ValueRange {
    SHORT DEVMODEW::*field;
    SHORT lowest;
    SHORT highest;
};

constexpr std::array kShortRanges = {
    ValueRange{&DEVMODEW::dmOrientation, DMORIENT_PORTRAIT, DMORIENT_LANDSCAPE},
    ValueRange{&DEVMODEW::dmCopies, 1, 999},
    ValueRange{&DEVMODEW::dmDefaultSource, 1, 32767},
    ValueRange{&DEVMODEW::dmColor, DMCOLOR_MONOCHROME, DMCOLOR_COLOR},
    ValueRange{&DEVMODEW::dmDuplex, DMDUP_SIMPLEX, DMDUP_HORIZONTAL},
    ValueRange{&DEVMODEW::dmCollate, DMCOLLATE_FALSE, DMCOLLATE_TRUE},
};

constexpr SHORT kAutomaticSource = 7;
constexpr DWORD kPlainMedia = 1;
constexpr DWORD kMostMediaType = 0xFFFF;
constexpr DWORD kHighestIcm = 4;

template <std::size_t Capacity>
void CopyName(WCHAR (&field)[Capacity], std::u16string_view text) {
    const std::size_t length = std::min(text.size(), Capacity - 1);
    std::copy_n(text.data(), length, field);
    std::fill(field + length, field + Capacity, u'\0');
}

void TakePublic(DEVMODEW& own, const DEVMODEW& stored) {
    for (const ValueRange& range : kShortRanges) {
        const SHORT value = stored.*range.field;
        if (value >= range.lowest && value <= range.highest) own.*range.field = value;
    }
    if (stored.dmMediaType >= 1 && stored.dmMediaType <= kMostMediaType) {
        own.dmMediaType = stored.dmMediaType;
    }
    if (stored.dmICMMethod >= 1 && stored.dmICMMethod <= kHighestIcm) {
        own.dmICMMethod = stored.dmICMMethod;
    }
    if (stored.dmICMIntent >= 1 && stored.dmICMIntent <= kHighestIcm) {
        own.dmICMIntent = stored.dmICMIntent;
    }
    const WCHAR* name = stored.dmFormName;
    const WCHAR* end = std::find(name, name + CCHFORMNAME, u'\0');
    if (end != name && end != name + CCHFORMNAME) {
        CopyName(own.dmFormName, std::u16string_view(name, static_cast<std::size_t>(end - name)));
    }
}

void TakeDriverBlock(DriverBlock& own, const DriverBlock& stored) {
    if (stored.Size != sizeof(DriverBlock) || stored.Signature != kDriverSignature) return;
    if (stored.NupSelection <= kBookletSelection) own.NupSelection = stored.NupSelection;
}

OEMDMPARAM MakeParams(DriverModule& module, HANDLE printer) {
    OEMDMPARAM params{};
    params.cbSize = sizeof(params);
    params.hPrinter = printer;
    params.hModule = module.Handle();
    return params;
}

void CallDevMode(DriverModule& module, DWORD mode, OEMDMPARAM& params) {
    if (FAILED(module.PlugIn().DevMode(mode, &params))) {
        FailWithLastError(platform::Utf8(module.Path()) + " refuses the devmode (mode " +
                          std::to_string(mode) + ")");
    }
}

DWORD PlugInBlockSize(DriverModule& module, HANDLE printer) {
    OEMDMPARAM params = MakeParams(module, printer);
    CallDevMode(module, OEMDM_SIZE, params);
    // A devmode tells the size of what follows its public part in 16 bits.
    if (params.cbBufSize > 0xFFFF - sizeof(DriverBlock)) {
        throw Failure(platform::Utf8(module.Path()) + " asks for too large a devmode");
    }
    return params.cbBufSize;
}

// The stored block is handed in with room for a whole one, and never claims more than was stored.
void MergePlugInBlock(DriverModule& module, HANDLE printer, Devmode& devmode,
                      std::span<const BYTE> stored) {
    if (stored.size() < sizeof(OEM_DMEXTRAHEADER)) return;
    std::vector<BYTE> source(std::max(stored.size(), devmode.PlugIn().size()));
    std::copy(stored.begin(), stored.end(), source.begin());
    OEM_DMEXTRAHEADER header{};
    std::memcpy(&header, source.data(), sizeof(header));
    header.dwSize = std::min(header.dwSize, static_cast<DWORD>(stored.size()));
    std::memcpy(source.data(), &header, sizeof(header));
    OEMDMPARAM params = MakeParams(module, printer);
    params.pPublicDMIn = params.pPublicDMOut = &devmode.Public();
    params.pOEMDMIn = source.data();
    params.pOEMDMOut = devmode.PlugIn().data();
    params.cbBufSize = static_cast<DWORD>(devmode.PlugIn().size());
    CallDevMode(module, OEMDM_MERGE, params);
}

}  // namespace

Devmode::Devmode(std::u16string_view printerName, DWORD plugInSize)
    : bytes_(sizeof(DEVMODEW) + sizeof(DriverBlock) + plugInSize) {
    DEVMODEW& own = Public();
    CopyName(own.dmDeviceName, printerName);
    CopyName(own.dmFormName, u"A4");
    own.dmSpecVersion = DM_SPECVERSION;
    own.dmDriverVersion = 1;
    own.dmSize = sizeof(DEVMODEW);
    own.dmDriverExtra = static_cast<WORD>(sizeof(DriverBlock) + plugInSize);
    own.dmFields = DM_ORIENTATION | DM_COPIES | DM_DEFAULTSOURCE | DM_COLOR | DM_DUPLEX |
                   DM_COLLATE | DM_FORMNAME | DM_ICMMETHOD | DM_ICMINTENT | DM_MEDIATYPE;
    own.dmOrientation = DMORIENT_PORTRAIT;
    own.dmCopies = 1;
    own.dmDefaultSource = kAutomaticSource;
    own.dmColor = DMCOLOR_COLOR;
    own.dmDuplex = DMDUP_SIMPLEX;
    own.dmCollate = DMCOLLATE_FALSE;
    own.dmICMMethod = DMICMMETHOD_NONE;
    own.dmICMIntent = 1;
    own.dmMediaType = kPlainMedia;
    Driver() = {sizeof(DriverBlock), kDriverSignature, 1, 0};
}

DEVMODEW& Devmode::Public() {
    return *reinterpret_cast<DEVMODEW*>(bytes_.data());
}

const DEVMODEW& Devmode::Public() const {
    return *reinterpret_cast<const DEVMODEW*>(bytes_.data());
}

DriverBlock& Devmode::Driver() {
    return *reinterpret_cast<DriverBlock*>(bytes_.data() + sizeof(DEVMODEW));
}

const DriverBlock& Devmode::Driver() const {
    return *reinterpret_cast<const DriverBlock*>(bytes_.data() + sizeof(DEVMODEW));
}

std::span<BYTE> Devmode::PlugIn() {
    return std::span(bytes_).subspan(sizeof(DEVMODEW) + sizeof(DriverBlock));
}

std::span<const BYTE> Devmode::PlugIn() const {
    return std::span(bytes_).subspan(sizeof(DEVMODEW) + sizeof(DriverBlock));
}

std::span<const BYTE> Devmode::TakeStored(std::span<const BYTE> stored) {
    DEVMODEW header;
    if (stored.size() < sizeof(header)) return {};
    std::memcpy(&header, stored.data(), sizeof(header));
    const std::span<const BYTE> rest = stored.subspan(sizeof(header));
    if (header.dmSize != sizeof(header) || header.dmDriverExtra > rest.size()) return {};
    TakePublic(Public(), header);
    const std::span<const BYTE> extra = rest.first(header.dmDriverExtra);
    DriverBlock block;
    if (extra.size() < sizeof(block)) return {};
    std::memcpy(&block, extra.data(), sizeof(block));
    TakeDriverBlock(Driver(), block);
    return extra.subspan(sizeof(block));
}

Devmode DefaultDevmode(DriverModule& module, HANDLE printer, const std::u16string& printerName) {
    Devmode devmode(printerName, PlugInBlockSize(module, printer));
    OEMDMPARAM params = MakeParams(module, printer);
    params.pPublicDMOut = &devmode.Public();
    params.pOEMDMOut = devmode.PlugIn().data();
    params.cbBufSize = static_cast<DWORD>(devmode.PlugIn().size());
    CallDevMode(module, OEMDM_DEFAULT, params);
    return devmode;
}

Devmode PrinterDevmode(DriverModule& module, HANDLE printer, const std::u16string& printerName) {
    Devmode devmode = DefaultDevmode(module, printer, printerName);
    const RecordBlock<PRINTER_INFO_2W> block(
        "the printer cannot be read", [&](LPBYTE buffer, DWORD size, LPDWORD needed) {
            return ::GetPrinterW(printer, 2, buffer, size, needed);
        });
    const DEVMODEW* stored = block.Records()->pDevMode;
    if (!stored) return devmode;
    // The spooler has checked that the two sizes lie within the record.
    const std::span bytes(reinterpret_cast<const BYTE*>(stored),
                          std::size_t{stored->dmSize} + stored->dmDriverExtra);
    MergePlugInBlock(module, printer, devmode, devmode.TakeStored(bytes));
    return devmode;
}

void StorePrinterDevmode(HANDLE printer, const Devmode& devmode) {
    RecordBlock<PRINTER_INFO_2W> block("the printer cannot be read",
                                       [&](LPBYTE buffer, DWORD size, LPDWORD needed) {
                                           return ::GetPrinterW(printer, 2, buffer, size, needed);
                                       });
    block.Records()->pDevMode = const_cast<DEVMODEW*>(&devmode.Public());
    if (!::SetPrinterW(printer, 2, reinterpret_cast<LPBYTE>(block.Records()), 0)) {
        FailWithLastError("the settings cannot be stored");
    }
}

}  // namespace host
