/// The driver's printer page as the plug-in sees it: the installable options and items that only
/// look like them.
#pragma once

#include <gtest/gtest.h>

#include <array>
#include <string>

#include "printerprops/printer_items.h"
#include "tests/support/plugin_fixture.h"

namespace tests {

/// The places of the page's items.
enum PrinterPageItem { kGroup, kYesTray2, kNumbered, kSwitch, kTray2, kTray3, kDuplex };

/// A page whose heap goes with it.
class PrinterPage {
public:
    explicit PrinterPage(HANDLE printer, std::basic_string<WCHAR> name = TEXT("none"))
        : name_(std::move(name)) {
        installed_.pData = const_cast<LPWSTR>(TEXT("Installed"));
        yes_.pData = const_cast<LPWSTR>(TEXT("Yes"));
        installable_.pOptParam = &installed_;
        yesNo_.pOptParam = &yes_;
        installable_.Count = yesNo_.Count = 1;
        // A group, and a tray whose choices are others: neither may be taken for the second tray.
        const struct {
            BYTE level;
            LPCWSTR name;
            OPTTYPE* type;
        } rows[] = {{1, TEXT("Tray 2"), &installable_},
                    {2, TEXT("Tray 2"), &yesNo_},
                    {2, reinterpret_cast<LPCWSTR>(ULONG_PTR{44}), &installable_},
                    {2, TEXT("Auto Configure"), nullptr},
                    {2, TEXT("Tray 2"), &installable_},
                    {2, TEXT("Tray 3"), &installable_},
                    {2, TEXT("Duplex Option (Double-sided)"), nullptr}};
        for (std::size_t i = 0; i < items.size(); ++i) {
            items[i].Level = rows[i].level;
            items[i].pName = const_cast<LPWSTR>(rows[i].name);
            items[i].pOptType = rows[i].type;
            items[i].Sel = 5;
            items[i].Flags = OPTIF_HIDE;
        }
        params.hPrinter = printer;
        params.pPrinterName = name_.data();
        params.hModule = ::GetModuleHandleW(nullptr);
        params.hOEMHeap = ::HeapCreate(0, 0, 0);
        params.pDrvOptItems = items.data();
        params.cDrvOptItems = static_cast<DWORD>(items.size());
    }
    ~PrinterPage() { ::HeapDestroy(params.hOEMHeap); }
    PrinterPage(const PrinterPage&) = delete;
    PrinterPage& operator=(const PrinterPage&) = delete;

    LONG Report(WORD reason, PrinterPageItem item = kSwitch) {
        CPSUICBPARAM report = {};
        report.Reason = reason;
        report.pCurItem = &items[item];
        return oemui::PrinterPropertyCallback(&report, &params);
    }
    std::array<LONG, 4> Selections() const {
        return {items[kSwitch].Sel, items[kTray2].Sel, items[kTray3].Sel, items[kDuplex].Sel};
    }
    std::array<DWORD, 4> Flags() const {
        return {items[kSwitch].Flags, items[kTray2].Flags, items[kTray3].Flags,
                items[kDuplex].Flags};
    }

    std::array<OPTITEM, 7> items = {};
    OEMCUIPPARAM params = {};

private:
    std::basic_string<WCHAR> name_;
    OPTPARAM installed_ = {};
    OPTPARAM yes_ = {};
    OPTTYPE installable_ = {};
    OPTTYPE yesNo_ = {};
};

}  // namespace tests
