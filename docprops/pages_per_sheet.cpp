#include "docprops/pages_per_sheet.h"

#include <array>

#include "common/page_records.h"
#include "docprops/driver_choices.h"

namespace oemui {

UINT32 PagesPerSheetFromNup(const OEMCUIPPARAM& params) {
    // By the N-up item's choice; the last is booklet.
    constexpr auto kPages = std::to_array<UINT32>({1, 2, 4, 6, 9, 16, 2});
    const OPTITEM* nup = FindDriverItem(params, DMPUB_NUP);
    if (nup == nullptr || nup->Sel < 0 || nup->Sel >= static_cast<LONG>(kPages.size())) return 1;
    return kPages[static_cast<std::size_t>(nup->Sel)];
}

void DropBookletWithoutDuplex(const OEMCUIPPARAM& params, PrivateDevmode* devmode) {
    OPTITEM* nup = FindDriverItem(params, DMPUB_NUP);
    const OPTITEM* duplex = FindDriverItem(params, DMPUB_DUPLEX);
    if (nup == nullptr || NupChoice{nup->Sel} != NupChoice::kBooklet) return;
    if (duplex == nullptr || duplex->Sel != kDuplexOff) return;
    nup->Sel = static_cast<LONG>(NupChoice::kOne);
    nup->Flags |= OPTIF_CHANGED;
    ReportSelectionToDriver(params, nup);
    devmode->PagesPerSheet = 0;
}

}  // namespace oemui
