#include "frame/plugin_object.h"

#include <cstring>

#include "common/model_identity.h"
#include "devmode/private_devmode.h"
#include "docprops/document_items.h"
#include "frame/module_counters.h"
#include "install/color_profile.h"
#include "install/install_events.h"
#include "printerprops/printer_items.h"

namespace oemui {
namespace {

constexpr DWORD kInterfaceValueSize = 4;
constexpr UINT32 kPluginVersion = 1;

constexpr WCHAR kPageTitle[] = TEXT("OEM UI Page");

HRESULT FailWith(DWORD error) {
    ::SetLastError(error);
    return E_FAIL;
}

bool IsAnsweredInfo(DWORD mode) {
    return mode == OEMGI_GETSIGNATURE || mode == OEMGI_GETVERSION || mode == OEMGI_GETPUBLISHERINFO;
}

/// The plug-in adds no page of its own: its items stand on the driver's pages.
/// \param parameter  a record that the reason defines.
HRESULT AnswerPropertySheet(PPROPSHEETUI_INFO sheet, LPARAM parameter) {
    if (sheet == nullptr || sheet->Version != PROPSHEETUI_INFO_VERSION) {
        return FailWith(ERROR_INVALID_PARAMETER);
    }
    switch (sheet->Reason) {
        case PROPSHEETUI_REASON_GET_INFO_HEADER:
            if (parameter == 0) return FailWith(ERROR_INVALID_PARAMETER);
            // The record's pointer is not const, but the sheet only reads the title.
            reinterpret_cast<PPROPSHEETUI_INFO_HEADER>(parameter)->pTitle =
                const_cast<LPWSTR>(kPageTitle);
            sheet->Result = 1;
            break;
        case PROPSHEETUI_REASON_SET_RESULT:
            if (parameter == 0) return FailWith(ERROR_INVALID_PARAMETER);
            sheet->Result =
                static_cast<ULONG_PTR>(reinterpret_cast<PSETRESULT_INFO>(parameter)->Result);
            break;
        case PROPSHEETUI_REASON_GET_ICON:
            sheet->Result = 0;
            break;
        case PROPSHEETUI_REASON_INIT:
        case PROPSHEETUI_REASON_DESTROY:
            sheet->Result = 1;
            break;
        default:
            break;
    }
    return S_OK;
}

}  // namespace

OemUiPlugin::OemUiPlugin() {
    ++liveObjectCount;
}

OemUiPlugin::~OemUiPlugin() {
    IPrintOemDriverUI* held = driverInterface_.exchange(nullptr);
    if (held != nullptr) held->Release();
    --liveObjectCount;
}

STDMETHODIMP OemUiPlugin::GetInfo(DWORD mode, PVOID buffer, DWORD bufferSize,
                                  PDWORD neededSize) noexcept {
    if (neededSize == nullptr || !IsAnsweredInfo(mode)) return FailWith(ERROR_INVALID_PARAMETER);
    *neededSize = kInterfaceValueSize;
    if (bufferSize < kInterfaceValueSize || buffer == nullptr) {
        return FailWith(ERROR_INSUFFICIENT_BUFFER);
    }
    if (mode == OEMGI_GETPUBLISHERINFO) {
        *neededSize = 0;
        return FailWith(ERROR_NOT_SUPPORTED);
    }
    const UINT32 value = mode == OEMGI_GETSIGNATURE ? Model().Signature : kPluginVersion;
    std::memcpy(buffer, &value, sizeof value);
    return S_OK;
}

STDMETHODIMP OemUiPlugin::DevMode(DWORD mode, POEMDMPARAM params) noexcept {
    return HandleDevMode(mode, params);
}

STDMETHODIMP OemUiPlugin::PublishDriverInterface(IUnknown* driver) noexcept {
    if (driverInterface_ != nullptr) return S_OK;
    void* answer = nullptr;
    if (driver == nullptr || FAILED(driver->QueryInterface(IID_IPrintOemDriverUI, &answer))) {
        return E_FAIL;
    }
    auto* obtained = static_cast<IPrintOemDriverUI*>(answer);
    IPrintOemDriverUI* none = nullptr;
    // Of two first calls at the same time one wins; the other gives its reference back.
    if (!driverInterface_.compare_exchange_strong(none, obtained) && obtained != nullptr) {
        obtained->Release();
    }
    return S_OK;
}

STDMETHODIMP OemUiPlugin::CommonUIProp(DWORD mode, POEMCUIPPARAM params) noexcept {
    if (params == nullptr) return FailWith(ERROR_INVALID_PARAMETER);
    switch (mode) {
        case OEMCUIP_DOCPROP:
            return BuildDocumentItems(mode, params);
        case OEMCUIP_PRNPROP:
            return BuildPrinterItems(mode, params);
        default:
            return FailWith(ERROR_INVALID_PARAMETER);
    }
}

STDMETHODIMP OemUiPlugin::DocumentPropertySheets(PPROPSHEETUI_INFO sheet,
                                                 LPARAM parameter) noexcept {
    return AnswerPropertySheet(sheet, parameter);
}

STDMETHODIMP OemUiPlugin::DevicePropertySheets(PPROPSHEETUI_INFO sheet, LPARAM parameter) noexcept {
    return AnswerPropertySheet(sheet, parameter);
}

STDMETHODIMP OemUiPlugin::DevQueryPrintEx(POEMUIOBJ /*driver*/, DEVQUERYPRINT_INFO* /*query*/,
                                          DEVMODEW* /*publicDevmode*/,
                                          PVOID /*privateDevmode*/) noexcept {
    return E_NOTIMPL;
}

STDMETHODIMP OemUiPlugin::DeviceCapabilities(POEMUIOBJ /*driver*/, HANDLE /*printer*/,
                                             PWSTR /*deviceName*/, WORD /*capability*/,
                                             PVOID /*output*/, DEVMODEW* /*publicDevmode*/,
                                             PVOID /*privateDevmode*/, DWORD /*oldResult*/,
                                             DWORD* /*result*/) noexcept {
    return E_NOTIMPL;
}

STDMETHODIMP OemUiPlugin::UpgradePrinter(DWORD /*level*/, PBYTE /*upgradeInfo*/) noexcept {
    return E_NOTIMPL;
}

STDMETHODIMP OemUiPlugin::PrinterEvent(PWSTR printerName, INT event, DWORD /*flags*/,
                                       LPARAM /*parameter*/) noexcept {
    HandlePrinterEvent(printerName, event);
    return E_NOTIMPL;
}

STDMETHODIMP OemUiPlugin::DriverEvent(DWORD event, DWORD /*level*/, LPBYTE /*driverInfo*/,
                                      LPARAM /*parameter*/) noexcept {
    HandleDriverEvent(event);
    return E_NOTIMPL;
}

STDMETHODIMP OemUiPlugin::QueryColorProfile(HANDLE /*printer*/, POEMUIOBJ /*driver*/,
                                            DEVMODEW* /*publicDevmode*/, PVOID /*privateDevmode*/,
                                            ULONG queryMode, VOID* profile, ULONG* profileSize,
                                            DWORD* profileFlags) noexcept {
    return oemui::QueryColorProfile(queryMode, profile, profileSize, profileFlags);
}

STDMETHODIMP OemUiPlugin::FontInstallerDlgProc(HWND /*window*/, UINT /*message*/, WPARAM /*first*/,
                                               LPARAM /*second*/) noexcept {
    return E_NOTIMPL;
}

STDMETHODIMP OemUiPlugin::UpdateExternalFonts(HANDLE /*printer*/, HANDLE /*heap*/,
                                              PWSTR /*cartridges*/) noexcept {
    return E_NOTIMPL;
}

}  // namespace oemui
