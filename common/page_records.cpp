#include "common/page_records.h"

namespace oemui {

POPTITEM FindDriverItem(const OEMCUIPPARAM& params, BYTE publicId) {
    if (params.pDrvOptItems == nullptr) return nullptr;
    POPTITEM end = params.pDrvOptItems + params.cDrvOptItems;
    POPTITEM found = std::find_if(params.pDrvOptItems, end, [publicId](const OPTITEM& item) {
        return item.DMPubID == publicId;
    });
    return found == end ? nullptr : found;
}

POPTPARAM FindChoice(const OPTITEM& item, LONG choice) {
    const OPTTYPE* type = item.pOptType;
    if (type == nullptr || type->pOptParam == nullptr) return nullptr;
    if (choice < 0 || choice >= type->Count) return nullptr;
    return type->pOptParam + choice;
}

POEMUIPROCS DriverFunctions(const OEMCUIPPARAM& params) {
    return params.poemuiobj == nullptr ? nullptr : params.poemuiobj->pOemUIProcs;
}

void ReportSelectionToDriver(const OEMCUIPPARAM& params, POPTITEM item) {
    POEMUIPROCS driver = DriverFunctions(params);
    if (driver == nullptr || driver->DrvUpdateUISetting == nullptr) return;
    driver->DrvUpdateUISetting(params.poemuiobj, item, 0, OEMCUIP_DOCPROP);
}

}  // namespace oemui
