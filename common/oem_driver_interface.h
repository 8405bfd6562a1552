/// The interface between the raster driver and its user-interface plug-in: identifiers, parameter
/// records and COM interfaces as the platform's driver kit declares them, for toolchains that come
/// without that kit. Where the kit's own header is present, it is used instead.
#pragma once

#include <windows.h>

#include <winspool.h>

#include <compstui.h>

#if __has_include(<prcomoem.h>)
#include <initguid.h>
#include <prcomoem.h>
#else
// NOLINTBEGIN(readability-identifier-naming): the driver kit's own names.

/// The class identifier under which every user-interface plug-in is created.
inline constexpr CLSID CLSID_OEMUI = {
    0xABCE80D7, 0x9F46, 0x11D1, {0x88, 0x2A, 0x00, 0xC0, 0x4F, 0xB9, 0x61, 0xEC}};
inline constexpr IID IID_IPrintOemUI = {
    0xC6A7A9D0, 0x774C, 0x11D1, {0x94, 0x7F, 0x00, 0xA0, 0xC9, 0x06, 0x40, 0xB8}};
inline constexpr IID IID_IPrintOemDriverUI = {
    0x92B05D50, 0x78BC, 0x11D1, {0x94, 0x80, 0x00, 0xA0, 0xC9, 0x06, 0x40, 0xB8}};

/// `GetInfo` modes.
#define OEMGI_GETSIGNATURE 1
#define OEMGI_GETINTERFACEVERSION 2
#define OEMGI_GETVERSION 3
#define OEMGI_GETPUBLISHERINFO 4

/// `DevMode` modes.
#define OEMDM_SIZE 1
#define OEMDM_DEFAULT 2
#define OEMDM_CONVERT 3
#define OEMDM_MERGE 4

/// `CommonUIProp` modes.
#define OEMCUIP_DOCPROP 1
#define OEMCUIP_PRNPROP 2

/// `QueryColorProfile` query modes and answer flags.
#define QCP_DEVICEPROFILE 0x0000
#define QCP_SOURCEPROFILE 0x0001
#define QCP_PROFILEMEMORY 0x0001
#define QCP_PROFILEDISK 0x0002

/// Events of `DriverEvent` and `PrinterEvent`.
#define DRIVER_EVENT_INITIALIZE 1
#define DRIVER_EVENT_DELETE 2
#define PRINTER_EVENT_INITIALIZE 3
#define PRINTER_EVENT_DELETE 4

/// The first fields of every plug-in's private devmode block.
struct OEM_DMEXTRAHEADER {
    DWORD dwSize;
    DWORD dwSignature;
    DWORD dwVersion;
};
using POEM_DMEXTRAHEADER = OEM_DMEXTRAHEADER*;

/// Asks the driver for the current option of a feature; keywords are 8-bit strings. Answers a BOOL
/// that may also carry a failure code such as `E_NOTIMPL` for a feature the driver does not have.
using PFN_DrvGetDriverSetting = BOOL(APIENTRY*)(PVOID driver, PCSTR feature, PVOID output,
                                                DWORD outputSize, PDWORD neededSize,
                                                PDWORD optionsReturned);
/// Tells the driver that the plug-in changed the selection of one of the driver's items.
using PFN_DrvUpdateUISetting = BOOL(APIENTRY*)(PVOID driver, PVOID optItem, DWORD previousSelection,
                                               DWORD mode);

/// The driver's function table.
struct OEMUIPROCS {
    PFN_DrvGetDriverSetting DrvGetDriverSetting;
    PFN_DrvUpdateUISetting DrvUpdateUISetting;
};
using POEMUIPROCS = OEMUIPROCS*;

/// The driver's side of a page, as the plug-in sees it.
struct OEMUIOBJ {
    DWORD cbSize;
    POEMUIPROCS pOemUIProcs;  ///< may be null
};
using POEMUIOBJ = OEMUIOBJ*;

struct OEMCUIPPARAM;
using POEMCUIPPARAM = OEMCUIPPARAM*;
using OEMCUIPCALLBACK = LONG(APIENTRY*)(PCPSUICBPARAM callback, POEMCUIPPARAM params);

/// Parameters of `CommonUIProp` and of the page's callback.
struct OEMCUIPPARAM {
    DWORD cbSize;
    POEMUIOBJ poemuiobj;
    HANDLE hPrinter;
    PWSTR pPrinterName;
    HANDLE hModule;   ///< the plug-in's own module
    HANDLE hOEMHeap;  ///< the page's heap; goes with the page
    DEVMODEW* pPublicDM;
    PVOID pOEMDM;  ///< the plug-in's private devmode block
    DWORD dwFlags;
    POPTITEM pDrvOptItems;
    DWORD cDrvOptItems;
    POPTITEM pOEMOptItems;  ///< null in the first call, which asks for the count
    DWORD cOEMOptItems;
    PVOID pOEMUserData;
    OEMCUIPCALLBACK OEMCUIPCallback;
};

/// Parameters of `DevMode`.
struct OEMDMPARAM {
    DWORD cbSize;
    PVOID pdriverobj;
    HANDLE hPrinter;
    HANDLE hModule;
    DEVMODEW* pPublicDMIn;
    DEVMODEW* pPublicDMOut;
    PVOID pOEMDMIn;
    PVOID pOEMDMOut;
    DWORD cbBufSize;
};
using POEMDMPARAM = OEMDMPARAM*;

struct DEVQUERYPRINT_INFO;

/// What the driver offers a plug-in.
struct IPrintOemDriverUI : IUnknown {
    STDMETHOD(DrvGetDriverSetting)
    (PVOID driver, PCSTR feature, PVOID output, DWORD outputSize, PDWORD neededSize,
     PDWORD optionsReturned) PURE;
    STDMETHOD(DrvUpgradeRegistrySetting)(HANDLE printer, PCSTR feature, PCSTR option) PURE;
    STDMETHOD(DrvUpdateUISetting)
    (PVOID driver, PVOID optItem, DWORD previousSelection, DWORD mode) PURE;

protected:
    ~IPrintOemDriverUI() = default;
};

/// What a user-interface plug-in answers; the order of the operations is the order of their slots.
struct IPrintOemUI : IUnknown {
    STDMETHOD(GetInfo)(DWORD mode, PVOID buffer, DWORD bufferSize, PDWORD neededSize) PURE;
    STDMETHOD(DevMode)(DWORD mode, POEMDMPARAM params) PURE;
    STDMETHOD(PublishDriverInterface)(IUnknown* driver) PURE;
    STDMETHOD(CommonUIProp)(DWORD mode, POEMCUIPPARAM params) PURE;
    STDMETHOD(DocumentPropertySheets)(PPROPSHEETUI_INFO sheet, LPARAM parameter) PURE;
    STDMETHOD(DevicePropertySheets)(PPROPSHEETUI_INFO sheet, LPARAM parameter) PURE;
    STDMETHOD(DevQueryPrintEx)
    (POEMUIOBJ driver, DEVQUERYPRINT_INFO* query, DEVMODEW* publicDevmode,
     PVOID privateDevmode) PURE;
    STDMETHOD(DeviceCapabilities)
    (POEMUIOBJ driver, HANDLE printer, PWSTR deviceName, WORD capability, PVOID output,
     DEVMODEW* publicDevmode, PVOID privateDevmode, DWORD oldResult, DWORD* result) PURE;
    STDMETHOD(UpgradePrinter)(DWORD level, PBYTE upgradeInfo) PURE;
    STDMETHOD(PrinterEvent)(PWSTR printerName, INT event, DWORD flags, LPARAM parameter) PURE;
    STDMETHOD(DriverEvent)(DWORD event, DWORD level, LPBYTE driverInfo, LPARAM parameter) PURE;
    STDMETHOD(QueryColorProfile)
    (HANDLE printer, POEMUIOBJ driver, DEVMODEW* publicDevmode, PVOID privateDevmode,
     ULONG queryMode, VOID* profile, ULONG* profileSize, DWORD* profileFlags) PURE;
    STDMETHOD(FontInstallerDlgProc)(HWND window, UINT message, WPARAM first, LPARAM second) PURE;
    STDMETHOD(UpdateExternalFonts)(HANDLE printer, HANDLE heap, PWSTR cartridges) PURE;

protected:
    ~IPrintOemUI() = default;
};

// NOLINTEND(readability-identifier-naming)
#endif

static_assert(sizeof(OEM_DMEXTRAHEADER) == 12);
static_assert(sizeof(OEMUIOBJ) == 16 && sizeof(OEMUIPROCS) == 16);
static_assert(sizeof(OEMDMPARAM) == 72 && offsetof(OEMDMPARAM, pOEMDMIn) == 48);
static_assert(offsetof(OEMDMPARAM, pOEMDMOut) == 56 && offsetof(OEMDMPARAM, cbBufSize) == 64);
static_assert(sizeof(OEMCUIPPARAM) == 120 && offsetof(OEMCUIPPARAM, pPublicDM) == 48);
static_assert(offsetof(OEMCUIPPARAM, pDrvOptItems) == 72 &&
              offsetof(OEMCUIPPARAM, OEMCUIPCallback) == 112);
static_assert(sizeof(OPTITEM) == 88 && sizeof(OPTTYPE) == 48 && sizeof(OPTPARAM) == 48);
static_assert(sizeof(EXTPUSH) == 64 && sizeof(OIEXT) == 56 && sizeof(CPSUICBPARAM) == 64);
