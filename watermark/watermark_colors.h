/// The seven named colours of watermarks.
#pragma once

#include <array>

#include "resources/resource_ids.h"
#include "watermark/watermark_list.h"

namespace oemui {

struct WatermarkColor {
    UINT textId;
    BYTE red;
    BYTE green;
    BYTE blue;
};

/// By `ColorIndex`, in the order of the editor's list.
inline constexpr auto kWatermarkColors = std::to_array<WatermarkColor>({
    {IDS_COLOR_BLACK, 0, 0, 0},
    {IDS_COLOR_CYAN, 0, 255, 255},
    {IDS_COLOR_MAGENTA, 255, 0, 255},
    {IDS_COLOR_YELLOW, 255, 255, 0},
    {IDS_COLOR_RED, 255, 0, 0},
    {IDS_COLOR_GREEN, 0, 255, 0},
    {IDS_COLOR_BLUE, 0, 0, 255},
});

/// Sets the components of a named colour; an index behind the last changes nothing.
inline void SetColorFromIndex(WatermarkRecord* record, UINT32 colorIndex) {
    if (colorIndex >= kWatermarkColors.size()) return;
    const WatermarkColor& color = kWatermarkColors[colorIndex];
    record->Red = color.red;
    record->Green = color.green;
    record->Blue = color.blue;
}

}  // namespace oemui
