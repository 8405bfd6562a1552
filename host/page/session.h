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
#include "common/unique_handle.h"
#include "host/driver/devmode.h"
#include "host/driver/installed_options.h"
#include "host/driver/module.h"
#include "host/driver/option_items.h"
#include "host/page/item.h"
#include "host/spooler/printers.h"

namespace host {

enum class PageKind { Document, Printer };

class PageSession {
public:
    /// Builds the page of a printer (name in UTF-8) and makes it the active one. Throws `Failure`
    /// when the printer, its driver or its settings cannot be had. Building may ask the printer and
    /// take seconds.
    /// \param owner  the window that dialogs of the page belong to; may be null.
    PageSession(const std::string& printerName, PageKind kind, HWND owner = nullptr)
        : PageSession(printerName, kind, owner, nullptr) {}
    PageSession(const PageSession&) = delete;
    PageSession& operator=(const PageSession&) = delete;

    [[nodiscard]] PageKind Kind() const { return kind_; }
    [[nodiscard]] const PrinterSummary& Printer() const { return printer_; }
    [[nodiscard]] const Model& PrinterModel() const { return *model_; }
    [[nodiscard]] const Devmode& Settings() const { return devmode_; }

    /// The items in the page's order, the driver's first; the empty ones of the plug-in are left
    /// out.
    [[nodiscard]] std::vector<PageItem>& Items() { return items_; }

    // What a user does. The items may change with every action. An item or choice that is hidden,
    // disabled or marked with a stop is refused with a `Failure`.

    /// \param choice  index of the choice.
    void Choose(PageItem& item, std::size_t choice);
    /// \param number  within the item's range.
    void SetNumber(PageItem& item, LONG number);
    /// Presses the button beside an item. \return how the callback answered: CPSUICB_ACTION_*.
    LONG PressButton(PageItem& item);
    /// The page as it is with the settings of a new printer, to go on with in place of this one.
    /// The plug-in hears of what is different from here as of changes that the user made. Nothing
    /// is kept before `Apply`. As the constructor, it may throw and take seconds.
    [[nodiscard]] std::unique_ptr<PageSession> WithDefaults() const;
    /// The caption of the plug-in's message boxes that tell an error.
    [[nodiscard]] std::u16string ErrorCaption() const;
    /// Applies the page and keeps its settings. \return false when the plug-in refused; nothing is
    /// kept then and the page stays.
    [[nodiscard]] bool Apply();

private:
    /// What the plug-in gets as the driver's object, and finds the page by.
    struct DriverObject {
        OEMUIOBJ object;
        PageSession* session;
    };

    static BOOL APIENTRY GetDriverSetting(PVOID driver, PCSTR feature, PVOID output,
                                          DWORD outputSize, PDWORD needed, PDWORD returned);
    static BOOL APIENTRY UpdateUiSetting(PVOID driver, PVOID optItem, DWORD previous, DWORD mode);

    /// \param shown  the page that this one restores the defaults of; null for the stored settings.
    PageSession(const std::string& printerName, PageKind kind, HWND owner,
                const PageSession* shown);

    OptionItems MakeDriverItems();
    void MakeParams();
    void AddPlugInItems();
    void CollectItems();
    void ReportChangesFrom(const PageSession& shown);
    void Select(PageItem& item, LONG selection);
    void ReportChange(OPTITEM& record, LONG oldSelection);
    LONG Report(WORD reason, OPTITEM* current, LONG oldSelection);

    PageKind kind_;
    HWND owner_;
    oemui::UniquePrinter printerHandle_;
    PrinterSummary printer_;
    const Model* model_;
    DriverModule module_;
    Devmode devmode_;
    InstalledOptions options_;
    OptionItems driverItems_;
    oemui::UniqueHandle<HANDLE, ::HeapDestroy>
        heap_;  ///< goes before the module that allocated from it
    std::vector<OPTITEM> plugInItems_;
    std::vector<PageItem> items_;
    OEMUIPROCS procedures_{};
    DriverObject driverObject_{};
    OEMCUIPPARAM params_{};
};

}  // namespace host
