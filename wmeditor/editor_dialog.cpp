#include "wmeditor/editor_dialog.h"

#include <algorithm>

#include "resources/resource_ids.h"
#include "wmeditor/editor_commands.h"
#include "wmeditor/editor_controls.h"
#include "wmeditor/editor_help.h"
#include "wmeditor/editor_state.h"

namespace oemui {
namespace {

/// Takes a copy of the caller's list that is safe to index; the caller's own stays as it is.
void TakeList(WatermarkList* caller) {
    CallerWatermarkList = caller;
    WorkingWatermarkList = caller != nullptr ? *caller : WatermarkList{};
    PreviewOrientation = WorkingWatermarkList.Orientation;
    SanitizeWatermarkList(&WorkingWatermarkList);
    if (WorkingWatermarkList.Count == 0) LoadDefaultWatermarks(&WorkingWatermarkList);
    OpeningWatermarkList = WorkingWatermarkList;
}

LONG TextWidth(HDC context, TextView text) {
    SIZE size{};
    if (context == nullptr) return 0;
    ::GetTextExtentPoint32W(context, text.data(), static_cast<int>(text.size()), &size);
    return size.cx;
}

void FillWatermarkList(HWND dialog, INT32 selected) {
    const HDC context = ::GetDC(dialog);
    LONG widest = 0;
    for (INT32 i = 0; IsListed(i); ++i) {
        const WatermarkRecord& entry = WorkingWatermarkList.Entries[i];
        const LRESULT position = ::SendDlgItemMessageW(dialog, IDC_WATERMARK_LIST, CB_ADDSTRING, 0,
                                                       reinterpret_cast<LPARAM>(entry.Name));
        if (position >= 0) {
            ::SendDlgItemMessageW(dialog, IDC_WATERMARK_LIST, CB_SETITEMDATA,
                                  static_cast<WPARAM>(position), static_cast<LPARAM>(i));
        }
        widest = std::max(widest, TextWidth(context, TextIn(entry.Name)));
    }
    if (context != nullptr) ::ReleaseDC(dialog, context);
    ::SendDlgItemMessageW(dialog, IDC_WATERMARK_LIST, CB_SETCURSEL, static_cast<WPARAM>(selected),
                          0);
    ::SendDlgItemMessageW(dialog, IDC_WATERMARK_LIST, CB_SETDROPPEDWIDTH,
                          static_cast<WPARAM>(widest), 0);
}

void OpenEditor(HWND dialog, WatermarkList* caller) {
    EditorWindow = dialog;
    AddingNew = 0;
    TakeList(caller);
    const INT32 selected = WorkingWatermarkList.Selected;
    TakeUpEntry(dialog, selected);
    FillWatermarkList(dialog, selected);
    FillEditorControls(dialog, EditedWatermark, true);
}

}  // namespace

INT_PTR CALLBACK WatermarkEditorProc(HWND dialog, UINT message, WPARAM first, LPARAM second) {
    switch (message) {
        case WM_INITDIALOG:
            OpenEditor(dialog, reinterpret_cast<WatermarkList*>(second));
            return 0;
        case WM_PAINT:
            Repaint(dialog);
            return 0;
        case WM_HELP:
            ShowControlHelp(dialog, reinterpret_cast<const HELPINFO*>(second));
            return 0;
        case WM_COMMAND:
            return HandleEditorCommand(dialog, LOWORD(first), HIWORD(first)) ? 1 : 0;
        default:
            return 0;
    }
}

}  // namespace oemui
