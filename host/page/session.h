/// One property page on its feet: the driver's and the plug-in's items over a printer's settings,
/// and the way of a user's actions through the plug-in's callback and back, as the platform's
/// common property sheet has it. How the page is shown is up to others: text, JSON, windows.
///
/// One thread: the page's.
#pragma once

#include <windows.h>

#include <compstui.h>

#include <memory>
#include <string>
#include <vector>

#include "common/oem_driver_interface.h"
#include "host/driver/devmode.h"
#include "host/driver/installed_options.h"
#include "host/driver/module.h"
#include "host/driver/page_items.h"
#include "host/spooler/printers.h"

namespace host {

enum class PageKind { Document, Printer };

class PageSession {
public:
    /// Builds the page of a printer (name in UTF-8) and makes it the active one. Throws `Failure`
    /// when the printer, its driver or its settings cannot be had. Building may ask the printer and
    /// take seconds.
    /// \param owner  the window that dialogs of the page belong to; may be null.
    PageSession(const std::string& printerName, PageKind kind, HWND owner = nullptr);
    ~PageSession();
    PageSession(const PageSession&) = delete;
    PageSession& operator=(const PageSession&) = delete;

    PageKind Kind() const { return kind_; }
    const PrinterSummary& Printer() const { return printer_; }
    const Model& PrinterModel() const { return *model_; }
    const Devmode& Settings() const { return devmode_; }

    /// The items in the page's order, the driver's first; the empty ones of the plug-in are left
    /// out.
    std::vector<PageItem>& Items() { return items_; }

    // What a user does. The items may change with every action; the result tells how, as the
    // callback answered: CPSUICB_ACTION_*. An item or choice that is hidden, disabled or marked
    // with a stop is refused with a `Failure`.

    /// The page comes to the front.
    LONG Activate();
    /// \param choice  index of the choice.
    LONG Choose(PageItem& item, std::size_t choice);
    /// \param number  within the item's range.
    LONG SetNumber(PageItem& item, LONG number);
    /// Presses the button beside an item.
    LONG PressButton(PageItem& item);
    /// Applies the page and keeps its settings. \return false when the plug-in refused; nothing is
    /// kept then and the page stays.
    bool Apply();

private:
    /// What the plug-in gets as the driver's object, and finds the page by.
    struct DriverObject {
        OEMUIOBJ object;
        PageSession* session;
    };

    static BOOL APIENTRY GetDriverSetting(PVOID driver, PCSTR feature, PVOID output,
                                          DWORD outputSize, PDWORD needed, PDWORD returned);
    static BOOL APIENTRY UpdateUiSetting(PVOID driver, PVOID optItem, DWORD previous, DWORD mode);

    void MakeDriverItems();
    void MakeParams();
    void AddPlugInItems();
    void CollectItems();
    void RequireUsable(const PageItem& item) const;
    LONG Select(PageItem& item, LONG selection);
    void TakeDriverItem(const OPTITEM* record);
    LONG Report(WORD reason, OPTITEM* current, LONG oldSelection);

    PageKind kind_;
    HWND owner_;
    PrinterHandle printerHandle_;
    PrinterSummary printer_;
    const Model* model_;
    std::unique_ptr<DriverModule> module_;
    Devmode devmode_;
    InstalledOptions options_;
    std::unique_ptr<PageItems> driverItems_;
    HeapHandle heap_;  ///< goes before the module that allocated from it
    std::vector<OPTITEM> plugInItems_;
    std::vector<PageItem> items_;
    OEMUIPROCS procedures_{};
    DriverObject driverObject_{};
    OEMCUIPPARAM params_{};
};

}  // namespace host
