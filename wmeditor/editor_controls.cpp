#include "wmeditor/editor_controls.h"

#include <commctrl.h>

#include <array>

#include "resources/resource_ids.h"
#include "wmeditor/editor_arithmetic.h"
#include "wmeditor/editor_state.h"
#include "wmeditor/watermark_list_editing.h"
#include "wmeditor/watermark_preview.h"

namespace oemui {
namespace {

/// A choice of the angle list: the kind it stands for, and its text.
struct AngleChoice {
    UINT32 kind;
    UINT textId;
};

constexpr std::array<AngleChoice, 4> kAngleChoices = {{{kAngleHorizontal, IDS_ANGLE_HORIZONTAL},
                                                       {kAngleDiagonal, IDS_ANGLE_DIAGONAL},
                                                       {kAngleVertical, IDS_ANGLE_VERTICAL},
                                                       {kAngleUserDefine, IDS_ANGLE_USER_DEFINE}}};

/// Texts of the colours, by `ColorIndex`.
constexpr std::array<UINT, 7> kColorChoices = {IDS_COLOR_BLACK,  IDS_COLOR_CYAN, IDS_COLOR_MAGENTA,
                                               IDS_COLOR_YELLOW, IDS_COLOR_RED,  IDS_COLOR_GREEN,
                                               IDS_COLOR_BLUE};

constexpr int kSettingControls[] = {
    IDC_NAME,   IDC_TEXT,          IDC_TYPEFACE, IDC_POINT_SIZE,     IDC_POINT_SIZE_SPIN,
    IDC_BOLD,   IDC_ITALIC,        IDC_ANGLE,    IDC_SETTINGS_GROUP, IDC_COLOR,
    IDC_CENTER, IDC_USER_POSITION,
};

constexpr WPARAM kSizeDigits = 3;       // "200"
constexpr WPARAM kAngleCharacters = 4;  // "-180"
constexpr INT32 kLargestOffset = 999;

void SetCheck(HWND dialog, int buttonId, bool checked) {
    ::SendDlgItemMessageW(dialog, buttonId, BM_SETCHECK, checked ? BST_CHECKED : BST_UNCHECKED, 0);
}

void SetSpinRange(HWND dialog, int upDownId, INT32 lowest, INT32 highest) {
    ::SendDlgItemMessageW(dialog, upDownId, UDM_SETRANGE, 0, MAKELPARAM(highest, lowest));
}

void AddColorChoices(HWND dialog) {
    for (const UINT textId : kColorChoices) {
        const LoadedText<kListTextCapacity> text(textId);
        ::SendDlgItemMessageW(dialog, IDC_COLOR, CB_ADDSTRING, 0,
                              reinterpret_cast<LPARAM>(text.c_str()));
    }
}

void AddAngleChoices(HWND dialog) {
    for (const AngleChoice& choice : kAngleChoices) {
        const LoadedText<kListTextCapacity> text(choice.textId);
        const LRESULT position = ::SendDlgItemMessageW(dialog, IDC_ANGLE, CB_ADDSTRING, 0,
                                                       reinterpret_cast<LPARAM>(text.c_str()));
        if (position < 0) continue;
        ::SendDlgItemMessageW(dialog, IDC_ANGLE, CB_SETITEMDATA, static_cast<WPARAM>(position),
                              static_cast<LPARAM>(choice.kind));
    }
}

void AddTypefaces(HWND dialog) {
    const HDC context = ::GetDC(dialog);
    if (context == nullptr) return;
    ::EnumFontFamiliesW(context, nullptr, AddFontFamilyToList, reinterpret_cast<LPARAM>(dialog));
    ::ReleaseDC(dialog, context);
}

/// A typeface that is not installed leaves the list's selection as it was.
void SelectTypeface(HWND dialog, const WatermarkRecord& record) {
    const LRESULT position = ::SendDlgItemMessageW(dialog, IDC_TYPEFACE, CB_FINDSTRINGEXACT, 0,
                                                   reinterpret_cast<LPARAM>(record.FaceName));
    if (position < 0) return;
    ::SendDlgItemMessageW(dialog, IDC_TYPEFACE, CB_SETCURSEL, static_cast<WPARAM>(position), 0);
}

void FillFont(HWND dialog, const WatermarkRecord& record, bool firstFill) {
    if (firstFill) AddTypefaces(dialog);
    SelectTypeface(dialog, record);
    ::SetDlgItemInt(dialog, IDC_POINT_SIZE, static_cast<UINT>(record.PointSize), FALSE);
    SetSpinRange(dialog, IDC_POINT_SIZE_SPIN, kMinimumPointSize, kMaximumPointSize);
    ::SendDlgItemMessageW(dialog, IDC_POINT_SIZE, EM_LIMITTEXT, kSizeDigits, 0);
    SetCheck(dialog, IDC_BOLD, record.Bold != 0);
    SetCheck(dialog, IDC_ITALIC, record.Italic != 0);
    PreviewWatermark.PointSize = record.PointSize;
}

void FillColor(HWND dialog, const WatermarkRecord& record, bool firstFill) {
    if (firstFill) AddColorChoices(dialog);
    SelectPosition(dialog, IDC_COLOR, record.ColorIndex, kColorChoices.size());
    SetColorFromIndex(&PreviewWatermark, record.ColorIndex);
}

void PreviewAngle(const WatermarkRecord& record) {
    PreviewWatermark.AngleKind = record.AngleKind;
    switch (record.AngleKind) {
        case kAngleHorizontal:
            PreviewWatermark.AngleDegrees = 0;
            break;
        case kAngleDiagonal:
            PreviewWatermark.AngleDegrees = WholeDiagonalDegrees();
            break;
        case kAngleVertical:
            PreviewWatermark.AngleDegrees = kVerticalDegrees;
            break;
        case kAngleUserDefine:
            PreviewWatermark.AngleDegrees = record.AngleDegrees;
            break;
        default:
            break;
    }
}

void FillAngle(HWND dialog, const WatermarkRecord& record, bool firstFill) {
    if (firstFill) AddAngleChoices(dialog);
    SelectPosition(dialog, IDC_ANGLE, record.AngleKind, kAngleChoices.size());
    PreviewAngle(record);
    EnableUserAngleByChoice(dialog);
    // The edit's own handling brings both records' angle to what is shown here, within its limits.
    SetSignedNumber(dialog, IDC_USER_ANGLE, record.AngleDegrees);
    SetSpinRange(dialog, IDC_USER_ANGLE_SPIN, -kLargestUserAngle, kLargestUserAngle);
    ::SendDlgItemMessageW(dialog, IDC_USER_ANGLE, EM_LIMITTEXT, kAngleCharacters, 0);
}

void FillPosition(HWND dialog, const WatermarkRecord& record) {
    const bool centred = record.PositionKind == kPositionCenter;
    SetCheck(dialog, IDC_CENTER, centred);
    SetCheck(dialog, IDC_USER_POSITION, !centred);
    EnableOffsets(dialog, !centred);
    SetSignedNumber(dialog, IDC_HORIZONTAL, record.OffsetX);
    SetSpinRange(dialog, IDC_HORIZONTAL_SPIN, -kLargestOffset, kLargestOffset);
    SetSignedNumber(dialog, IDC_VERTICAL, record.OffsetY);
    SetSpinRange(dialog, IDC_VERTICAL_SPIN, -kLargestOffset, kLargestOffset);
}

bool BelongsInList(const TEXTMETRICW& metrics, DWORD fontType) {
    if ((fontType & (TRUETYPE_FONTTYPE | DEVICE_FONTTYPE)) != 0) return true;
    if ((fontType & RASTER_FONTTYPE) != 0) return false;
    const BYTE pitchAndFamily = metrics.tmPitchAndFamily;
    return (pitchAndFamily & (TMPF_FIXED_PITCH | TMPF_VECTOR)) != 0 &&
           (pitchAndFamily & 0xF0) != FF_DECORATIVE;
}

}  // namespace

void FillEditorControls(HWND dialog, const WatermarkRecord& shown, bool firstFill) {
    // The edits' handling writes into the edited record while the controls are being filled.
    const WatermarkRecord record = shown;
    CopyWatermark(&PreviewWatermark, record);
    ::SetDlgItemTextW(dialog, IDC_NAME, record.Name);
    ::SetDlgItemTextW(dialog, IDC_TEXT, record.Text);
    FillFont(dialog, record, firstFill);
    FillColor(dialog, record, firstFill);
    FillAngle(dialog, record, firstFill);
    FillPosition(dialog, record);
    Repaint(dialog);
}

void EnableSettingControls(HWND dialog, bool enabled) {
    for (const int controlId : kSettingControls) EnableControl(dialog, controlId, enabled);
}

void EnableUserAngle(HWND dialog, bool enabled) {
    for (const int controlId : {IDC_USER_ANGLE, IDC_USER_ANGLE_SPIN, IDC_USER_ANGLE_LABEL}) {
        EnableControl(dialog, controlId, enabled);
    }
}

void EnableOffsets(HWND dialog, bool enabled) {
    for (const int controlId :
         {IDC_HORIZONTAL, IDC_VERTICAL, IDC_HORIZONTAL_SPIN, IDC_VERTICAL_SPIN}) {
        EnableControl(dialog, controlId, enabled);
    }
}

void EnableUserAngleByChoice(HWND dialog) {
    const INT32 position = SelectedPosition(dialog, IDC_ANGLE);
    const LRESULT value =
        ::SendDlgItemMessageW(dialog, IDC_ANGLE, CB_GETITEMDATA, static_cast<WPARAM>(position), 0);
    EnableUserAngle(dialog, value == static_cast<LRESULT>(kAngleUserDefine));
}

int CALLBACK AddFontFamilyToList(const LOGFONTW* font, const TEXTMETRICW* metrics, DWORD fontType,
                                 LPARAM dialog) {
    const HWND list = ::GetDlgItem(reinterpret_cast<HWND>(dialog), IDC_TYPEFACE);
    if (list != nullptr && BelongsInList(*metrics, fontType)) {
        ::SendMessageW(list, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(font->lfFaceName));
    }
    return 1;
}

void RefreshDiagonalAngle(WatermarkRecord* entry) {
    if (entry->AngleKind == kAngleDiagonal) entry->AngleDegrees = WholeDiagonalDegrees();
}

INT32 WholeDiagonalDegrees() {
    return TruncatedToInt32(DiagonalAngleDegrees());
}

void TakeUpEntry(HWND dialog, INT32 index) {
    CurrentIndex = index;
    if (IsListed(index)) RefreshDiagonalAngle(&WorkingWatermarkList.Entries[index]);
    EditEntry(index);
    EnableControl(dialog, IDC_DELETE, index != 0);
    EnableSettingControls(dialog, index != 0);
}

void EditEntry(INT32 index) {
    static constexpr WatermarkRecord kNothing{};
    CopyWatermark(&EditedWatermark,
                  IsListed(index) ? WorkingWatermarkList.Entries[index] : kNothing);
}

void ShowSelectedEntry(HWND dialog) {
    const INT32 position = SelectedPosition(dialog, IDC_WATERMARK_LIST);
    const INT32 index = IsListed(position) ? position : 0;
    WorkingWatermarkList.Selected = index;
    TakeUpEntry(dialog, index);
    FillEditorControls(dialog, EditedWatermark, false);
}

void Repaint(HWND dialog) {
    PaintWatermarkPreview(dialog, PreviewWatermark, PreviewOrientation);
}

void EnableControl(HWND dialog, int controlId, bool enabled) {
    const HWND control = ::GetDlgItem(dialog, controlId);
    if (control != nullptr) ::EnableWindow(control, enabled ? TRUE : FALSE);
}

void SetSignedNumber(HWND dialog, int editId, INT32 number) {
    ::SetDlgItemInt(dialog, editId, static_cast<UINT>(number), TRUE);
}

INT32 SelectedPosition(HWND dialog, int listId) {
    return static_cast<INT32>(::SendDlgItemMessageW(dialog, listId, CB_GETCURSEL, 0, 0));
}

void SelectPosition(HWND dialog, int listId, UINT32 position, UINT32 count) {
    const INT32 selected = position < count ? static_cast<INT32>(position) : -1;
    ::SendDlgItemMessageW(dialog, listId, CB_SETCURSEL, static_cast<WPARAM>(selected), 0);
}

}  // namespace oemui
