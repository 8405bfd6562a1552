/// The plug-in's four items on the document page.
#pragma once

#include "common/oem_driver_interface.h"

namespace oemui {

/// The places of the plug-in's items in `pOEMOptItems`.
enum DocumentItem : DWORD {
    kScalingItem,
    kWatermarkItem,
    kTransmitOnceItem,
    kRenderingIntentItem,
    kDocumentItemCount
};

/// Answers the number of items (without item memory), or builds them, adjusts the driver's own
/// items to what the printer has installed and puts the page's callback in place. Everything handed
/// to the page comes from its heap and goes with it.
/// \param mode  not looked at.
/// \return S_OK always. Property sheet's thread; may wait for the printer.
HRESULT BuildDocumentItems(DWORD mode, POEMCUIPPARAM params);

}  // namespace oemui
