#include <iterator>

#include "common/page_state.h"
#include "resources/resource_ids.h"
#include "watermark/watermark_store.h"
#include "wmeditor/editor_commands.h"
#include "wmeditor/editor_controls.h"
#include "wmeditor/editor_state.h"
#include "wmeditor/watermark_list_editing.h"

namespace oemui {
namespace {

bool MayOverwrite() {
    return ShowMessage(IDS_CONFIRM_OVERWRITE, IDS_CAPTION_WARNING, MB_YESNO) == IDYES;
}

/// Stores the list with this selection and ends the dialog, also when it cannot be stored.
bool SaveAndEnd(HWND dialog, INT32 selection) {
    const INT32 selected = IsListed(selection) ? selection : 0;
    WorkingWatermarkList.NoneSelected = selected == 0 ? 1 : 0;
    WorkingWatermarkList.Selected = selected;
    CopyWatermarkList(CallerWatermarkList, &WorkingWatermarkList);
    WritePrinterWatermarkList(CurrentPrinterName, WorkingWatermarkList, IDS_LIST_NOT_STORED);
    AddingNew = 0;
    ::EndDialog(dialog, 1);
    return true;
}

/// The edited record with everything that the controls show read anew; the position stays.
WatermarkRecord RecordInControls(HWND dialog) {
    WatermarkRecord record = EditedWatermark;
    ReadText(dialog, IDC_NAME, record.Name);
    ReadText(dialog, IDC_TEXT, record.Text);
    ReadText(dialog, IDC_TYPEFACE, record.FaceName);
    record.PointSize = static_cast<INT32>(::GetDlgItemInt(dialog, IDC_POINT_SIZE, nullptr, TRUE));
    record.Bold = static_cast<BYTE>(::SendDlgItemMessageW(dialog, IDC_BOLD, BM_GETCHECK, 0, 0));
    record.Italic = static_cast<BYTE>(::SendDlgItemMessageW(dialog, IDC_ITALIC, BM_GETCHECK, 0, 0));
    record.ColorIndex = static_cast<UINT32>(SelectedPosition(dialog, IDC_COLOR));
    SetColorFromIndex(&record, record.ColorIndex);
    record.AngleKind = static_cast<UINT32>(SelectedPosition(dialog, IDC_ANGLE));
    record.AngleDegrees =
        static_cast<INT32>(::GetDlgItemInt(dialog, IDC_USER_ANGLE, nullptr, TRUE));
    return record;
}

void AddNewEntry(HWND dialog) {
    WatermarkRecord record = RecordInControls(dialog);
    ClampPointSize(&record.PointSize);
    CurrentIndex = WorkingWatermarkList.Count;
    InsertNewWatermark(&WorkingWatermarkList, record);
    const INT32 selected = WorkingWatermarkList.Selected;
    if (selected <= 0) return;
    ::SendDlgItemMessageW(dialog, IDC_WATERMARK_LIST, CB_ADDSTRING, 0,
                          reinterpret_cast<LPARAM>(WorkingWatermarkList.Entries[selected].Name));
    ::SendDlgItemMessageW(dialog, IDC_WATERMARK_LIST, CB_SETCURSEL, static_cast<WPARAM>(selected),
                          0);
}

void OverwriteEntry(INT32 index) {
    ClampPointSize(&EditedWatermark.PointSize);
    CopyWatermark(&WorkingWatermarkList.Entries[index], EditedWatermark);
}

void AnnounceSelectedWatermark() {
    const LoadedText<kMessageCapacity> format(IDS_NEW_WATERMARK_SELECTED);
    WCHAR text[kMessageCapacity + std::size(WatermarkRecord{}.Name)] = {};
    ::wsprintfW(text, format.c_str(), EditedWatermark.Name);
    ShowMessageText(text, IDS_CAPTION_WATERMARK, MB_OK);
}

bool ConfirmNewWatermark(HWND dialog) {
    if (!ValidateNewWatermark(WorkingWatermarkList, EditedWatermark)) return false;
    const INT32 existing = FindWatermarkByName(WorkingWatermarkList, TextIn(EditedWatermark.Name));
    if (existing >= 1 && existing < kNoSuchWatermark) {
        if (!MayOverwrite()) return false;
        OverwriteEntry(existing);
        WorkingWatermarkList.Selected = existing;
    } else {
        AddNewEntry(dialog);
    }
    EditEntry(WorkingWatermarkList.Selected);
    AnnounceSelectedWatermark();
    return SaveAndEnd(dialog, WorkingWatermarkList.Selected);
}

/// Back to the entry that was selected when the dialog opened, as it was then.
void RestoreOpeningSelection(HWND dialog) {
    const INT32 selected = OpeningWatermarkList.Selected;
    if (IsListed(selected)) {
        CopyWatermark(&WorkingWatermarkList.Entries[selected],
                      OpeningWatermarkList.Entries[selected]);
    }
    // After a deletion the list may have become too short for it.
    ::SendDlgItemMessageW(dialog, IDC_WATERMARK_LIST, CB_SETCURSEL,
                          static_cast<WPARAM>(IsListed(selected) ? selected : 0), 0);
    ShowSelectedEntry(dialog);
}

bool ConfirmEditedEntry(HWND dialog) {
    if (IsListed(CurrentIndex)) {
        // Compared with the entry that held this place when the dialog opened: after a deletion
        // that may be another watermark, and then nothing is asked.
        const WatermarkRecord& opening = OpeningWatermarkList.Entries[CurrentIndex];
        if (CountWatermarkChanges(opening, EditedWatermark) > 0 && !MayOverwrite()) {
            RestoreOpeningSelection(dialog);
            return false;
        }
        OverwriteEntry(CurrentIndex);
    }
    AddingNew = 0;
    return SaveAndEnd(dialog, SelectedPosition(dialog, IDC_WATERMARK_LIST));
}

}  // namespace

bool ConfirmEditor(HWND dialog) {
    return AddingNew != 0 ? ConfirmNewWatermark(dialog) : ConfirmEditedEntry(dialog);
}

}  // namespace oemui
