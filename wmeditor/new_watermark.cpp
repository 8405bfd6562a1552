#include "wmeditor/new_watermark.h"

#include <algorithm>

#include "common/message.h"
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
    Control(dialog, IDC_NAME).Show(DefaultWatermarkName(WorkingWatermarkList).c_str());
    Control(dialog, IDC_TEXT).Show(ListText(IDS_NEW_WATERMARK_TEXT).c_str());
    EnableSettings(dialog, true);
    // Only now can it take the focus; what is typed replaces the proposed name.
    Control(dialog, IDC_NAME).Focus();
}

}  // namespace

void StartNewWatermark(EditorSession& session) {
    const HWND dialog = session.Dialog();
    Control(dialog, IDC_NEW).Enable(false);
    if (WorkingWatermarkList.Count >= kWatermarkCapacity) {
        ShowMessage(IDS_LIST_FULL, IDS_CAPTION_ERROR, MB_OK);
        if (session.IsOpenIn(dialog)) EnableSettings(dialog, true);
    } else {
        Control(dialog, IDC_DELETE).Enable(false);
        Control(dialog, IDC_WATERMARK_LIST).Enable(false);
        ShowNewWatermark(session);
    }
}

FixedText<kNameCapacity> DefaultWatermarkName(const WatermarkList& list) {
    const ListText base(IDS_NEW_WATERMARK_NAME);
    for (LONG number = 1;; ++number) {
        const auto candidate = PrintText(TEXT("%s - #%ld"), base.c_str(), number);
        if (!NameIsTaken(list, candidate.View())) return FixedText<kNameCapacity>(candidate.View());
    }
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
