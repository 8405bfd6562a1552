#include "docprops/scaling_under_nup.h"

#include "common/message.h"
#include "common/page_records.h"
#include "docprops/document_items.h"
#include "docprops/driver_choices.h"
#include "resources/resource_ids.h"

namespace oemui {

void CheckScalingConflict(const OEMCUIPPARAM& params, PrivateDevmode* devmode) {
    const OPTITEM* nup = FindDriverItem(params, DMPUB_NUP);
    if (nup == nullptr || NupChoice{nup->Sel} == NupChoice::kOne) return;
    if (devmode->Scaling == kUnscaled) return;
    if (PluginModule() != nullptr) ShowMessage(IDS_SCALING_CONFLICT, IDS_CAPTION_CONFLICT, MB_OK);
    devmode->Scaling = kUnscaled;
    OPTITEM& item = PluginItem(params, kScalingItem);
    item.Sel = static_cast<LONG>(kUnscaled);
    item.Flags |= OPTIF_CHANGED;
}

}  // namespace oemui
