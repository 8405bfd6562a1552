#include "docprops/transmit_once.h"

#include "docprops/document_items.h"

namespace oemui {

void DropTransmitOnce(const DocumentSettings& settings, PrivateDevmode* devmode) {
    if (!settings.HasCopies() || !settings.Collated) devmode->TransmitOnce = 0;
}

LONG ShownTransmitOnce(const DocumentSettings& settings, const PrivateDevmode& devmode) {
    const bool mustSendEachCopy = settings.Copies == 1 || !settings.Collated;
    return mustSendEachCopy ? 0 : static_cast<LONG>(devmode.TransmitOnce);
}

void EnableTransmitOnceByCopies(const OEMCUIPPARAM& params) {
    OPTITEM& item = PluginItem(params, kTransmitOnceItem);
    if (ReadDocumentSettings(params).HasCopies()) {
        EnableItem(&item);
        item.Flags |= OPTIF_CHANGED;
    } else {
        // Replaces the other flags, help included: a single copy has nothing to offer here.
        item.Flags = OPTIF_DISABLED | OPTIF_CHANGED;
    }
}

void StoreTransmitOnce(const OEMCUIPPARAM& params, PrivateDevmode* devmode) {
    const OPTITEM& item = PluginItem(params, kTransmitOnceItem);
    if (!ReadDocumentSettings(params).HasCopies()) {
        devmode->TransmitOnce = 0;
    } else if (IsBuilt(item)) {
        devmode->TransmitOnce = static_cast<UINT32>(item.Sel);
    }
}

}  // namespace oemui
