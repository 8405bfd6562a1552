#include "printerprops/printer_items.h"

#include "common/page_records.h"
#include "printerprops/pjl_query.h"
#include "resources/resource_ids.h"

namespace oemui {
namespace {

constexpr DWORD kPluginItemCount = 2;

/// Selections of the switch, and of the option items.
constexpr LONG kSwitchOn = 0;
constexpr LONG kSwitchOff = 1;
constexpr LONG kInstalled = 0;
constexpr LONG kNotInstalled = 1;

constexpr DWORD kGreyed = OPTIF_DISABLED | OPTIF_CHANGED;
constexpr DWORD kEditable = OPTIF_CALLBACK | OPTIF_CHANGED;

/// An installable option: the string IDs that its item is found by.
struct OptionItem {
    UINT NameId;
    UINT FirstOptionId;  ///< 0: any
};

constexpr OptionItem kTray2 = {IDS_TRAY_2, IDS_INSTALLED};
constexpr OptionItem kTray3 = {IDS_TRAY_3, IDS_INSTALLED};
constexpr OptionItem kDuplex = {IDS_DUPLEX_OPTION, 0};
constexpr OptionItem kOptions[] = {kTray2, kTray3, kDuplex};

/// Whether a text of the page is this one. The page's records may hold string IDs in the place of
/// texts; those never match.
bool IsText(LPCWSTR shown, const MessageText& wanted) {
    return !wanted.empty() && ItemText(shown) == wanted.View();
}

LPCWSTR FirstOptionText(const OPTITEM& item) {
    const OPTPARAM* first = FindChoice(item, 0);
    return first == nullptr ? nullptr : first->pData;
}

POPTITEM FindItem(POEMCUIPPARAM params, const OptionItem& option) {
    const int index = FindDriverItemByName(params, option.NameId, option.FirstOptionId);
    return index < 0 ? nullptr : &params->pDrvOptItems[index];
}

POPTITEM FindSwitch(POEMCUIPPARAM params) {
    return FindItem(params, {IDS_AUTO_CONFIGURE, 0});
}

bool IsSwitchedOn(const OPTITEM* item, const OEMCUIPPARAM& params) {
    return item != nullptr && item->Sel == kSwitchOn &&
           IsText(item->pName, MessageText(IDS_AUTO_CONFIGURE, PageModule(params)));
}

bool SelectOption(OPTITEM* item, bool isInstalled) {
    const LONG selection = isInstalled ? kInstalled : kNotInstalled;
    if (item == nullptr || item->Sel == selection) return false;
    item->Sel = selection;
    item->Flags |= OPTIF_CHANGED;
    return true;
}

void ConfigureFromPrinter(POEMCUIPPARAM params, const PrinterLink& link) {
    bool isChanged = false;
    AutoConfigure(params, link, &isChanged);
}

void SelectionChanged(PCPSUICBPARAM callback, POEMCUIPPARAM params) {
    PrinterLink link;
    if (IsSwitchedOn(callback->pCurItem, *params) && DiscoverPrinterPort(params->hPrinter, &link)) {
        ConfigureFromPrinter(params, link);
    }
    UpdateOptionItemStates(params);
}

}  // namespace

HRESULT BuildPrinterItems(DWORD /*mode*/, POEMCUIPPARAM params) {
    if (params->pOEMOptItems == nullptr) {
        params->cOEMOptItems = kPluginItemCount;
        return S_OK;
    }
    params->OEMCUIPCallback = PrinterPropertyCallback;
    for (DWORD index = 0; index < params->cOEMOptItems; ++index) {
        OPTITEM& item = params->pOEMOptItems[index];
        item = {};
        item.cbSize = sizeof item;
        item.DMPubID = DMPUB_NONE;
    }
    return S_OK;
}

LONG APIENTRY PrinterPropertyCallback(PCPSUICBPARAM callback, POEMCUIPPARAM params) noexcept {
    if (callback == nullptr || params == nullptr) return CPSUICB_ACTION_NONE;
    switch (callback->Reason) {
        case CPSUICB_REASON_SEL_CHANGED:
            SelectionChanged(callback, params);
            return CPSUICB_ACTION_OPTIF_CHANGED;
        case CPSUICB_REASON_APPLYNOW:
            return CPSUICB_ACTION_ITEMS_APPLIED;
        case CPSUICB_REASON_SETACTIVE:
            PrinterPageActivated(params);
            UpdateOptionItemStates(params);
            return CPSUICB_ACTION_REINIT_ITEMS;
        default:
            return CPSUICB_ACTION_NONE;
    }
}

void PrinterPageActivated(POEMCUIPPARAM params) {
    OPTITEM* const autoConfigure = FindSwitch(params);
    if (autoConfigure == nullptr) return;
    PrinterLink link;
    if (!DiscoverPrinterPort(params->hPrinter, &link)) {
        autoConfigure->Sel = kSwitchOff;
        // The value replaces every other flag: the user is not to touch a switch without a printer.
        autoConfigure->Flags = kGreyed;
        return;
    }
    if ((autoConfigure->Flags & OPTIF_DISABLED) != 0) {
        autoConfigure->Flags = (autoConfigure->Flags & ~DWORD{OPTIF_DISABLED}) | OPTIF_CHANGED;
        autoConfigure->Sel = kSwitchOn;
    }
    if (autoConfigure->Sel == kSwitchOn) ConfigureFromPrinter(params, link);
}

void UpdateOptionItemStates(POEMCUIPPARAM params) {
    OPTITEM* const autoConfigure = FindSwitch(params);
    if (autoConfigure == nullptr) return;
    const bool isOn = autoConfigure->Sel == kSwitchOn;
    for (const OptionItem& option : kOptions) {
        OPTITEM* const item = FindItem(params, option);
        if (item == nullptr) continue;
        // Greying adds to the item's flags; opening it for the user drops all others.
        item->Flags = isOn ? item->Flags | kGreyed : kEditable;
    }
}

bool AutoConfigure(POEMCUIPPARAM params, const PrinterLink& link, bool* changed) {
    *changed = false;
    OPTITEM* const tray2 = FindItem(params, kTray2);
    OPTITEM* const tray3 = FindItem(params, kTray3);
    OPTITEM* const duplex = FindItem(params, kDuplex);
    const auto installed = QueryInstalledOptions(params->pPrinterName, link);
    if (!installed) return false;
    *changed |= SelectOption(tray2, installed->Tray2);
    *changed |= SelectOption(tray3, installed->Tray3);
    *changed |= SelectOption(duplex, installed->Duplex);
    return true;
}

int FindDriverItemByName(POEMCUIPPARAM params, UINT nameId, UINT firstOptionId) {
    if (params->pDrvOptItems == nullptr) return -1;
    const MessageText name(nameId, PageModule(*params));
    const MessageText firstOption(firstOptionId, PageModule(*params));
    for (DWORD index = 0; index < params->cDrvOptItems; ++index) {
        const OPTITEM& item = params->pDrvOptItems[index];
        if (item.Level <= 1 || !IsText(item.pName, name)) continue;
        if (firstOptionId == 0 || IsText(FirstOptionText(item), firstOption)) {
            return static_cast<int>(index);
        }
    }
    return -1;
}

}  // namespace oemui
