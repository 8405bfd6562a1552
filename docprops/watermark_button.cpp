#include "docprops/watermark_button.h"

#include <algorithm>
#include <memory>
#include <new>

#include "common/current_printer.h"
#include "common/page_records.h"
#include "docprops/document_items.h"
#include "resources/resource_ids.h"
#include "watermark/watermark_store.h"
#include "wmeditor/editor_dialog.h"

namespace oemui {
namespace {

constexpr INT_PTR kEditorClosedWithOk = 1;
constexpr std::size_t kSparePapers = 1024;

bool IsWatermarkItem(const OEMCUIPPARAM& params, const OPTITEM* item) {
    const MessageText name(IDS_WATERMARK, PageModule(params));
    return item != nullptr && !name.empty() && ItemText(item->pName) == name.View();
}

UINT32 SelectedOrientation(const OEMCUIPPARAM& params) {
    const OPTITEM* orientation = FindDriverItem(params, DMPUB_ORIENTATION);
    if (orientation == nullptr) return DMORIENT_PORTRAIT;
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
    // The call that fills the list cannot be told how much room there is, and a form that another
    // process adds in between makes the list longer than announced. The room behind it is many
    // times what a machine has in papers; more than that added between two calls would still
    // overrun it, and nothing but asking for less than the list could prevent that.
    const std::size_t room = static_cast<std::size_t>(count) + kSparePapers;
    const std::unique_ptr<POINT[]> sizes(new (std::nothrow) POINT[room]);
    if (sizes == nullptr) return;
    const int filled = ::DeviceCapabilitiesW(params.pPrinterName, port, DC_PAPERSIZE,
                                             reinterpret_cast<LPWSTR>(sizes.get()), nullptr);
    const int last = std::min(count, filled) - 1;
    if (last < 0) return;
    const POINT& size = sizes[std::min(static_cast<UINT32>(selection), static_cast<UINT32>(last))];
    PreviewPaperSize = {size.x, size.y};
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

}  // namespace

LONG OpenWatermarkEditor(const CPSUICBPARAM& callback, const OEMCUIPPARAM& params,
                         PrivateDevmode* devmode) {
    if (!IsWatermarkItem(params, callback.pCurItem)) return CPSUICB_ACTION_NONE;
    if (PluginItem(params, kWatermarkItem).Sel != kWatermarkEnabled) return CPSUICB_ACTION_NONE;
    WatermarkList list;
    FillEditorList(params, *devmode, &list);
    SetCurrentPrinter(params.pPrinterName);
    const INT_PTR result =
        ::DialogBoxParamW(PluginModule(), MAKEINTRESOURCEW(IDD_WATERMARK_EDITOR), callback.hDlg,
                          WatermarkEditorProc, reinterpret_cast<LPARAM>(&list));
    if (result != kEditorClosedWithOk) return CPSUICB_ACTION_NONE;
    devmode->WatermarkIndex = UsableWatermarkIndex(static_cast<UINT32>(list.Selected));
    CopyWatermark(&devmode->Watermark, list.Entries[devmode->WatermarkIndex]);
    return CPSUICB_ACTION_ITEMS_APPLIED;
}

UINT32 CaptureEditorPageSetup(const OEMCUIPPARAM& params) {
    const UINT32 orientation = SelectedOrientation(params);
    if (const OPTITEM* form = FindDriverItem(params, DMPUB_FORMNAME); form != nullptr) {
        RecordPaperSize(params, form->Sel);
    }
    return orientation;
}

}  // namespace oemui
