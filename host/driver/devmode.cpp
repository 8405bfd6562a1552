#include "host/driver/devmode.h"

#include <algorithm>
#include <array>
#include <cstring>

#include "host/errors/failure.h"
#include "host/spooler/printers.h"
#include "platform/text/text_encoding.h"

namespace host {
namespace {

constexpr SHORT kAutomaticSource = 7;
constexpr DWORD kPlainMedia = 1;
constexpr DWORD kMostMediaType = 0xFFFF;
constexpr DWORD kHighestIcm = 4;

// The driver takes part of a stored public devmode only when every value is one it knows.
template <typename Number>
struct ValueRange {
    Number DEVMODEW::*field;
    Number lowest;
    Number highest;
};

constexpr auto kShortRanges = std::to_array<ValueRange<SHORT>>({
    {&DEVMODEW::dmOrientation, DMORIENT_PORTRAIT, DMORIENT_LANDSCAPE},
    {&DEVMODEW::dmCopies, 1, 999},
    {&DEVMODEW::dmDefaultSource, 1, 32767},
    {&DEVMODEW::dmColor, DMCOLOR_MONOCHROME, DMCOLOR_COLOR},
    {&DEVMODEW::dmDuplex, DMDUP_SIMPLEX, DMDUP_HORIZONTAL},
    {&DEVMODEW::dmCollate, DMCOLLATE_FALSE, DMCOLLATE_TRUE},
});
constexpr auto kLongRanges = std::to_array<ValueRange<DWORD>>({
    {&DEVMODEW::dmMediaType, 1, kMostMediaType},
    {&DEVMODEW::dmICMMethod, 1, kHighestIcm},
    {&DEVMODEW::dmICMIntent, 1, kHighestIcm},
});

void TakePublic(DEVMODEW& own, const DEVMODEW& stored) {
    const auto take = [&](const auto& range) {
        const auto value = stored.*range.field;
        if (value >= range.lowest && value <= range.highest) own.*range.field = value;
    };
    std::ranges::for_each(kShortRanges, take);
    std::ranges::for_each(kLongRanges, take);
    const auto* end = std::ranges::find(stored.dmFormName, u'\0');
    if (end != std::begin(stored.dmFormName) && end != std::end(stored.dmFormName)) {
        ::lstrcpynW(own.dmFormName, stored.dmFormName, CCHFORMNAME);
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

// For a call that writes the devmode's public part and the plug-in's block.
OEMDMPARAM ParamsInto(Devmode& devmode, DriverModule& module, HANDLE printer) {
    OEMDMPARAM params = MakeParams(module, printer);
    params.pPublicDMOut = &devmode.Public();
    params.pOEMDMOut = devmode.PlugIn().data();
    params.cbBufSize = static_cast<DWORD>(devmode.PlugIn().size());
    return params;
}

// The stored block is handed in with room for a whole one, and never claims more than was stored.
void MergePlugInBlock(DriverModule& module, HANDLE printer, Devmode& devmode,
                      std::span<const BYTE> stored) {
    if (stored.size() < sizeof(OEM_DMEXTRAHEADER)) return;
    std::vector<BYTE> source(std::max(stored.size(), devmode.PlugIn().size()));
    std::ranges::copy(stored, source.begin());
    OEM_DMEXTRAHEADER header{};
    std::memcpy(&header, source.data(), sizeof(header));
    header.dwSize = std::min(header.dwSize, static_cast<DWORD>(stored.size()));
    std::memcpy(source.data(), &header, sizeof(header));
    OEMDMPARAM params = ParamsInto(devmode, module, printer);
    params.pPublicDMIn = &devmode.Public();
    params.pOEMDMIn = source.data();
    CallDevMode(module, OEMDM_MERGE, params);
}

}  // namespace

Devmode::Devmode(const std::u16string& printerName, DWORD plugInSize)
    : bytes_(sizeof(DEVMODEW) + sizeof(DriverBlock) + plugInSize) {
    DEVMODEW& own = Public();
    ::lstrcpynW(own.dmDeviceName, printerName.c_str(), CCHDEVICENAME);
    ::lstrcpynW(own.dmFormName, u"A4", CCHFORMNAME);
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
    OEMDMPARAM params = ParamsInto(devmode, module, printer);
    CallDevMode(module, OEMDM_DEFAULT, params);
    return devmode;
}

Devmode PrinterDevmode(DriverModule& module, HANDLE printer, const std::u16string& printerName) {
    Devmode devmode = DefaultDevmode(module, printer, printerName);
    const RecordBlock<PRINTER_INFO_2W> record = PrinterRecord(printer);
    const DEVMODEW* stored = record.Single().pDevMode;
    if (stored == nullptr) return devmode;
    // The spooler has checked that the two sizes lie within the record.
    const std::span bytes(reinterpret_cast<const BYTE*>(stored),
                          std::size_t{stored->dmSize} + stored->dmDriverExtra);
    MergePlugInBlock(module, printer, devmode, devmode.TakeStored(bytes));
    return devmode;
}

void StorePrinterDevmode(HANDLE printer, const Devmode& devmode) {
    const RecordBlock<PRINTER_INFO_2W> record = PrinterRecord(printer);
    record.Single().pDevMode = const_cast<DEVMODEW*>(&devmode.Public());
    if (!::SetPrinterW(printer, 2, reinterpret_cast<LPBYTE>(&record.Single()), 0)) {
        FailWithLastError("the settings cannot be stored");
    }
}

}  // namespace host
