#include "wmeditor/ok_command.h"

#include "common/message.h"
#include "resources/resource_ids.h"
#include "wmeditor/choice_lists.h"
#include "wmeditor/editor_form.h"
#include "wmeditor/new_watermark.h"
#include "wmeditor/watermark_list_editing.h"

namespace oemui {
namespace {

int AskOverwrite(const EditorSession& session) {
    return session.Ask(IDS_CONFIRM_OVERWRITE, IDS_CAPTION_WARNING, MB_YESNO);
}

void AddNewEntry(EditorSession& session) {
    WatermarkRecord record = RecordInControls(session);
    record.PointSize = ClampedPointSize(record.PointSize);
    session.Add(record);
    const INT32 selected = WorkingWatermarkList.Selected;
    if (selected <= 0) return;
    AddListedWatermark(session.Dialog(), WorkingWatermarkList.Entries[selected].Name, selected);
}

void AnnounceSelected(const WatermarkRecord& selected) {
    const MessageText format(IDS_NEW_WATERMARK_SELECTED);
    const auto text = PrintText(format.c_str(), selected.Name);
    ShowMessageText(text.c_str(), IDS_CAPTION_WATERMARK, MB_OK);
}

void ConfirmNewEntry(EditorSession& session) {
    const HWND dialog = session.Dialog();
    if (!ValidateNewWatermark(WorkingWatermarkList, session.Edited())) return;
    const INT32 existing = FindWatermarkByName(WorkingWatermarkList, TextIn(session.Edited().Name));
    if (existing >= 1 && existing < kNoSuchWatermark) {
        if (AskOverwrite(session) != IDYES) return;
        session.Overwrite(existing);
    } else {
        AddNewEntry(session);
    }
    ShowEditedSize(session);
    AnnounceSelected(session.Edited());
    if (session.IsOpenIn(dialog)) session.Save(WorkingWatermarkList.Selected);
}

void ShowOpeningSelection(EditorSession& session) {
    const INT32 index = session.RestoreOpeningSelection();
    SelectListedWatermark(session.Dialog(), index);
    ShowEntry(session, index);
}

/// Whether the edited entry may be stored in its place: asks when its settings have changed.
bool MayStoreEdited(EditorSession& session) {
    // Compared with the entry that held this place when the dialog opened: after a deletion that
    // may be another watermark, and then nothing is asked.
    const WatermarkRecord& opening = session.Opening().Entries[session.CurrentIndex()];
    if (CountWatermarkChanges(opening, session.Edited()) == 0) return true;
    const int answer = AskOverwrite(session);
    if (answer == IDNO) ShowOpeningSelection(session);
    return answer == IDYES;
}

void ConfirmEditedEntry(EditorSession& session) {
    if (IsListed(WorkingWatermarkList, session.CurrentIndex())) {
        TakeSize(session);
        session.ClampEditedSize();
        ShowEditedSize(session);
        if (!MayStoreEdited(session)) return;
        session.StoreEdited();
    }
    // The entry shown is the one that the list has selected.
    session.Save(session.CurrentIndex());
}

}  // namespace

void ConfirmEditor(EditorSession& session) {
    if (session.IsAdding()) {
        ConfirmNewEntry(session);
    } else {
        ConfirmEditedEntry(session);
    }
}

}  // namespace oemui
