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
    UINT32 number = 0;
    for (const WatermarkRecord& entry : ListedEntries(list)) {
        Control(dialog, IDC_WATERMARK_LIST).AddNumbered(entry.Name, number++);
        widest = std::max(widest, TextWidth(context.Get(), TextIn(entry.Name)));
    }
    Control(dialog, IDC_WATERMARK_LIST).Select(selected);
    Control(dialog, IDC_WATERMARK_LIST).Send(CB_SETDROPPEDWIDTH, static_cast<WPARAM>(widest));
}

void FillFixedLists(HWND dialog) {
    const WindowContext context(dialog);
    if (context.Get() != nullptr) {
        ::EnumFontFamiliesW(context.Get(), nullptr, AddFontFamilyToList,
                            reinterpret_cast<LPARAM>(dialog));
    }
    for (const WatermarkColor& color : kWatermarkColors) {
        Control(dialog, IDC_COLOR).Add(ListText(color.textId).c_str());
    }
    for (const AngleChoice& choice : kAngleChoices) {
        Control(dialog, IDC_ANGLE)
            .AddNumbered(ListText(choice.textId).c_str(), StoredValue(choice.kind));
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
