#include "wmeditor/new_watermark.h"

#include <algorithm>

#include "resources/resource_ids.h"
#include "wmeditor/dialog_controls.h"
#include "wmeditor/editor_form.h"
#include "wmeditor/watermark_list_editing.h"

namespace oemui {
namespace {

bool NameIsTaken(const WatermarkList& list, TextView name) {
    const auto entries = ListedEntries(list);
    return std::ranges::any_of(
        entries.subspan(std::min<std::size_t>(entries.size(), 1)),
        [name](const WatermarkRecord& entry) { return TextIn(entry.Name) == name; });
}

bool Refuse(UINT textId) {
    ShowMessage(textId, IDS_CAPTION_ERROR, MB_OK);
    return false;
}

void ShowNewWatermark(EditorSession& session) {
    const HWND dialog = session.Dialog();
    session.StartAdding();
    ShowEdited(session);
    WCHAR name[kNameCapacity];
    MakeDefaultWatermarkName(WorkingWatermarkList, name);
    ::SetDlgItemTextW(dialog, IDC_NAME, name);
    ::SetDlgItemTextW(dialog, IDC_TEXT,
                      LoadedText<kListTextCapacity>(IDS_NEW_WATERMARK_TEXT).c_str());
    FocusControl(dialog, IDC_NAME);
}

}  // namespace

void StartNewWatermark(EditorSession& session) {
    const HWND dialog = session.Dialog();
    EnableControl(dialog, IDC_NEW, false);
    if (WorkingWatermarkList.Count >= kWatermarkCapacity) {
        ShowMessage(IDS_LIST_FULL, IDS_CAPTION_ERROR, MB_OK);
        if (!session.IsOpenIn(dialog)) return;
    } else {
        EnableControl(dialog, IDC_DELETE, false);
        EnableControl(dialog, IDC_WATERMARK_LIST, false);
        ShowNewWatermark(session);
    }
    EnableSettings(dialog, true);
}

void MakeDefaultWatermarkName(const WatermarkList& list, WCHAR (&name)[kNameCapacity]) {
    const LoadedText<kListTextCapacity> base(IDS_NEW_WATERMARK_NAME);
    WCHAR candidate[2 * kListTextCapacity];
    LONG number = 0;
    do {
        ++number;
        ::wsprintfW(candidate, TEXT("%s - #%ld"), base.c_str(), number);
    } while (NameIsTaken(list, TextIn(candidate)));
    CopyText(name, TextIn(candidate));
}

bool ValidateNewWatermark(const WatermarkList& list, const WatermarkRecord& record) {
    if (SameText(TextIn(record.Name), TextIn(list.Entries[0].Name)))
        return Refuse(IDS_NONE_NOT_ADDED);
    if (IsBlankText(TextIn(record.Name))) return Refuse(IDS_NAME_EMPTY);
    if (IsBlankText(TextIn(record.Text))) return Refuse(IDS_TEXT_EMPTY);
    return true;
}

bool IsBlankText(TextView text) {
    return text.find_first_not_of(TEXT(' ')) == TextView::npos;
}

}  // namespace oemui
