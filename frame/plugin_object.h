/// The plug-in's object: every call of the driver enters here.
#pragma once

#include <atomic>

#include "common/oem_driver_interface.h"
#include "frame/com_object.h"

namespace oemui {

/// Answers the driver, or passes the call on to the operation that owns it. Destroyed by its last
/// `Release`; keeps nothing but the driver's interface. Any thread.
class OemUiPlugin final : public ComObject<IPrintOemUI, IID_IPrintOemUI> {
public:
    OemUiPlugin();

    /// Gives the signature or the version, 32 bits each. \return E_FAIL with last error
    /// ERROR_INVALID_PARAMETER, ERROR_INSUFFICIENT_BUFFER or ERROR_NOT_SUPPORTED.
    STDMETHODIMP GetInfo(DWORD mode, PVOID buffer, DWORD bufferSize,
                         PDWORD neededSize) noexcept override;
    /// Sizes, defaults, converts or merges the private devmode block (`HandleDevMode`).
    STDMETHODIMP DevMode(DWORD mode, POEMDMPARAM params) noexcept override;
    /// Asks the driver for its interface, once; a later call finds it there. \return E_FAIL when
    /// the driver does not give it.
    STDMETHODIMP PublishDriverInterface(IUnknown* driver) noexcept override;
    /// Builds the plug-in's part of the document page or of the printer page. \return E_FAIL with
    /// last error ERROR_INVALID_PARAMETER for another mode.
    STDMETHODIMP CommonUIProp(DWORD mode, POEMCUIPPARAM params) noexcept override;
    /// Both property-sheet entries add no page; they name one and answer the sheet's reasons.
    /// \return E_FAIL with last error ERROR_INVALID_PARAMETER for another version of the record.
    STDMETHODIMP DocumentPropertySheets(PPROPSHEETUI_INFO sheet,
                                        LPARAM parameter) noexcept override;
    STDMETHODIMP DevicePropertySheets(PPROPSHEETUI_INFO sheet, LPARAM parameter) noexcept override;
    /// Not implemented, and likewise the other operations that answer E_NOTIMPL at once.
    STDMETHODIMP DevQueryPrintEx(POEMUIOBJ driver, DEVQUERYPRINT_INFO* query,
                                 DEVMODEW* publicDevmode, PVOID privateDevmode) noexcept override;
    STDMETHODIMP DeviceCapabilities(POEMUIOBJ driver, HANDLE printer, PWSTR deviceName,
                                    WORD capability, PVOID output, DEVMODEW* publicDevmode,
                                    PVOID privateDevmode, DWORD oldResult,
                                    DWORD* result) noexcept override;
    STDMETHODIMP UpgradePrinter(DWORD level, PBYTE upgradeInfo) noexcept override;
    /// Printer and driver events do their work and answer E_NOTIMPL all the same.
    STDMETHODIMP PrinterEvent(PWSTR printerName, INT event, DWORD flags,
                              LPARAM parameter) noexcept override;
    STDMETHODIMP DriverEvent(DWORD event, DWORD level, LPBYTE driverInfo,
                             LPARAM parameter) noexcept override;
    STDMETHODIMP QueryColorProfile(HANDLE printer, POEMUIOBJ driver, DEVMODEW* publicDevmode,
                                   PVOID privateDevmode, ULONG queryMode, VOID* profile,
                                   ULONG* profileSize, DWORD* profileFlags) noexcept override;
    STDMETHODIMP FontInstallerDlgProc(HWND window, UINT message, WPARAM first,
                                      LPARAM second) noexcept override;
    STDMETHODIMP UpdateExternalFonts(HANDLE printer, HANDLE heap,
                                     PWSTR cartridges) noexcept override;

private:
    ~OemUiPlugin() override;

    std::atomic<IPrintOemDriverUI*> driverInterface_{nullptr};
};

}  // namespace oemui
