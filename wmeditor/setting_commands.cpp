#include "wmeditor/setting_commands.h"

#include <algorithm>

#include "resources/resource_ids.h"
#include "wmeditor/dialog_controls.h"
#include "wmeditor/editor_form.h"

namespace oemui {
namespace {

/// A number with a sign takes four characters, one above zero three.
void LimitSignedNumber(HWND dialog, int editId, INT32 number) {
    Control(dialog, editId).LimitText(number > 0 ? 3 : 4);
}

/// Takes a control's text into a field of the edited record, cut to it.
template <std::size_t Capacity>
void TakeText(EditorSession& session, int controlId, WCHAR (WatermarkRecord::*field)[Capacity]) {
    WatermarkRecord shown = session.Edited();
    Control(session.Dialog(), controlId).ReadText(shown.*field);
    session.SetEdited(field, TextIn(shown.*field));
}

void OnName(EditorSession& session, UINT) {
    Control(session.Dialog(), IDC_NAME).LimitText(kTypedNameLimit);
    TakeText(session, IDC_NAME, &WatermarkRecord::Name);
}

void OnText(EditorSession& session, UINT) {
    Control(session.Dialog(), IDC_TEXT).LimitText(kTypedTextLimit);
    // One character more can be typed than the record keeps.
    TakeText(session, IDC_TEXT, &WatermarkRecord::Text);
    session.SetPreview(&WatermarkRecord::Text, TextIn(session.Edited().Text));
    RepaintPreview(session);
}

void OnTypeface(EditorSession& session, UINT) {
    const HWND dialog = session.Dialog();
    Control(dialog, IDC_TYPEFACE).Select(Control(dialog, IDC_TYPEFACE).Selected());
    TakeText(session, IDC_TYPEFACE, &WatermarkRecord::FaceName);
    ShowEdited(session);
}

void OnSize(EditorSession& session, UINT notification) {
    if (notification == EN_CHANGE) {
        TakeSize(session);
        RepaintPreview(session);
    } else if (notification == EN_KILLFOCUS) {
        TakeSize(session);
        const INT32 size = ClampedPointSize(session.Edited().PointSize);
        if (size == session.Edited().PointSize) return;
        session.SetBoth(&WatermarkRecord::PointSize, size);
        ShowEditedSize(session);
    }
}

template <int kButtonId, BYTE WatermarkRecord::*kStyle>
void OnStyle(EditorSession& session, UINT) {
    const BYTE style = session.Edited().*kStyle;
    session.SetBoth(kStyle, Control(session.Dialog(), kButtonId).CheckState(style));
    RepaintPreview(session);
}

void OnColor(EditorSession& session, UINT) {
    session.SetColor(Control(session.Dialog(), IDC_COLOR).Selected(session.Edited().ColorIndex));
    RepaintPreview(session);
}

void OnAngleKind(EditorSession& session, UINT) {
    const HWND dialog = session.Dialog();
    EnableUserAngleByChoice(dialog);
    const UINT32 kind = Control(dialog, IDC_ANGLE).Selected(UINT32{kAngleChoices.size()});
    if (kind < kAngleChoices.size()) {
        const INT32 angle = DegreesOfKind(kind, session.UserAngleStart());
        session.RememberPreset(static_cast<AngleKind>(kind));
        session.SetPreview(&WatermarkRecord::AngleDegrees, angle);
        Control(dialog, IDC_USER_ANGLE).ShowSigned(angle);
        session.SetEdited(&WatermarkRecord::AngleDegrees, angle);
        session.SetEdited(&WatermarkRecord::AngleKind, kind);
    }
    RepaintPreview(session);
}

void OnUserAngle(EditorSession& session, UINT) {
    const HWND dialog = session.Dialog();
    const INT32 known = session.Edited().AngleDegrees;
    const INT32 angle = Control(dialog, IDC_USER_ANGLE).SignedNumber(known);
    LimitSignedNumber(dialog, IDC_USER_ANGLE, angle);
    const INT32 kept = std::clamp(angle, -kLargestUserAngle, kLargestUserAngle);
    session.SetBoth(&WatermarkRecord::AngleDegrees, kept);
    if (kept != angle) Control(dialog, IDC_USER_ANGLE).ShowSigned(kept);
    RepaintPreview(session);
}

void OnCenter(EditorSession& session, UINT) {
    const HWND dialog = session.Dialog();
    EnableOffsets(dialog, false);
    session.SetBoth(&WatermarkRecord::OffsetX, 0);
    session.SetBoth(&WatermarkRecord::OffsetY, 0);
    Control(dialog, IDC_HORIZONTAL).ShowSigned(0);
    Control(dialog, IDC_VERTICAL).ShowSigned(0);
    session.SetBoth(&WatermarkRecord::PositionKind, PositionKind::kCenter);
    RepaintPreview(session);
}

void OnUserPosition(EditorSession& session, UINT) {
    const HWND dialog = session.Dialog();
    EnableOffsets(dialog, true);
    session.SetBoth(&WatermarkRecord::PositionKind, PositionKind::kUserSetting);
    const WatermarkRecord& known = session.Edited();
    session.SetBoth(&WatermarkRecord::OffsetX,
                    Control(dialog, IDC_HORIZONTAL).SignedNumber(known.OffsetX));
    session.SetBoth(&WatermarkRecord::OffsetY,
                    Control(dialog, IDC_VERTICAL).SignedNumber(known.OffsetY));
    RepaintPreview(session);
}

template <int kEditId, INT32 WatermarkRecord::*kOffset>
void OnOffset(EditorSession& session, UINT) {
    const INT32 known = session.Edited().*kOffset;
    const INT32 points = Control(session.Dialog(), kEditId).SignedNumber(known);
    LimitSignedNumber(session.Dialog(), kEditId, points);
    session.SetBoth(kOffset, points);
    RepaintPreview(session);
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
    {IDC_BOLD, OnStyle<IDC_BOLD, &WatermarkRecord::Bold>},
    {IDC_ITALIC, OnStyle<IDC_ITALIC, &WatermarkRecord::Italic>},
    {IDC_COLOR, OnColor},
    {IDC_ANGLE, OnAngleKind},
    {IDC_USER_ANGLE, OnUserAngle},
    {IDC_CENTER, OnCenter},
    {IDC_USER_POSITION, OnUserPosition},
    {IDC_HORIZONTAL, OnOffset<IDC_HORIZONTAL, &WatermarkRecord::OffsetX>},
    {IDC_VERTICAL, OnOffset<IDC_VERTICAL, &WatermarkRecord::OffsetY>},
});

}  // namespace

bool HandleSettingCommand(EditorSession& session, int controlId, UINT notification) {
    const auto command = std::ranges::find(kSettingCommands, controlId, &SettingCommand::controlId);
    if (command == kSettingCommands.end()) return false;
    command->handle(session, notification);
    return true;
}

}  // namespace oemui
