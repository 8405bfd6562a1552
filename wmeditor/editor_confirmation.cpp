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

int AskOverwrite(HWND dialog) {
    return AskInEditor(dialog, IDS_CONFIRM_OVERWRITE, IDS_CAPTION_WARNING, MB_YESNO);
}

/// Stores the list with this selection and ends the dialog, also when it cannot be stored.
bool SaveAndEnd(HWND dialog, INT32 selection) {
    const INT32 selected = IsListed(selection) ? selection : 0;
    WorkingWatermarkList.NoneSelected = selected == 0 ? 1 : 0;
    WorkingWatermarkList.Selected = selected;
    // It is settled: what the user does below a message that the list could not be stored is void.
    EditorWindow = nullptr;
    CopyWatermarkList(CallerWatermarkList, &WorkingWatermarkList);
    WritePrinterWatermarkList(CurrentPrinterName, WorkingWatermarkList, IDS_LIST_NOT_STORED);
    AddingNew = 0;
    FinishEditor(dialog, 1);
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
        if (AskOverwrite(dialog) != IDYES) return false;
        ClampPointSize(&EditedWatermark.PointSize);
        CopyWatermark(&WorkingWatermarkList.Entries[existing], EditedWatermark);
        WorkingWatermarkList.Selected = existing;
    } else {
        AddNewEntry(dialog);
    }
    EditEntry(WorkingWatermarkList.Selected);
    AnnounceSelectedWatermark();
    if (EditorWindow != dialog) return false;
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

/// Entry 0 prints nothing: a size that nobody has changed stays as it is, whatever it is.
void ClampEditedSize() {
    const bool untouched =
        EditedWatermark.PointSize == WorkingWatermarkList.Entries[CurrentIndex].PointSize;
    if (CurrentIndex != 0 || !untouched) ClampPointSize(&EditedWatermark.PointSize);
}

/// Whether the edited entry may be stored in its place: asks when its settings have changed.
bool MayStoreEditedEntry(HWND dialog) {
    // Compared with the entry that held this place when the dialog opened: after a deletion that
    // may be another watermark, and then nothing is asked.
    const WatermarkRecord& opening = OpeningWatermarkList.Entries[CurrentIndex];
    if (CountWatermarkChanges(opening, EditedWatermark) == 0) return true;
    const int answer = AskOverwrite(dialog);
    if (answer == IDNO) RestoreOpeningSelection(dialog);
    return answer == IDYES;
}

bool ConfirmEditedEntry(HWND dialog) {
    if (IsListed(CurrentIndex)) {
        ClampEditedSize();
        if (!MayStoreEditedEntry(dialog)) return false;
        CopyWatermark(&WorkingWatermarkList.Entries[CurrentIndex], EditedWatermark);
    }
    AddingNew = 0;
    return SaveAndEnd(dialog, SelectedPosition(dialog, IDC_WATERMARK_LIST));
}

}  // namespace

bool ConfirmEditor(HWND dialog) {
    return AddingNew != 0 ? ConfirmNewWatermark(dialog) : ConfirmEditedEntry(dialog);
}

}  // namespace oemui
