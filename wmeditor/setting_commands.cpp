#include "wmeditor/setting_commands.h"

#include <algorithm>

#include "resources/resource_ids.h"
#include "wmeditor/dialog_controls.h"
#include "wmeditor/editor_form.h"

namespace oemui {
namespace {

/// A number with a sign takes four characters, one above zero three.
void LimitSignedNumber(HWND dialog, int editId, INT32 number) {
    LimitText(dialog, editId, number > 0 ? 3 : 4);
}

/// Takes a control's text into a field of the edited record, cut to it.
template <std::size_t Capacity>
void TakeText(EditorSession& session, int controlId, WCHAR (WatermarkRecord::*field)[Capacity]) {
    WCHAR text[Capacity];
    CopyText(text, TextIn(session.Edited().*field));
    ReadText(session.Dialog(), controlId, text);
    session.SetEdited(field, TextIn(text));
}

void OnName(EditorSession& session, UINT) {
    LimitText(session.Dialog(), IDC_NAME, kTypedNameLimit);
    TakeText(session, IDC_NAME, &WatermarkRecord::Name);
}

void OnText(EditorSession& session, UINT) {
    LimitText(session.Dialog(), IDC_TEXT, kTypedTextLimit);
    // One character more can be typed than the record keeps.
    TakeText(session, IDC_TEXT, &WatermarkRecord::Text);
    session.SetPreview(&WatermarkRecord::Text, TextIn(session.Edited().Text));
    RepaintPreview(session);
}

void OnTypeface(EditorSession& session, UINT) {
    const HWND dialog = session.Dialog();
    SelectItem(dialog, IDC_TYPEFACE, SelectedPosition(dialog, IDC_TYPEFACE));
    TakeText(session, IDC_TYPEFACE, &WatermarkRecord::FaceName);
    ShowEdited(session);
}

void OnSize(EditorSession& session, UINT notification) {
    const HWND dialog = session.Dialog();
    if (notification == EN_CHANGE) {
        session.SetBoth(&WatermarkRecord::PointSize, Number(dialog, IDC_POINT_SIZE));
        RepaintPreview(session);
    } else if (notification == EN_KILLFOCUS) {
        const INT32 size = ClampedPointSize(session.Edited().PointSize);
        if (size == session.Edited().PointSize) return;
        session.SetBoth(&WatermarkRecord::PointSize, size);
        SetNumber(dialog, IDC_POINT_SIZE, size);
    }
}

void OnBold(EditorSession& session, UINT) {
    session.SetBoth(&WatermarkRecord::Bold, CheckState(session.Dialog(), IDC_BOLD));
    RepaintPreview(session);
}

void OnItalic(EditorSession& session, UINT) {
    session.SetBoth(&WatermarkRecord::Italic, CheckState(session.Dialog(), IDC_ITALIC));
    RepaintPreview(session);
}

void OnColor(EditorSession& session, UINT) {
    session.SetColor(static_cast<UINT32>(SelectedPosition(session.Dialog(), IDC_COLOR)));
    RepaintPreview(session);
}

void OnAngleKind(EditorSession& session, UINT) {
    const HWND dialog = session.Dialog();
    EnableUserAngleByChoice(dialog);
    const auto kind = static_cast<UINT32>(SelectedPosition(dialog, IDC_ANGLE));
    if (kind < kAngleChoices.size()) {
        const INT32 angle = DegreesOfKind(kind, session.UserAngleStart());
        session.RememberPreset(static_cast<AngleKind>(kind));
        session.SetPreview(&WatermarkRecord::AngleDegrees, angle);
        SetSignedNumber(dialog, IDC_USER_ANGLE, angle);
        session.SetEdited(&WatermarkRecord::AngleDegrees, angle);
        session.SetEdited(&WatermarkRecord::AngleKind, kind);
    }
    RepaintPreview(session);
}

void OnUserAngle(EditorSession& session, UINT) {
    const HWND dialog = session.Dialog();
    const INT32 angle = SignedNumber(dialog, IDC_USER_ANGLE);
    LimitSignedNumber(dialog, IDC_USER_ANGLE, angle);
    const INT32 kept = std::clamp(angle, -kLargestUserAngle, kLargestUserAngle);
    session.SetBoth(&WatermarkRecord::AngleDegrees, kept);
    if (kept != angle) SetSignedNumber(dialog, IDC_USER_ANGLE, kept);
    RepaintPreview(session);
}

void OnCenter(EditorSession& session, UINT) {
    const HWND dialog = session.Dialog();
    EnableOffsets(dialog, false);
    session.SetBoth(&WatermarkRecord::OffsetX, 0);
    session.SetBoth(&WatermarkRecord::OffsetY, 0);
    SetSignedNumber(dialog, IDC_HORIZONTAL, 0);
    SetSignedNumber(dialog, IDC_VERTICAL, 0);
    session.SetBoth(&WatermarkRecord::PositionKind, PositionKind::kCenter);
    RepaintPreview(session);
}

void OnUserPosition(EditorSession& session, UINT) {
    const HWND dialog = session.Dialog();
    EnableOffsets(dialog, true);
    session.SetBoth(&WatermarkRecord::PositionKind, PositionKind::kUserSetting);
    session.SetBoth(&WatermarkRecord::OffsetX, SignedNumber(dialog, IDC_HORIZONTAL));
    session.SetBoth(&WatermarkRecord::OffsetY, SignedNumber(dialog, IDC_VERTICAL));
    RepaintPreview(session);
}

void TakeOffset(EditorSession& session, int editId, INT32 WatermarkRecord::*offset) {
    const INT32 points = SignedNumber(session.Dialog(), editId);
    LimitSignedNumber(session.Dialog(), editId, points);
    session.SetBoth(offset, points);
    RepaintPreview(session);
}

void OnHorizontal(EditorSession& session, UINT) {
    TakeOffset(session, IDC_HORIZONTAL, &WatermarkRecord::OffsetX);
}

void OnVertical(EditorSession& session, UINT) {
    TakeOffset(session, IDC_VERTICAL, &WatermarkRecord::OffsetY);
}

struct SettingCommand {
    int controlId;
    void (*handle)(EditorSession& session, UINT notification);
};

constexpr auto kSettingCommands = std::to_array<SettingCommand>({
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
});

}  // namespace

bool HandleSettingCommand(EditorSession& session, int controlId, UINT notification) {
    const auto command = std::ranges::find(kSettingCommands, controlId, &SettingCommand::controlId);
    if (command == kSettingCommands.end()) return false;
    command->handle(session, notification);
    return true;
}

}  // namespace oemui
