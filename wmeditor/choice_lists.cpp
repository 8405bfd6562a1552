#include "wmeditor/choice_lists.h"

#include <algorithm>

#include "resources/resource_ids.h"
#include "watermark/watermark_angle.h"
#include "watermark/watermark_colors.h"
#include "wmeditor/dialog_controls.h"

namespace oemui {
namespace {

LONG TextWidth(HDC context, TextView text) {
    SIZE size{};
    if (context == nullptr) return 0;
    ::GetTextExtentPoint32W(context, text.data(), static_cast<int>(text.size()), &size);
    return size.cx;
}

bool BelongsInList(const TEXTMETRICW& metrics, DWORD fontType) {
    if ((fontType & (TRUETYPE_FONTTYPE | DEVICE_FONTTYPE)) != 0) return true;
    if ((fontType & RASTER_FONTTYPE) != 0) return false;
    const BYTE pitchAndFamily = metrics.tmPitchAndFamily;
    return (pitchAndFamily & (TMPF_FIXED_PITCH | TMPF_VECTOR)) != 0 &&
           (pitchAndFamily & 0xF0) != FF_DECORATIVE;
}

}  // namespace

void FillWatermarkList(HWND dialog, const WatermarkList& list, INT32 selected) {
    const WindowContext context(dialog);
    LONG widest = 0;
    INT32 index = 0;
    for (const WatermarkRecord& entry : ListedEntries(list)) {
        Control(dialog, IDC_WATERMARK_LIST).AddNumbered(entry.Name, index++);
        widest = std::max(widest, TextWidth(context.Get(), TextIn(entry.Name)));
    }
    SelectListedWatermark(dialog, selected);
    Control(dialog, IDC_WATERMARK_LIST).Send(CB_SETDROPPEDWIDTH, static_cast<WPARAM>(widest));
}

void SelectListedWatermark(HWND dialog, INT32 index) {
    const Control items(dialog, IDC_WATERMARK_LIST);
    LRESULT position = items.Count();
    while (--position >= 0 && items.ItemNumber(position) != index) continue;
    items.Select(position);
}

void AddListedWatermark(HWND dialog, LPCWSTR name, INT32 index) {
    const Control items(dialog, IDC_WATERMARK_LIST);
    for (LRESULT position = items.Count(); --position >= 0;) {
        const LRESULT number = items.ItemNumber(position);
        if (number >= index) items.Renumber(position, number + 1);
    }
    items.AddNumbered(name, index);
    items.Select(index);
}

void RemoveListedWatermark(HWND dialog, INT32 index) {
    const Control items(dialog, IDC_WATERMARK_LIST);
    for (LRESULT position = items.Count(); --position >= 0;) {
        const LRESULT number = items.ItemNumber(position);
        if (number > index) items.Renumber(position, number - 1);
        // One that stays names no entry.
        if (number == index && items.Remove(position) < 0) items.Renumber(position, -1);
    }
}

void FillFixedLists(HWND dialog) {
    const WindowContext context(dialog);
    if (context.Get() != nullptr) {
        ::EnumFontFamiliesW(context.Get(), nullptr, AddFontFamilyToList,
                            reinterpret_cast<LPARAM>(dialog));
    }
    // A position stands for its choice, so nothing is added behind a choice that is missing.
    for (const WatermarkColor& color : kWatermarkColors) {
        if (Control(dialog, IDC_COLOR).Add(ListText(color.textId).c_str()) < 0) break;
    }
    for (const AngleChoice& choice : kAngleChoices) {
        const ListText text(choice.textId);
        const LPARAM kind = StoredValue(choice.kind);
        if (Control(dialog, IDC_ANGLE).AddNumbered(text.c_str(), kind) < 0) break;
    }
}

int CALLBACK AddFontFamilyToList(const LOGFONTW* font, const TEXTMETRICW* metrics, DWORD fontType,
                                 LPARAM dialog) noexcept {
    if (BelongsInList(*metrics, fontType)) {
        Control(reinterpret_cast<HWND>(dialog), IDC_TYPEFACE).Add(font->lfFaceName);
    }
    return 1;
}

}  // namespace oemui
