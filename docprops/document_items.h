/// The plug-in's four items on the document page.
#pragma once

#include "common/oem_driver_interface.h"
#include "devmode/private_devmode.h"

namespace oemui {

/// The places of the plug-in's items in `pOEMOptItems`.
enum DocumentItem : DWORD {
    kScalingItem,
    kWatermarkItem,
    kTransmitOnceItem,
    kRenderingIntentItem,
    kDocumentItemCount
};

/// Selections of the watermark item and of the rendering intent's.
inline constexpr LONG kWatermarkEnabled = 0;
inline constexpr LONG kWatermarkDisabled = 1;
inline constexpr LONG kSaturationChosen = 0;
inline constexpr LONG kPerceptualChosen = 1;

inline OPTITEM& PluginItem(const OEMCUIPPARAM& params, DocumentItem place) {
    return params.pOEMOptItems[place];
}

/// Whether the item could be built; one that could not is cleared and shows no setting.
inline bool IsBuilt(const OPTITEM& item) {
    return item.pOptType != nullptr;
}

inline void EnableItem(OPTITEM* item) {
    item->Flags &= ~static_cast<DWORD>(OPTIF_DISABLED);
}

inline LONG WatermarkSelection(const PrivateDevmode& devmode) {
    return devmode.WatermarkOn != 0 ? kWatermarkEnabled : kWatermarkDisabled;
}

/// Answers the number of items (without item memory), or builds them, adjusts the driver's own
/// items to what the printer has installed and puts the page's callback in place. Everything handed
/// to the page comes from its heap and goes with it.
/// \param mode  not looked at.
/// \return S_OK always. Property sheet's thread; may wait for the printer.
HRESULT BuildDocumentItems(DWORD mode, POEMCUIPPARAM params);

}  // namespace oemui
