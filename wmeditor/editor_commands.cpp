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
        if (EditorWindow == dialog) EnableSettingControls(dialog, true);
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

/// Removes what a removal of the shown entry takes out of the list: that entry, and those not in
/// use. \return how many entries are left in front of it.
INT32 RemoveListItems(HWND dialog) {
    INT32 leftInFront = 0;
    for (INT32 i = WorkingWatermarkList.Count - 1; i >= 0; --i) {
        if (i == CurrentIndex || WorkingWatermarkList.Entries[i].InUse != 1) {
            ::SendDlgItemMessageW(dialog, IDC_WATERMARK_LIST, CB_DELETESTRING,
                                  static_cast<WPARAM>(i), 0);
        } else if (i < CurrentIndex) {
            ++leftInFront;
        }
    }
    return leftInFront;
}

/// Removes the shown entry and shows the one before it.
void RemoveShownEntry(HWND dialog) {
    if (!IsListed(CurrentIndex)) return;
    const INT32 previous = std::max(RemoveListItems(dialog) - 1, 0);
    RemoveWatermark(&WorkingWatermarkList, CurrentIndex);
    ::SendDlgItemMessageW(dialog, IDC_WATERMARK_LIST, CB_SETCURSEL, static_cast<WPARAM>(previous),
                          0);
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
    if (AskInEditor(dialog, IDS_CONFIRM_DELETE, IDS_CAPTION_DELETE, MB_OKCANCEL) != IDOK) {
        return false;
    }
    if (WorkingWatermarkList.Count == 1) {
        ShowMessage(IDS_LIST_EMPTY, IDS_CAPTION_WATERMARK, MB_OK);
        if (EditorWindow != dialog) return false;
    } else {
        RemoveShownEntry(dialog);
    }
    EnableControl(dialog, IDC_NEW, true);
    return false;
}

bool CancelEditor(HWND dialog) {
    AddingNew = 0;
    WorkingWatermarkList = OpeningWatermarkList;
    FinishEditor(dialog, 0);
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

void FinishEditor(HWND dialog, INT_PTR result) {
    EditorWindow = nullptr;
    if (::EndDialog(dialog, result)) {
        CallerWatermarkList = nullptr;
    } else {
        EditorWindow = dialog;
    }
}

int AskInEditor(HWND dialog, UINT textId, UINT captionId, UINT type) {
    const INT32 index = CurrentIndex;
    const UINT32 adding = AddingNew;
    const int answer = ShowMessage(textId, captionId, type);
    const bool isTheSame = EditorWindow == dialog && CurrentIndex == index && AddingNew == adding;
    return isTheSame ? answer : 0;
}

bool HandleEditorCommand(HWND dialog, int controlId, UINT notification) {
    if (EditorWindow != dialog) return false;
    if (controlId != IDC_WATERMARK_LIST) EnableControl(dialog, IDC_CANCEL, true);
    if (HandleSettingCommand(dialog, controlId, notification)) return false;
    const auto* const command = std::find_if(
        std::begin(kEditorCommands), std::end(kEditorCommands),
        [controlId](const EditorCommand& candidate) { return candidate.controlId == controlId; });
    return command != std::end(kEditorCommands) && command->handle(dialog);
}

}  // namespace oemui
