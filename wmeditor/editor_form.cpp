#include "wmeditor/editor_form.h"

#include <algorithm>

#include "resources/resource_ids.h"
#include "watermark/watermark_colors.h"
#include "wmeditor/dialog_controls.h"
#include "wmeditor/watermark_preview.h"

namespace oemui {
namespace {

constexpr auto kSettings = std::to_array<int>({
    IDC_NAME,
    IDC_TEXT,
    IDC_TYPEFACE,
    IDC_POINT_SIZE,
    IDC_POINT_SIZE_SPIN,
    IDC_BOLD,
    IDC_ITALIC,
    IDC_ANGLE,
    IDC_SETTINGS_GROUP,
    IDC_COLOR,
    IDC_CENTER,
    IDC_USER_POSITION,
});
constexpr auto kUserAngle =
    std::to_array<int>({IDC_USER_ANGLE, IDC_USER_ANGLE_SPIN, IDC_USER_ANGLE_LABEL});
constexpr auto kOffsets =
    std::to_array<int>({IDC_HORIZONTAL, IDC_VERTICAL, IDC_HORIZONTAL_SPIN, IDC_VERTICAL_SPIN});

constexpr WPARAM kSizeDigits = 3;       // "200"
constexpr WPARAM kAngleCharacters = 4;  // "-180"

/// Selects the item of a number that may be any; none when the list has no such item.
void SelectNumber(HWND dialog, int listId, UINT32 number, std::size_t count) {
    Control(dialog, listId).Select(number < count ? LRESULT{number} : -1);
}

/// Before the settings are disabled the focus goes from them to the watermark list.
void LeaveSettings(HWND dialog) {
    const bool isThere = std::ranges::any_of(
        kSettings, [dialog](int controlId) { return Control(dialog, controlId).HasFocus(); });
    if (isThere) Control(dialog, IDC_WATERMARK_LIST).Focus();
}

void ShowFont(EditorSession& session, const WatermarkRecord& record) {
    const HWND dialog = session.Dialog();
    // A typeface that is not installed leaves the list's selection as it was.
    const LRESULT typeface = Control(dialog, IDC_TYPEFACE).Find(record.FaceName);
    if (typeface >= 0) Control(dialog, IDC_TYPEFACE).Select(typeface);
    Control(dialog, IDC_POINT_SIZE).ShowNumber(record.PointSize);
    Control(dialog, IDC_POINT_SIZE_SPIN).SetRange(kMinimumPointSize, kMaximumPointSize);
    Control(dialog, IDC_POINT_SIZE).LimitText(kSizeDigits);
    Control(dialog, IDC_BOLD).Check(record.Bold != 0);
    Control(dialog, IDC_ITALIC).Check(record.Italic != 0);
    session.SetPreview(&WatermarkRecord::PointSize, record.PointSize);
}

void ShowColor(EditorSession& session, const WatermarkRecord& record) {
    SelectNumber(session.Dialog(), IDC_COLOR, record.ColorIndex, kWatermarkColors.size());
    session.SetPreviewColor(record.ColorIndex);
}

void ShowAngle(EditorSession& session, const WatermarkRecord& record) {
    const HWND dialog = session.Dialog();
    SelectNumber(dialog, IDC_ANGLE, record.AngleKind, kAngleChoices.size());
    session.SetPreview(&WatermarkRecord::AngleKind, record.AngleKind);
    session.SetPreview(&WatermarkRecord::AngleDegrees,
                       DegreesOfKind(record.AngleKind, record.AngleDegrees));
    EnableUserAngleByChoice(dialog);
    // The edit's own handling brings both records' angle to what is shown here, within its limits.
    Control(dialog, IDC_USER_ANGLE).ShowSigned(record.AngleDegrees);
    Control(dialog, IDC_USER_ANGLE_SPIN).SetRange(-kLargestUserAngle, kLargestUserAngle);
    Control(dialog, IDC_USER_ANGLE).LimitText(kAngleCharacters);
}

void ShowPosition(HWND dialog, const WatermarkRecord& record) {
    const bool isCentred = record.PositionKind == StoredValue(PositionKind::kCenter);
    Control(dialog, IDC_CENTER).Check(isCentred);
    Control(dialog, IDC_USER_POSITION).Check(!isCentred);
    EnableOffsets(dialog, !isCentred);
    Control(dialog, IDC_HORIZONTAL).ShowSigned(record.OffsetX);
    Control(dialog, IDC_HORIZONTAL_SPIN).SetRange(-kLargestOffset, kLargestOffset);
    Control(dialog, IDC_VERTICAL).ShowSigned(record.OffsetY);
    Control(dialog, IDC_VERTICAL_SPIN).SetRange(-kLargestOffset, kLargestOffset);
}

}  // namespace

void ShowEdited(EditorSession& session) {
    // A copy: the edits' handling writes into the edited record while the controls are being set.
    const WatermarkRecord record = session.Edited();
    const HWND dialog = session.Dialog();
    session.SetPreviewRecord(record);
    Control(dialog, IDC_NAME).Show(record.Name);
    Control(dialog, IDC_TEXT).Show(record.Text);
    ShowFont(session, record);
    ShowColor(session, record);
    ShowAngle(session, record);
    ShowPosition(dialog, record);
    RepaintPreview(session);
}

void ShowEditedSize(const EditorSession& session) {
    Control(session.Dialog(), IDC_POINT_SIZE).ShowNumber(session.Edited().PointSize);
}

void TakeSize(EditorSession& session) {
    const INT32 size = session.Edited().PointSize;
    session.SetBoth(&WatermarkRecord::PointSize,
                    Control(session.Dialog(), IDC_POINT_SIZE).Number(size));
}

void EnableForCurrentEntry(const EditorSession& session) {
    const bool canBeChanged = session.CurrentIndex() != 0;
    Control(session.Dialog(), IDC_DELETE).Enable(canBeChanged);
    EnableSettings(session.Dialog(), canBeChanged);
}

void ShowSelectedEntry(EditorSession& session) {
    const LRESULT index = Control(session.Dialog(), IDC_WATERMARK_LIST).SelectedNumber();
    if (index >= 0) ShowEntry(session, static_cast<INT32>(index));
}

void ShowEntry(EditorSession& session, INT32 index) {
    // An edit that loses the focus takes its text into the entry that it belongs to.
    if (index == 0) LeaveSettings(session.Dialog());
    session.Select(index);
    EnableForCurrentEntry(session);
    ShowEdited(session);
}

void EnableSettings(HWND dialog, bool enabled) {
    EnableControls(dialog, kSettings, enabled);
}

void EnableUserAngleByChoice(HWND dialog) {
    const bool isUserDefine =
        Control(dialog, IDC_ANGLE).SelectedNumber() == StoredValue(AngleKind::kUserDefine);
    EnableControls(dialog, kUserAngle, isUserDefine);
}

void EnableOffsets(HWND dialog, bool enabled) {
    EnableControls(dialog, kOffsets, enabled);
}

WatermarkRecord RecordInControls(const EditorSession& session) {
    const HWND dialog = session.Dialog();
    WatermarkRecord record = session.Edited();
    Control(dialog, IDC_NAME).ReadText(record.Name);
    Control(dialog, IDC_TEXT).ReadText(record.Text);
    Control(dialog, IDC_TYPEFACE).ReadText(record.FaceName);
    record.PointSize = Control(dialog, IDC_POINT_SIZE).SignedNumber(record.PointSize);
    record.Bold = Control(dialog, IDC_BOLD).CheckState(record.Bold);
    record.Italic = Control(dialog, IDC_ITALIC).CheckState(record.Italic);
    record.ColorIndex = Control(dialog, IDC_COLOR).Selected(record.ColorIndex);
    SetColorFromIndex(&record, record.ColorIndex);
    record.AngleKind = Control(dialog, IDC_ANGLE).Selected(record.AngleKind);
    record.AngleDegrees = Control(dialog, IDC_USER_ANGLE).SignedNumber(record.AngleDegrees);
    return record;
}

void RepaintPreview(const EditorSession& session) {
    PaintWatermarkPreview(session.Dialog(), session.Preview(), session.Orientation());
}

}  // namespace oemui
