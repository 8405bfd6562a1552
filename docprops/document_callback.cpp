#include "docprops/document_callback.h"

#include <algorithm>
#include <iterator>
#include <memory>
#include <new>

#include "common/model_identity.h"
#include "common/page_records.h"
#include "common/page_state.h"
#include "docprops/document_items.h"
#include "docprops/page_settings.h"
#include "docprops/paper_constraints.h"
#include "resources/resource_ids.h"
#include "watermark/watermark_store.h"
#include "wmeditor/editor_dialog.h"

namespace oemui {
namespace {

constexpr LONG kNupOnePage = 0;
constexpr LONG kNupBooklet = 6;
constexpr LONG kDuplexOff = 0;
constexpr UINT32 kPortrait = 1;
constexpr INT_PTR kEditorClosedWithOk = 1;

/// By the N-up item's choice; the last is booklet.
constexpr UINT32 kPagesPerSheet[] = {1, 2, 4, 6, 9, 16, 2};

OPTITEM& Item(const OEMCUIPPARAM& params, DocumentItem place) {
    return params.pOEMOptItems[place];
}

/// Whether the item could be built; one that could not is cleared and shows no setting.
bool IsBuilt(const OEMCUIPPARAM& params, DocumentItem place) {
    return Item(params, place).pOptType != nullptr;
}

/// The first choice of the item is "Enabled".
UINT32 WatermarkSwitch(const OEMCUIPPARAM& params) {
    return Item(params, kWatermarkItem).Sel == 0 ? 1 : 0;
}

void Enable(OPTITEM* item) {
    item->Flags &= ~static_cast<DWORD>(OPTIF_DISABLED);
}

/// Copies an item's selection into the setting behind it, and marks the item when they differed.
void TakeSelection(OPTITEM* item, UINT32* setting) {
    const auto selection = static_cast<UINT32>(item->Sel);
    if (item->pOptType == nullptr || *setting == selection) return;
    *setting = selection;
    item->Flags |= OPTIF_CHANGED;
}

void TakeWatermarkSwitch(const OEMCUIPPARAM& params, PrivateDevmode* devmode) {
    OPTITEM& item = Item(params, kWatermarkItem);
    // Selection 0 stands for 1: equal numbers disagree.
    if (item.pOptType == nullptr || devmode->WatermarkOn != static_cast<UINT32>(item.Sel)) return;
    devmode->WatermarkOn = WatermarkSwitch(params);
    item.Flags |= OPTIF_CHANGED;
}

void EnableTransmitOnceByCopies(const OEMCUIPPARAM& params) {
    OPTITEM& item = Item(params, kTransmitOnceItem);
    if (ReadPageSettings(params).Copies > 1) {
        Enable(&item);
        item.Flags |= OPTIF_CHANGED;
    } else {
        // Replaces the other flags, help included: a single copy has nothing to offer here.
        item.Flags = OPTIF_DISABLED | OPTIF_CHANGED;
    }
}

void EnableRenderingIntentByColor(const OEMCUIPPARAM& params) {
    OPTITEM& item = Item(params, kRenderingIntentItem);
    if (ReadPageSettings(params).Monochrome) {
        item.Flags = OPTIF_DISABLED;
    } else {
        Enable(&item);
    }
}

LONG OnSelectionChanged(const OEMCUIPPARAM& params, PrivateDevmode* devmode) {
    TakeSelection(&Item(params, kScalingItem), &devmode->Scaling);
    TakeWatermarkSwitch(params, devmode);
    EnableTransmitOnceByCopies(params);
    TakeSelection(&Item(params, kTransmitOnceItem), &devmode->TransmitOnce);
    EnableRenderingIntentByColor(params);
    return CPSUICB_ACTION_OPTIF_CHANGED;
}

LONG OnActivated(const OEMCUIPPARAM& params, const PrivateDevmode& devmode) {
    const PageSettings settings = ReadPageSettings(params);
    const bool mustSendEachCopy = settings.Copies == 1 || !settings.Collated;
    Item(params, kScalingItem).Sel = static_cast<LONG>(devmode.Scaling);
    Item(params, kWatermarkItem).Sel = devmode.WatermarkOn == 0 ? 1 : 0;
    Item(params, kTransmitOnceItem).Sel =
        mustSendEachCopy ? 0 : static_cast<LONG>(devmode.TransmitOnce);
    EnableRenderingIntentByColor(params);
    return CPSUICB_ACTION_REINIT_ITEMS;
}

void StoreRenderingIntent(const OEMCUIPPARAM& params, PrivateDevmode* devmode) {
    if (!IsBuilt(params, kRenderingIntentItem)) return;
    const LONG selection = Item(params, kRenderingIntentItem).Sel;
    if (selection == 0) devmode->RenderingIntent = kIntentSaturation;
    if (selection == 1) devmode->RenderingIntent = kIntentPerceptual;
}

void StoreItems(const OEMCUIPPARAM& params, PrivateDevmode* devmode) {
    const bool hasCopies = ReadPageSettings(params).Copies > 1;
    if (IsBuilt(params, kWatermarkItem)) devmode->WatermarkOn = WatermarkSwitch(params);
    if (IsBuilt(params, kScalingItem)) {
        devmode->Scaling = static_cast<UINT32>(Item(params, kScalingItem).Sel);
    }
    if (!hasCopies) {
        devmode->TransmitOnce = 0;
    } else if (IsBuilt(params, kTransmitOnceItem)) {
        devmode->TransmitOnce = static_cast<UINT32>(Item(params, kTransmitOnceItem).Sel);
    }
}

LONG OnApply(const OEMCUIPPARAM& params, PrivateDevmode* devmode) {
    StoreItems(params, devmode);
    CheckScalingConflict(params, devmode, static_cast<LONG>(devmode->Scaling));
    StoreRenderingIntent(params, devmode);
    devmode->PagesPerSheet = PagesPerSheetFromNup(params);
    DropBookletWithoutDuplex(params, devmode);
    if (Model().Index == 0 && !IsExemptPaper(params) && CheckCustomPaperLength(params)) {
        ResetPaperToFirstForm(params);
    }
    return CPSUICB_ACTION_ITEMS_APPLIED;
}

bool IsWatermarkItem(const OEMCUIPPARAM& params, const OPTITEM* item) {
    const MessageText name(IDS_WATERMARK, PageModule(params));
    return item != nullptr && !name.empty() && ItemText(item->pName) == name.View();
}

/// The list as the editor takes it: the printer's, with the document's choice put in.
void FillEditorList(const OEMCUIPPARAM& params, const PrivateDevmode& devmode,
                    WatermarkList* list) {
    // A list that cannot be read is empty, and the editor then starts from the defaults.
    static_cast<void>(ReadPrinterWatermarkList(params.hPrinter, list));
    const UINT32 index = UsableWatermarkIndex(devmode.WatermarkIndex);
    list->NoneSelected = devmode.WatermarkOn;
    list->Selected = static_cast<INT32>(index);
    CopyWatermark(&list->Entries[index], devmode.Watermark);
    list->Orientation = CaptureEditorPageSetup(params);
}

LONG OnButton(const CPSUICBPARAM& callback, const OEMCUIPPARAM& params, PrivateDevmode* devmode) {
    if (!IsWatermarkItem(params, callback.pCurItem)) return CPSUICB_ACTION_NONE;
    if (WatermarkSwitch(params) == 0) return CPSUICB_ACTION_NONE;
    WatermarkList list;
    FillEditorList(params, *devmode, &list);
    const INT_PTR result =
        ::DialogBoxParamW(PluginModule(), MAKEINTRESOURCEW(IDD_WATERMARK_EDITOR), callback.hDlg,
                          WatermarkEditorProc, reinterpret_cast<LPARAM>(&list));
    if (result != kEditorClosedWithOk) return CPSUICB_ACTION_NONE;
    devmode->WatermarkIndex = UsableWatermarkIndex(static_cast<UINT32>(list.Selected));
    CopyWatermark(&devmode->Watermark, list.Entries[devmode->WatermarkIndex]);
    return CPSUICB_ACTION_ITEMS_APPLIED;
}

/// What the page is told when there is nothing of the plug-in's to work on.
LONG ActionWithoutDevmode(WORD reason) {
    switch (reason) {
        case CPSUICB_REASON_SEL_CHANGED:
            return CPSUICB_ACTION_OPTIF_CHANGED;
        case CPSUICB_REASON_SETACTIVE:
            return CPSUICB_ACTION_REINIT_ITEMS;
        case CPSUICB_REASON_APPLYNOW:
            return CPSUICB_ACTION_ITEMS_APPLIED;
        default:
            return CPSUICB_ACTION_NONE;
    }
}

UINT32 SelectedOrientation(const OEMCUIPPARAM& params) {
    const OPTITEM* orientation = FindDriverItem(params, DMPUB_ORIENTATION);
    if (orientation == nullptr) return kPortrait;
    // The devmode's orientation is a signed 16-bit value, and so is this one.
    const auto value = static_cast<SHORT>(static_cast<WORD>(orientation->Sel) + 1);
    return static_cast<UINT32>(value);
}

/// Takes the size of the selected paper among those of the printer's paper list.
void RecordPaperSize(const OEMCUIPPARAM& params, LONG selection) {
    const LPCWSTR port = TEXT("LPT1");
    const int count =
        ::DeviceCapabilitiesW(params.pPrinterName, port, DC_PAPERSIZE, nullptr, nullptr);
    if (count <= 0) return;
    const std::unique_ptr<POINT[]> sizes(new (std::nothrow) POINT[static_cast<UINT32>(count)]);
    if (sizes == nullptr) return;
    const int filled = ::DeviceCapabilitiesW(params.pPrinterName, port, DC_PAPERSIZE,
                                             reinterpret_cast<LPWSTR>(sizes.get()), nullptr);
    const int last = std::min(count, filled) - 1;
    if (last < 0) return;
    const POINT& size = sizes[std::min(static_cast<UINT32>(selection), static_cast<UINT32>(last))];
    PreviewPaperSize = {size.x, size.y};
}

}  // namespace

LONG APIENTRY DocumentPropertyCallback(PCPSUICBPARAM callback, POEMCUIPPARAM params) {
    if (callback == nullptr || params == nullptr) return CPSUICB_ACTION_NONE;
    PrivateDevmode* devmode = PagePrivateDevmode(*params);
    if (devmode == nullptr || params->pOEMOptItems == nullptr ||
        params->cOEMOptItems < kDocumentItemCount) {
        return ActionWithoutDevmode(callback->Reason);
    }
    switch (callback->Reason) {
        case CPSUICB_REASON_SEL_CHANGED:
            return OnSelectionChanged(*params, devmode);
        case CPSUICB_REASON_SETACTIVE:
            return OnActivated(*params, *devmode);
        case CPSUICB_REASON_APPLYNOW:
            return OnApply(*params, devmode);
        case CPSUICB_REASON_EXTPUSH:
            return OnButton(*callback, *params, devmode);
        default:
            return CPSUICB_ACTION_NONE;
    }
}

UINT32 PagesPerSheetFromNup(const OEMCUIPPARAM& params) {
    const OPTITEM* nup = FindDriverItem(params, DMPUB_NUP);
    if (nup == nullptr || nup->Sel < 0 ||
        nup->Sel >= static_cast<LONG>(std::size(kPagesPerSheet))) {
        return 1;
    }
    return kPagesPerSheet[nup->Sel];
}

void CheckScalingConflict(const OEMCUIPPARAM& params, PrivateDevmode* devmode, LONG scaling) {
    const OPTITEM* nup = FindDriverItem(params, DMPUB_NUP);
    if (scaling == static_cast<LONG>(kUnscaled) || nup == nullptr || nup->Sel == kNupOnePage) {
        return;
    }
    if (PluginModule() != nullptr) ShowMessage(IDS_SCALING_CONFLICT, IDS_CAPTION_CONFLICT, MB_OK);
    devmode->Scaling = kUnscaled;
    OPTITEM& item = Item(params, kScalingItem);
    item.Sel = static_cast<LONG>(kUnscaled);
    item.Flags |= OPTIF_CHANGED;
}

void DropBookletWithoutDuplex(const OEMCUIPPARAM& params, PrivateDevmode* devmode) {
    POPTITEM nup = FindDriverItem(params, DMPUB_NUP);
    const OPTITEM* duplex = FindDriverItem(params, DMPUB_DUPLEX);
    const bool isUnservedBooklet =
        nup != nullptr && nup->Sel == kNupBooklet && duplex != nullptr && duplex->Sel == kDuplexOff;
    if (!isUnservedBooklet) return;
    nup->Sel = kNupOnePage;
    nup->Flags |= OPTIF_CHANGED;
    ReportSelectionToDriver(params, nup);
    devmode->PagesPerSheet = 0;
}

UINT32 CaptureEditorPageSetup(const OEMCUIPPARAM& params) {
    const UINT32 orientation = SelectedOrientation(params);
    if (const OPTITEM* form = FindDriverItem(params, DMPUB_FORMNAME); form != nullptr) {
        RecordPaperSize(params, form->Sel);
    }
    return orientation;
}

}  // namespace oemui
