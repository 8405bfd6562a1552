#include "docprops/document_callback.h"

#include "common/model_identity.h"
#include "docprops/document_items.h"
#include "docprops/document_settings.h"
#include "docprops/exempt_papers.h"
#include "docprops/pages_per_sheet.h"
#include "docprops/paper_length_limits.h"
#include "docprops/scaling_under_nup.h"
#include "docprops/transmit_once.h"
#include "docprops/watermark_button.h"

namespace oemui {
namespace {

UINT32 WatermarkSwitch(const OEMCUIPPARAM& params) {
    return PluginItem(params, kWatermarkItem).Sel == kWatermarkEnabled ? 1 : 0;
}

/// Copies an item's selection into the setting behind it, and marks the item when they differed.
void TakeSelection(OPTITEM* item, UINT32* setting) {
    const auto selection = static_cast<UINT32>(item->Sel);
    if (item->pOptType == nullptr || *setting == selection) return;
    *setting = selection;
    item->Flags |= OPTIF_CHANGED;
}

void TakeWatermarkSwitch(const OEMCUIPPARAM& params, PrivateDevmode* devmode) {
    OPTITEM& item = PluginItem(params, kWatermarkItem);
    // Selection 0 stands for 1: equal numbers disagree.
    if (item.pOptType == nullptr || devmode->WatermarkOn != static_cast<UINT32>(item.Sel)) return;
    devmode->WatermarkOn = WatermarkSwitch(params);
    item.Flags |= OPTIF_CHANGED;
}

void EnableRenderingIntentByColor(const OEMCUIPPARAM& params) {
    OPTITEM& item = PluginItem(params, kRenderingIntentItem);
    if (ReadDocumentSettings(params).Monochrome) {
        item.Flags = OPTIF_DISABLED;
    } else {
        EnableItem(&item);
    }
}

LONG OnSelectionChanged(const OEMCUIPPARAM& params, PrivateDevmode* devmode) {
    TakeSelection(&PluginItem(params, kScalingItem), &devmode->Scaling);
    TakeWatermarkSwitch(params, devmode);
    EnableTransmitOnceByCopies(params);
    TakeSelection(&PluginItem(params, kTransmitOnceItem), &devmode->TransmitOnce);
    EnableRenderingIntentByColor(params);
    return CPSUICB_ACTION_OPTIF_CHANGED;
}

LONG OnActivated(const OEMCUIPPARAM& params, const PrivateDevmode& devmode) {
    const DocumentSettings settings = ReadDocumentSettings(params);
    PluginItem(params, kScalingItem).Sel = static_cast<LONG>(devmode.Scaling);
    PluginItem(params, kWatermarkItem).Sel = WatermarkSelection(devmode);
    PluginItem(params, kTransmitOnceItem).Sel = ShownTransmitOnce(settings, devmode);
    EnableRenderingIntentByColor(params);
    return CPSUICB_ACTION_REINIT_ITEMS;
}

void StoreRenderingIntent(const OEMCUIPPARAM& params, PrivateDevmode* devmode) {
    if (!IsBuilt(PluginItem(params, kRenderingIntentItem))) return;
    const LONG selection = PluginItem(params, kRenderingIntentItem).Sel;
    if (selection == kSaturationChosen) devmode->RenderingIntent = kIntentSaturation;
    if (selection == kPerceptualChosen) devmode->RenderingIntent = kIntentPerceptual;
}

void StoreItems(const OEMCUIPPARAM& params, PrivateDevmode* devmode) {
    if (IsBuilt(PluginItem(params, kWatermarkItem))) devmode->WatermarkOn = WatermarkSwitch(params);
    if (IsBuilt(PluginItem(params, kScalingItem))) {
        devmode->Scaling = static_cast<UINT32>(PluginItem(params, kScalingItem).Sel);
    }
    StoreTransmitOnce(params, devmode);
}

LONG OnApply(const OEMCUIPPARAM& params, PrivateDevmode* devmode) {
    StoreItems(params, devmode);
    CheckScalingConflict(params, devmode);
    StoreRenderingIntent(params, devmode);
    devmode->PagesPerSheet = PagesPerSheetFromNup(params);
    DropBookletWithoutDuplex(params, devmode);
    if (Model().Index == 0 && !IsExemptPaper(params) && CheckCustomPaperLength(params)) {
        ResetPaperToFirstForm(params);
    }
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

}  // namespace

LONG APIENTRY DocumentPropertyCallback(PCPSUICBPARAM callback, POEMCUIPPARAM params) noexcept {
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
            return OpenWatermarkEditor(*callback, *params, devmode);
        default:
            return CPSUICB_ACTION_NONE;
    }
}

}  // namespace oemui
