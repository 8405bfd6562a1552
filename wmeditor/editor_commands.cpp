#include "wmeditor/editor_commands.h"

#include <algorithm>
#include <iterator>

#include "resources/resource_ids.h"
#include "wmeditor/editor_controls.h"
#include "wmeditor/editor_help.h"
#include "wmeditor/editor_settings.h"
#include "wmeditor/editor_state.h"
#include "wmeditor/watermark_list_editing.h"

namespace oemui {
namespace {

void ShowNewWatermark(HWND dialog) {
    // A new watermark starts from the settings of entry 0, under a name of its own.
    EditEntry(0);
    FillEditorControls(dialog, EditedWatermark, false);
    WCHAR name[std::size(WatermarkRecord{}.Name)];
    MakeDefaultWatermarkName(WorkingWatermarkList, name);
    ::SetDlgItemTextW(dialog, IDC_NAME, name);
    ::SetDlgItemTextW(dialog, IDC_TEXT,
                      LoadedText<kListTextCapacity>(IDS_NEW_WATERMARK_TEXT).c_str());
}

bool StartNewWatermark(HWND dialog) {
    EnableControl(dialog, IDC_NEW, false);
    if (WorkingWatermarkList.Count >= kWatermarkCapacity) {
        ShowMessage(IDS_LIST_FULL, IDS_CAPTION_ERROR, MB_OK);
        EnableSettingControls(dialog, true);
        return false;
    }
    EnableControl(dialog, IDC_DELETE, false);
    EnableControl(dialog, IDC_WATERMARK_LIST, false);
    ShowNewWatermark(dialog);
    AddingNew = 1;
    const HWND name = ::GetDlgItem(dialog, IDC_NAME);
    if (name != nullptr) ::SetFocus(name);
    EnableSettingControls(dialog, true);
    return false;
}

/// Removes the shown entry and shows the one before it.
void RemoveShownEntry(HWND dialog) {
    RemoveWatermark(&WorkingWatermarkList, CurrentIndex);
    const INT32 previous = std::max(CurrentIndex - 1, 0);
    if (CurrentIndex > 0) {
        ::SendDlgItemMessageW(dialog, IDC_WATERMARK_LIST, CB_DELETESTRING,
                              static_cast<WPARAM>(CurrentIndex), 0);
        ::SendDlgItemMessageW(dialog, IDC_WATERMARK_LIST, CB_SETCURSEL,
                              static_cast<WPARAM>(previous), 0);
    }
    EditEntry(previous);
    FillEditorControls(dialog, EditedWatermark, false);
    CurrentIndex = previous;
    if (CurrentIndex == 0) {
        EnableSettingControls(dialog, false);
        EnableControl(dialog, IDC_DELETE, false);
    }
    EnableControl(dialog, IDC_CANCEL, false);
}

bool DeleteShownEntry(HWND dialog) {
    if (CurrentIndex == 0) {
        EnableSettingControls(dialog, false);
        ShowMessage(IDS_NONE_NOT_DELETED, IDS_CAPTION_WATERMARK, MB_OK);
        return false;
    }
    if (ShowMessage(IDS_CONFIRM_DELETE, IDS_CAPTION_DELETE, MB_OKCANCEL) != IDOK) return false;
    if (WorkingWatermarkList.Count == 1) {
        ShowMessage(IDS_LIST_EMPTY, IDS_CAPTION_WATERMARK, MB_OK);
    } else {
        RemoveShownEntry(dialog);
    }
    EnableControl(dialog, IDC_NEW, true);
    return false;
}

bool CancelEditor(HWND dialog) {
    AddingNew = 0;
    WorkingWatermarkList = OpeningWatermarkList;
    ::EndDialog(dialog, 0);
    return true;
}

bool SelectEntry(HWND dialog) {
    ShowSelectedEntry(dialog);
    return false;
}

bool ShowHelp(HWND dialog) {
    ShowEditorHelp(dialog);
    return false;
}

struct EditorCommand {
    int controlId;
    bool (*handle)(HWND dialog);  ///< answers whether the dialog ended
};

constexpr EditorCommand kEditorCommands[] = {
    {IDC_WATERMARK_LIST, SelectEntry}, {IDC_NEW, StartNewWatermark},
    {IDC_DELETE, DeleteShownEntry},    {IDOK, ConfirmEditor},
    {IDC_CANCEL, CancelEditor},        {IDCANCEL, CancelEditor},
    {IDC_HELP_BUTTON, ShowHelp},
};

}  // namespace

bool HandleEditorCommand(HWND dialog, int controlId, UINT notification) {
    if (controlId != IDC_WATERMARK_LIST) EnableControl(dialog, IDC_CANCEL, true);
    if (HandleSettingCommand(dialog, controlId, notification)) return false;
    const auto* const command = std::find_if(
        std::begin(kEditorCommands), std::end(kEditorCommands),
        [controlId](const EditorCommand& candidate) { return candidate.controlId == controlId; });
    return command != std::end(kEditorCommands) && command->handle(dialog);
}

}  // namespace oemui
