#include "wmeditor/editor_form.h"

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
    SelectItem(dialog, listId, number < count ? static_cast<INT32>(number) : -1);
}

/// A typeface that is not installed leaves the list's selection as it was.
void SelectTypeface(HWND dialog, const WatermarkRecord& record) {
    const LRESULT position = ::SendDlgItemMessageW(dialog, IDC_TYPEFACE, CB_FINDSTRINGEXACT, 0,
                                                   reinterpret_cast<LPARAM>(record.FaceName));
    if (position >= 0) SelectItem(dialog, IDC_TYPEFACE, static_cast<INT32>(position));
}

void ShowFont(EditorSession& session, const WatermarkRecord& record) {
    const HWND dialog = session.Dialog();
    SelectTypeface(dialog, record);
    SetNumber(dialog, IDC_POINT_SIZE, record.PointSize);
    SetUpDownRange(dialog, IDC_POINT_SIZE_SPIN, kMinimumPointSize, kMaximumPointSize);
    LimitText(dialog, IDC_POINT_SIZE, kSizeDigits);
    SetCheck(dialog, IDC_BOLD, record.Bold != 0);
    SetCheck(dialog, IDC_ITALIC, record.Italic != 0);
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
    SetSignedNumber(dialog, IDC_USER_ANGLE, record.AngleDegrees);
    SetUpDownRange(dialog, IDC_USER_ANGLE_SPIN, -kLargestUserAngle, kLargestUserAngle);
    LimitText(dialog, IDC_USER_ANGLE, kAngleCharacters);
}

void ShowPosition(HWND dialog, const WatermarkRecord& record) {
    const bool isCentred = record.PositionKind == StoredValue(PositionKind::kCenter);
    SetCheck(dialog, IDC_CENTER, isCentred);
    SetCheck(dialog, IDC_USER_POSITION, !isCentred);
    EnableOffsets(dialog, !isCentred);
    SetSignedNumber(dialog, IDC_HORIZONTAL, record.OffsetX);
    SetUpDownRange(dialog, IDC_HORIZONTAL_SPIN, -kLargestOffset, kLargestOffset);
    SetSignedNumber(dialog, IDC_VERTICAL, record.OffsetY);
    SetUpDownRange(dialog, IDC_VERTICAL_SPIN, -kLargestOffset, kLargestOffset);
}

}  // namespace

void ShowEdited(EditorSession& session) {
    // A copy: the edits' handling writes into the edited record while the controls are being set.
    const WatermarkRecord record = session.Edited();
    const HWND dialog = session.Dialog();
    session.SetPreviewRecord(record);
    ::SetDlgItemTextW(dialog, IDC_NAME, record.Name);
    ::SetDlgItemTextW(dialog, IDC_TEXT, record.Text);
    ShowFont(session, record);
    ShowColor(session, record);
    ShowAngle(session, record);
    ShowPosition(dialog, record);
    RepaintPreview(session);
}

void EnableForCurrentEntry(const EditorSession& session) {
    const bool canBeChanged = session.CurrentIndex() != 0;
    EnableControl(session.Dialog(), IDC_DELETE, canBeChanged);
    EnableSettings(session.Dialog(), canBeChanged);
}

void ShowSelectedEntry(EditorSession& session) {
    session.Select(SelectedPosition(session.Dialog(), IDC_WATERMARK_LIST));
    EnableForCurrentEntry(session);
    ShowEdited(session);
}

void EnableSettings(HWND dialog, bool enabled) {
    EnableControls(dialog, kSettings, enabled);
}

void EnableUserAngleByChoice(HWND dialog) {
    const bool isUserDefine =
        SelectedNumber(dialog, IDC_ANGLE) == StoredValue(AngleKind::kUserDefine);
    EnableControls(dialog, kUserAngle, isUserDefine);
}

void EnableOffsets(HWND dialog, bool enabled) {
    EnableControls(dialog, kOffsets, enabled);
}

WatermarkRecord RecordInControls(const EditorSession& session) {
    const HWND dialog = session.Dialog();
    WatermarkRecord record = session.Edited();
    ReadText(dialog, IDC_NAME, record.Name);
    ReadText(dialog, IDC_TEXT, record.Text);
    ReadText(dialog, IDC_TYPEFACE, record.FaceName);
    record.PointSize = SignedNumber(dialog, IDC_POINT_SIZE);
    record.Bold = CheckState(dialog, IDC_BOLD);
    record.Italic = CheckState(dialog, IDC_ITALIC);
    record.ColorIndex = static_cast<UINT32>(SelectedPosition(dialog, IDC_COLOR));
    SetColorFromIndex(&record, record.ColorIndex);
    record.AngleKind = static_cast<UINT32>(SelectedPosition(dialog, IDC_ANGLE));
    record.AngleDegrees = SignedNumber(dialog, IDC_USER_ANGLE);
    return record;
}

void RepaintPreview(const EditorSession& session) {
    PaintWatermarkPreview(session.Dialog(), session.Preview(), session.Orientation());
}

}  // namespace oemui
