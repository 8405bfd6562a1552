#include "docprops/document_items.h"

#include "common/current_printer.h"
#include "common/driver_info.h"
#include "common/model_identity.h"
#include "common/page_records.h"
#include "common/unique_handle.h"
#include "docprops/document_callback.h"
#include "docprops/document_settings.h"
#include "docprops/driver_choices.h"
#include "docprops/duplex_and_trays.h"
#include "docprops/exempt_papers.h"
#include "docprops/transmit_once.h"
#include "resources/resource_ids.h"
#include "watermark/default_watermarks.h"
#include "watermark/watermark_store.h"

namespace oemui {
namespace {

constexpr WORD kChoiceCount = 2;
constexpr BYTE kItemLevel = 1;
constexpr ULONG_PTR kEditIcon = 1002;
constexpr DWORD kShownAsChanged = OPTIF_COLLAPSE | OPTIF_CHANGED;

/// The page being built.
struct NewPage {
    const OEMCUIPPARAM& Params;
    PrivateDevmode& Devmode;
};

struct ChoiceLayout {
    UINT TextId;  ///< 0 for none
    ULONG_PTR Icon;
};

struct ItemLayout {
    UINT NameId;
    BYTE Type;
    ChoiceLayout Choices[kChoiceCount];
    DWORD HelpTopic;
};

constexpr ItemLayout kLayouts[kDocumentItemCount] = {
    // The number's range: the lowest value stands where the second choice has its icon.
    {IDS_SCALING, TVOT_UDARROW, {{0, 0}, {0, kSmallestScaling}}, 1212},
    {IDS_WATERMARK,
     TVOT_COMBOBOX,
     {{IDS_ENABLED, IDI_CPSUI_ON}, {IDS_DISABLED, IDI_CPSUI_OFF}},
     1114},
    {IDS_TRANSMIT_ONCE, TVOT_COMBOBOX, {{IDS_OFF, IDI_CPSUI_OFF}, {IDS_ON, IDI_CPSUI_ON}}, 1115},
    {IDS_RENDERING_INTENT, TVOT_COMBOBOX, {{IDS_SATURATION, 0}, {IDS_PERCEPTUAL, 0}}, 1123},
};

// One button for every page of the process, which keeps its address, and its title: a page that is
// gone takes neither along.
EXTPUSH editButton = {};
MessageText editTitle;

PWSTR LoadPageText(const OEMCUIPPARAM& params, UINT textId) {
    return textId == 0 ? nullptr : LoadItemText(params.hOEMHeap, PageModule(params), textId);
}

/// The type record with its choices; null when the heap is exhausted.
POPTTYPE MakeType(const OEMCUIPPARAM& params, const ItemLayout& layout) {
    auto* type = AllocateForPage<OPTTYPE>(params.hOEMHeap);
    auto* choices = AllocateForPage<OPTPARAM>(params.hOEMHeap, kChoiceCount);
    if (type == nullptr || choices == nullptr) return nullptr;
    for (WORD i = 0; i < kChoiceCount; ++i) {
        choices[i].pData = LoadPageText(params, layout.Choices[i].TextId);
        choices[i].IconID = layout.Choices[i].Icon;
    }
    type->Type = layout.Type;
    type->Count = kChoiceCount;
    type->pOptParam = choices;
    return type;
}

void AttachHelp(const OEMCUIPPARAM& params, DWORD topic, POPTITEM item) {
    item->pOIExt = AllocateForPage<OIEXT>(params.hOEMHeap);
    if (item->pOIExt == nullptr) return;
    item->pOIExt->pHelpFile = BuildHelpFilePath(params.hPrinter, params.hOEMHeap,
                                                PageModule(params), IDS_HELP_FILE + Model().Index);
    item->Flags |= OPTIF_HAS_POIEXT;
    item->HelpIndex = topic;
}

/// Builds one item. It stays as it was cleared, and the result is null, when the heap is exhausted
/// or the page has no room for the item.
POPTITEM BuildItem(const NewPage& page, DocumentItem place, LONG selection, DWORD flags) {
    if (place >= page.Params.cOEMOptItems) return nullptr;
    const ItemLayout& layout = kLayouts[place];
    POPTTYPE type = MakeType(page.Params, layout);
    if (type == nullptr) return nullptr;
    POPTITEM item = page.Params.pOEMOptItems + place;
    item->Level = kItemLevel;
    item->Flags = flags;
    item->pName = LoadPageText(page.Params, layout.NameId);
    item->Sel = selection;
    item->pOptType = type;
    AttachHelp(page.Params, layout.HelpTopic, item);
    return item;
}

void BuildScalingItem(const NewPage& page) {
    UINT32& scaling = page.Devmode.Scaling;
    if (!IsValidScaling(scaling)) scaling = kUnscaled;
    POPTITEM item = BuildItem(page, kScalingItem, static_cast<LONG>(scaling), kShownAsChanged);
    if (item == nullptr) return;
    item->pOptType->pOptParam[0].pData = CopyToHeap(page.Params.hOEMHeap, {TEXT("%")});
    item->pOptType->pOptParam[1].lParam = kLargestScaling;
}

/// Keeps the devmode's copy of the first entry, which stands for no watermark, as the printer's
/// list has it; makes that list from the defaults when there is none.
void RefreshFirstWatermark(LPCWSTR printerName, PrivateDevmode* devmode) {
    const UniquePrinter printer = OpenPrinterFor(printerName, PRINTER_ALL_ACCESS);
    if (!printer) return;
    WatermarkList list;
    if (ReadPrinterWatermarkList(printer.Get(), &list) != ERROR_SUCCESS) {
        InitPrinterWatermarkList(printerName);
        static_cast<void>(ReadPrinterWatermarkList(printer.Get(), &list));
    }
    if (UsableWatermarkIndex(devmode->WatermarkIndex) == 0) {
        CopyWatermark(&devmode->Watermark, list.Entries[0]);
    }
}

PEXTPUSH RewriteEditButton(const OEMCUIPPARAM& params) {
    editButton = {};
    editButton.cbSize = sizeof editButton;
    editTitle = MessageText(IDS_EDIT, PageModule(params));
    if (!editTitle.empty()) editButton.pTitle = editTitle.Room();
    editButton.IconID = kEditIcon;
    return &editButton;
}

void BuildWatermarkItem(const NewPage& page) {
    RefreshFirstWatermark(page.Params.pPrinterName, &page.Devmode);
    POPTITEM item = BuildItem(page, kWatermarkItem, WatermarkSelection(page.Devmode),
                              kShownAsChanged | OPTIF_CALLBACK | OPTIF_EXT_IS_EXTPUSH);
    if (item != nullptr) item->pExtPush = RewriteEditButton(page.Params);
}

void BuildTransmitOnceItem(const NewPage& page) {
    const DocumentSettings settings = ReadDocumentSettings(page.Params);
    DropTransmitOnce(settings, &page.Devmode);
    BuildItem(page, kTransmitOnceItem, static_cast<LONG>(page.Devmode.TransmitOnce),
              kShownAsChanged | (settings.HasCopies() ? 0 : OPTIF_DISABLED));
}

void BuildRenderingIntentItem(const NewPage& page) {
    const bool isPerceptual = page.Devmode.RenderingIntent == kIntentPerceptual;
    BuildItem(page, kRenderingIntentItem, isPerceptual ? kPerceptualChosen : kSaturationChosen, 0);
}

void ClearItems(const OEMCUIPPARAM& params) {
    for (DWORD i = 0; i < params.cOEMOptItems; ++i) {
        params.pOEMOptItems[i] = {};
        params.pOEMOptItems[i].cbSize = sizeof(OPTITEM);
        params.pOEMOptItems[i].DMPubID = DMPUB_NONE;
    }
}

void BuildItems(const OEMCUIPPARAM& params) {
    PrivateDevmode* devmode = PagePrivateDevmode(params);
    if (devmode == nullptr) return;
    const NewPage page = {params, *devmode};
    BuildScalingItem(page);
    BuildWatermarkItem(page);
    BuildTransmitOnceItem(page);
    BuildRenderingIntentItem(page);
}

/// Colours are the printer's own business with this driver: its choices stay out of sight.
void HideColorManagement(const OEMCUIPPARAM& params) {
    if (POPTITEM method = FindDriverItem(params, DMPUB_ICMMETHOD); method != nullptr) {
        method->Sel = kDriverColorManagement;
        method->Flags = OPTIF_HIDE;
        if (params.pPublicDM != nullptr) params.pPublicDM->dmICMMethod = DMICMMETHOD_DRIVER;
    }
    if (POPTITEM intent = FindDriverItem(params, DMPUB_ICMINTENT); intent != nullptr) {
        intent->Flags = OPTIF_HIDE;
    }
}

}  // namespace

HRESULT BuildDocumentItems(DWORD /*mode*/, POEMCUIPPARAM params) {
    if (params->pOEMOptItems == nullptr) {
        params->cOEMOptItems = kDocumentItemCount;
        if (Model().Index == 0) LoadExemptPaperNames();
        return S_OK;
    }
    params->OEMCUIPCallback = DocumentPropertyCallback;
    ClearItems(*params);
    BuildItems(*params);
    AdjustDriverItems(params);
    HideColorManagement(*params);
    SetCurrentPrinter(params->pPrinterName);
    return S_OK;
}

}  // namespace oemui
