#include "wmeditor/delete_watermark.h"

#include "common/message.h"
#include "resources/resource_ids.h"
#include "wmeditor/dialog_controls.h"
#include "wmeditor/editor_form.h"

namespace oemui {
namespace {

/// Takes out of the list control what a removal of the current entry takes out of the list.
void RemoveListItems(const EditorSession& session) {
    INT32 index = static_cast<INT32>(ListedEntries(WorkingWatermarkList).size());
    while (--index >= 0) {
        const bool isUsed = WorkingWatermarkList.Entries[index].InUse == 1;
        if (isUsed && index != session.CurrentIndex()) continue;
        Control(session.Dialog(), IDC_WATERMARK_LIST).Remove(index);
    }
}

void RemoveCurrentEntry(EditorSession& session) {
    const HWND dialog = session.Dialog();
    RemoveListItems(session);
    session.RemoveCurrent();
    Control(dialog, IDC_WATERMARK_LIST).Select(session.CurrentIndex());
    ShowEdited(session);
    if (session.CurrentIndex() == 0) EnableForCurrentEntry(session);
    Control(dialog, IDC_CANCEL).Enable(false);
}

}  // namespace

void DeleteCurrentWatermark(EditorSession& session) {
    const HWND dialog = session.Dialog();
    if (session.CurrentIndex() == 0) {
        EnableSettings(dialog, false);
        ShowMessage(IDS_NONE_NOT_DELETED, IDS_CAPTION_WATERMARK, MB_OK);
        return;
    }
    if (session.Ask(IDS_CONFIRM_DELETE, IDS_CAPTION_DELETE, MB_OKCANCEL) != IDOK) return;
    if (WorkingWatermarkList.Count == 1) {
        ShowMessage(IDS_LIST_EMPTY, IDS_CAPTION_WATERMARK, MB_OK);
        if (!session.IsOpenIn(dialog)) return;
    } else if (IsListed(WorkingWatermarkList, session.CurrentIndex())) {
        RemoveCurrentEntry(session);
    }
    Control(dialog, IDC_NEW).Enable(true);
}

}  // namespace oemui
