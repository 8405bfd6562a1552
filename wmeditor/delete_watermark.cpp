#include "wmeditor/delete_watermark.h"

#include "common/message.h"
#include "resources/resource_ids.h"
#include "wmeditor/choice_lists.h"
#include "wmeditor/dialog_controls.h"
#include "wmeditor/editor_form.h"

namespace oemui {
namespace {

void RemoveCurrentEntry(EditorSession& session) {
    const HWND dialog = session.Dialog();
    // Below the first entry all else is disabled. While the entry is still there, for the list
    // shows its selected one anew as it gets the focus.
    if (session.CurrentIndex() == 1) Control(dialog, IDC_WATERMARK_LIST).Focus();
    RemoveListedWatermark(dialog, session.CurrentIndex());
    session.RemoveCurrent();
    SelectListedWatermark(dialog, session.CurrentIndex());
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
