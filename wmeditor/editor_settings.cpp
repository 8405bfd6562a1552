#include "wmeditor/editor_settings.h"

#include <algorithm>
#include <iterator>

#include "resources/resource_ids.h"
#include "wmeditor/editor_controls.h"
#include "wmeditor/editor_state.h"
#include "wmeditor/watermark_list_editing.h"

namespace oemui {
namespace {

constexpr WPARAM kTypedNameLimit = 20;
constexpr WPARAM kTypedTextLimit = 64;
constexpr INT32 kAngleAfterDiagonal = 45;  // not the page's diagonal

/// Sets one field of the edited record and of the preview's.
template <typename Field, typename Value>
void SetInBoth(Field WatermarkRecord::*field, Value value) {
    EditedWatermark.*field = static_cast<Field>(value);
    PreviewWatermark.*field = static_cast<Field>(value);
}

void LimitText(HWND dialog, int editId, WPARAM characters) {
    ::SendDlgItemMessageW(dialog, editId, EM_LIMITTEXT, characters, 0);
}

INT32 SignedNumber(HWND dialog, int editId) {
    return static_cast<INT32>(::GetDlgItemInt(dialog, editId, nullptr, TRUE));
}

LRESULT CheckState(HWND dialog, int buttonId) {
    return ::SendDlgItemMessageW(dialog, buttonId, BM_GETCHECK, 0, 0);
}

/// A number with a sign takes four characters, one above zero three.
void LimitSignedNumber(HWND dialog, int editId, INT32 number) {
    LimitText(dialog, editId, number > 0 ? 3 : 4);
}

void OnName(HWND dialog, UINT) {
    LimitText(dialog, IDC_NAME, kTypedNameLimit);
    ReadText(dialog, IDC_NAME, EditedWatermark.Name);
}

void OnText(HWND dialog, UINT) {
    LimitText(dialog, IDC_TEXT, kTypedTextLimit);
    // One character more can be typed than the record keeps.
    ReadText(dialog, IDC_TEXT, EditedWatermark.Text);
    CopyText(PreviewWatermark.Text, TextIn(EditedWatermark.Text));
    Repaint(dialog);
}

void OnTypeface(HWND dialog, UINT) {
    const INT32 position = SelectedPosition(dialog, IDC_TYPEFACE);
    ::SendDlgItemMessageW(dialog, IDC_TYPEFACE, CB_SETCURSEL, static_cast<WPARAM>(position), 0);
    ReadText(dialog, IDC_TYPEFACE, EditedWatermark.FaceName);
    FillEditorControls(dialog, EditedWatermark, false);
}

void OnSize(HWND dialog, UINT notification) {
    if (notification == EN_CHANGE) {
        SetInBoth(&WatermarkRecord::PointSize,
                  ::GetDlgItemInt(dialog, IDC_POINT_SIZE, nullptr, FALSE));
        Repaint(dialog);
    } else if (notification == EN_KILLFOCUS && ClampPointSize(&EditedWatermark.PointSize)) {
        PreviewWatermark.PointSize = EditedWatermark.PointSize;
        ::SetDlgItemInt(dialog, IDC_POINT_SIZE, static_cast<UINT>(EditedWatermark.PointSize),
                        FALSE);
    }
}

void OnBold(HWND dialog, UINT) {
    SetInBoth(&WatermarkRecord::Bold, CheckState(dialog, IDC_BOLD));
    Repaint(dialog);
}

void OnItalic(HWND dialog, UINT) {
    SetInBoth(&WatermarkRecord::Italic, CheckState(dialog, IDC_ITALIC));
    Repaint(dialog);
}

void OnColor(HWND dialog, UINT) {
    const auto color = static_cast<UINT32>(SelectedPosition(dialog, IDC_COLOR));
    SetInBoth(&WatermarkRecord::ColorIndex, color);
    SetColorFromIndex(&EditedWatermark, color);
    SetColorFromIndex(&PreviewWatermark, color);
    Repaint(dialog);
}

/// The user angle starts from the preset that was chosen last.
INT32 AngleAfterPreset() {
    switch (LastPresetAngle) {
        case kAngleHorizontal:
            return 0;
        case kAngleDiagonal:
            return kAngleAfterDiagonal;
        case kAngleVertical:
            return kVerticalDegrees;
        default:
            return PreviewWatermark.AngleDegrees;
    }
}

INT32 AngleOfKind(UINT32 kind) {
    switch (kind) {
        case kAngleHorizontal:
            return 0;
        case kAngleDiagonal:
            return WholeDiagonalDegrees();
        case kAngleVertical:
            return kVerticalDegrees;
        default:
            return AngleAfterPreset();
    }
}

void OnAngleKind(HWND dialog, UINT) {
    EnableUserAngleByChoice(dialog);
    const auto kind = static_cast<UINT32>(SelectedPosition(dialog, IDC_ANGLE));
    if (kind <= kAngleUserDefine) {
        const INT32 angle = AngleOfKind(kind);
        if (kind != kAngleUserDefine) LastPresetAngle = static_cast<INT32>(kind);
        PreviewWatermark.AngleDegrees = angle;
        SetSignedNumber(dialog, IDC_USER_ANGLE, angle);
        EditedWatermark.AngleDegrees = angle;
        EditedWatermark.AngleKind = kind;
    }
    Repaint(dialog);
}

void OnUserAngle(HWND dialog, UINT) {
    const INT32 angle = SignedNumber(dialog, IDC_USER_ANGLE);
    LimitSignedNumber(dialog, IDC_USER_ANGLE, angle);
    const INT32 kept = std::clamp(angle, -kLargestUserAngle, kLargestUserAngle);
    SetInBoth(&WatermarkRecord::AngleDegrees, kept);
    if (kept != angle) SetSignedNumber(dialog, IDC_USER_ANGLE, kept);
    Repaint(dialog);
}

void OnCenter(HWND dialog, UINT) {
    EnableOffsets(dialog, false);
    SetInBoth(&WatermarkRecord::OffsetX, 0);
    SetInBoth(&WatermarkRecord::OffsetY, 0);
    SetSignedNumber(dialog, IDC_HORIZONTAL, 0);
    SetSignedNumber(dialog, IDC_VERTICAL, 0);
    SetInBoth(&WatermarkRecord::PositionKind, kPositionCenter);
    Repaint(dialog);
}

void OnUserPosition(HWND dialog, UINT) {
    EnableOffsets(dialog, true);
    SetInBoth(&WatermarkRecord::PositionKind, kPositionUserSetting);
    SetInBoth(&WatermarkRecord::OffsetX, SignedNumber(dialog, IDC_HORIZONTAL));
    SetInBoth(&WatermarkRecord::OffsetY, SignedNumber(dialog, IDC_VERTICAL));
    Repaint(dialog);
}

void TakeOffset(HWND dialog, int editId, INT32 WatermarkRecord::*offset) {
    const INT32 points = SignedNumber(dialog, editId);
    LimitSignedNumber(dialog, editId, points);
    SetInBoth(offset, points);
    Repaint(dialog);
}

void OnHorizontal(HWND dialog, UINT) {
    TakeOffset(dialog, IDC_HORIZONTAL, &WatermarkRecord::OffsetX);
}

void OnVertical(HWND dialog, UINT) {
    TakeOffset(dialog, IDC_VERTICAL, &WatermarkRecord::OffsetY);
}

struct SettingCommand {
    int controlId;
    void (*handle)(HWND dialog, UINT notification);
};

constexpr SettingCommand kSettingCommands[] = {
    {IDC_NAME, OnName},
    {IDC_TEXT, OnText},
    {IDC_TYPEFACE, OnTypeface},
    {IDC_POINT_SIZE, OnSize},
    {IDC_BOLD, OnBold},
    {IDC_ITALIC, OnItalic},
    {IDC_COLOR, OnColor},
    {IDC_ANGLE, OnAngleKind},
    {IDC_USER_ANGLE, OnUserAngle},
    {IDC_CENTER, OnCenter},
    {IDC_USER_POSITION, OnUserPosition},
    {IDC_HORIZONTAL, OnHorizontal},
    {IDC_VERTICAL, OnVertical},
};

}  // namespace

bool HandleSettingCommand(HWND dialog, int controlId, UINT notification) {
    const auto* const command = std::find_if(
        std::begin(kSettingCommands), std::end(kSettingCommands),
        [controlId](const SettingCommand& candidate) { return candidate.controlId == controlId; });
    if (command == std::end(kSettingCommands)) return false;
    command->handle(dialog, notification);
    return true;
}

}  // namespace oemui
