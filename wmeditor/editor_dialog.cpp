#include "wmeditor/editor_dialog.h"

#include <algorithm>
#include <array>

#include "resources/resource_ids.h"
#include "wmeditor/choice_lists.h"
#include "wmeditor/delete_watermark.h"
#include "wmeditor/dialog_controls.h"
#include "wmeditor/editor_form.h"
#include "wmeditor/editor_help.h"
#include "wmeditor/new_watermark.h"
#include "wmeditor/ok_command.h"
#include "wmeditor/setting_commands.h"
#include "wmeditor/watermark_preview.h"

namespace oemui {
namespace {

void OpenEditor(EditorSession& session, HWND dialog, WatermarkList* caller) {
    session.Open(dialog, caller);
    EnableForCurrentEntry(session);
    FillWatermarkList(dialog, WorkingWatermarkList, WorkingWatermarkList.Selected);
    FillFixedLists(dialog);
    ShowEdited(session);
}

void CancelEditor(EditorSession& session) {
    session.Cancel();
}

void ShowHelp(EditorSession& session) {
    ShowEditorHelp(session.Dialog());
}

struct EditorCommand {
    int controlId;
    void (*handle)(EditorSession& session);
};

constexpr auto kEditorCommands = std::to_array<EditorCommand>({
    {IDC_WATERMARK_LIST, ShowSelectedEntry},
    {IDC_NEW, StartNewWatermark},
    {IDC_DELETE, DeleteCurrentWatermark},
    {IDOK, ConfirmEditor},
    {IDC_CANCEL, CancelEditor},
    {IDCANCEL, CancelEditor},
    {IDC_HELP_BUTTON, ShowHelp},
});

/// All that is left to do with an editor when another one has opened since: to close it.
/// \return whether the dialog has ended.
bool CloseSuperseded(HWND dialog, int controlId) {
    constexpr auto kClosing = std::to_array<int>({IDOK, IDC_CANCEL, IDCANCEL});
    const bool isClosing = std::ranges::find(kClosing, controlId) != kClosing.end();
    return isClosing && ::EndDialog(dialog, 0) != FALSE;
}

/// \return whether the dialog has ended.
bool HandleCommand(EditorSession& session, HWND dialog, int controlId, UINT notification) {
    if (controlId != IDC_WATERMARK_LIST) Control(dialog, IDC_CANCEL).Enable(true);
    if (!session.BelongsTo(dialog)) return CloseSuperseded(dialog, controlId);
    if (!session.IsOpenIn(dialog)) return false;
    if (HandleSettingCommand(session, controlId, notification)) return false;
    const auto command = std::ranges::find(kEditorCommands, controlId, &EditorCommand::controlId);
    if (command == kEditorCommands.end()) return false;
    command->handle(session);
    return session.BelongsTo(dialog) && !session.IsOpenIn(dialog);
}

}  // namespace

INT_PTR CALLBACK WatermarkEditorProc(HWND dialog, UINT message, WPARAM first,
                                     LPARAM second) noexcept {
    EditorSession& session = EditorSession::Current();
    switch (message) {
        case WM_INITDIALOG:
            OpenEditor(session, dialog, reinterpret_cast<WatermarkList*>(second));
            return 0;
        case WM_PAINT:
            PaintWatermarkPreview(dialog, session.Preview(), session.Orientation());
            return 0;
        case WM_HELP:
            ShowControlHelp(dialog, reinterpret_cast<const HELPINFO*>(second));
            return 0;
        case WM_COMMAND:
            return HandleCommand(session, dialog, LOWORD(first), HIWORD(first)) ? 1 : 0;
        case WM_DESTROY:
            session.Leave(dialog);
            return 0;
        default:
            return 0;
    }
}

}  // namespace oemui
