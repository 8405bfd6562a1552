#include "wmeditor/editor_session.h"

#include <algorithm>

#include "common/message.h"
#include "resources/resource_ids.h"
#include "watermark/damaged_list.h"
#include "watermark/watermark_colors.h"
#include "watermark/watermark_store.h"
#include "wmeditor/watermark_list_editing.h"

namespace oemui {

EditorSession& EditorSession::Current() {
    static constinit EditorSession session;
    return session;
}

void EditorSession::Open(HWND dialog, WatermarkList* caller) {
    dialog_ = dialog;
    isOpen_ = true;
    isAdding_ = false;
    caller_ = caller;
    printer_ = KeptPrinterName(CurrentPrinterName());
    WorkingWatermarkList = caller != nullptr ? *caller : WatermarkList{};
    orientation_ = static_cast<PageOrientation>(WorkingWatermarkList.Orientation);
    SanitizeWatermarkList(&WorkingWatermarkList);
    if (WorkingWatermarkList.Count == 0) LoadDefaultWatermarks(&WorkingWatermarkList);
    // The record that a document brought along may never have been filled; listed is in use.
    for (WatermarkRecord& entry : ListedEntries(WorkingWatermarkList)) entry.InUse = 1;
    opening_ = WorkingWatermarkList;
    TakeUp(WorkingWatermarkList.Selected);
}

void EditorSession::SetColor(UINT32 colorIndex) {
    SetBoth(&WatermarkRecord::ColorIndex, colorIndex);
    SetColorFromIndex(&edited_, colorIndex);
    SetPreviewColor(colorIndex);
}

void EditorSession::SetPreviewColor(UINT32 colorIndex) {
    SetColorFromIndex(&preview_, colorIndex);
}

void EditorSession::RememberPreset(AngleKind kind) {
    if (kind != AngleKind::kUserDefine)
        userAngleStart_ = kAngleChoices[StoredValue(kind)].userAngle;
}

void EditorSession::Edit(INT32 index) {
    static constexpr WatermarkRecord kNothing{};
    const WatermarkList& list = WorkingWatermarkList;
    CopyWatermark(&edited_, IsListed(list, index) ? list.Entries[index] : kNothing);
}

void EditorSession::TakeUp(INT32 index) {
    currentIndex_ = index;
    WatermarkList& list = WorkingWatermarkList;
    if (IsListed(list, index)) RefreshDiagonalAngle(&list.Entries[index]);
    Edit(index);
}

void EditorSession::Select(INT32 index) {
    WorkingWatermarkList.Selected = IsListed(WorkingWatermarkList, index) ? index : 0;
    TakeUp(WorkingWatermarkList.Selected);
}

void EditorSession::StartAdding() {
    Edit(0);
    isAdding_ = true;
}

void EditorSession::RemoveCurrent() {
    RemoveWatermark(&WorkingWatermarkList, currentIndex_);
    currentIndex_ = std::max(currentIndex_ - 1, 0);
    Edit(currentIndex_);
}

void EditorSession::Add(const WatermarkRecord& record) {
    InsertNewWatermark(&WorkingWatermarkList, record);
    currentIndex_ = WorkingWatermarkList.Selected;
    Edit(currentIndex_);
}

void EditorSession::Overwrite(INT32 index) {
    edited_.PointSize = ClampedPointSize(edited_.PointSize);
    CopyWatermark(&WorkingWatermarkList.Entries[index], edited_);
    WorkingWatermarkList.Selected = index;
    currentIndex_ = index;
    Edit(index);
}

void EditorSession::StoreEdited() {
    ClampEditedSize();  // it may have been changed below the question
    CopyWatermark(&WorkingWatermarkList.Entries[currentIndex_], edited_);
}

void EditorSession::ClampEditedSize() {
    const INT32 stored = WorkingWatermarkList.Entries[currentIndex_].PointSize;
    if (edited_.PointSize != stored) edited_.PointSize = ClampedPointSize(edited_.PointSize);
}

INT32 EditorSession::RestoreOpeningSelection() {
    const INT32 selected = opening_.Selected;
    const WatermarkRecord& opening = opening_.Entries[selected];
    WatermarkRecord& entry = WorkingWatermarkList.Entries[selected];
    // After a deletion there may be no such entry, or another one in its place, which must stay.
    const bool isThere = IsListed(WorkingWatermarkList, selected) &&
                         SameText(TextIn(entry.Name), TextIn(opening.Name));
    if (!isThere) return currentIndex_;
    CopyWatermark(&entry, opening);
    return selected;
}

int EditorSession::Ask(UINT textId, UINT captionId, UINT type) const {
    const HWND dialog = dialog_;
    const INT32 index = currentIndex_;
    const bool wasAdding = isAdding_;
    const int answer = ShowMessage(textId, captionId, type);
    const bool isTheSame = IsOpenIn(dialog) && currentIndex_ == index && isAdding_ == wasAdding;
    return isTheSame ? answer : 0;
}

void EditorSession::Save(INT32 selection) {
    const HWND dialog = dialog_;
    WatermarkList& list = WorkingWatermarkList;
    list.Selected = IsListed(list, selection) ? selection : 0;
    list.NoneSelected = list.Selected == 0 ? 1 : 0;
    // It is settled: what the user does below a message that the list could not be stored is void.
    isOpen_ = isAdding_ = false;
    if (caller_ != nullptr) CopyWatermarkList(caller_, list);
    WritePrinterWatermarkList(NameOrNull(printer_), list, IDS_LIST_NOT_STORED);
    End(dialog, 1);
}

void EditorSession::Cancel() {
    isAdding_ = false;
    WorkingWatermarkList = opening_;
    End(dialog_, 0);
}

void EditorSession::Leave(HWND dialog) {
    if (!BelongsTo(dialog)) return;
    isOpen_ = isAdding_ = false;
    caller_ = nullptr;
    dialog_ = nullptr;
}

void EditorSession::End(HWND dialog, INT_PTR result) {
    // Commands that come while the dialog ends, such as the focus leaving a control, do nothing.
    if (BelongsTo(dialog)) isOpen_ = false;
    const bool isOpenStill = ::EndDialog(dialog, result) == FALSE;
    // Below a message another editor may have opened: the session is that one's now.
    if (BelongsTo(dialog)) isOpen_ = isOpenStill;
}

}  // namespace oemui
