/// The angles of watermarks: their kinds, the degrees of each, and the diagonal of the printer's
/// page. Degrees count counter-clockwise.
#pragma once

#include <array>

#include "resources/resource_ids.h"
#include "watermark/watermark_list.h"

namespace oemui {

/// Coarse on purpose: angles computed with it are stored, and a closer value would shift them.
inline constexpr double kPi = 3.1415927;

/// Values of `WatermarkRecord::AngleKind`.
enum class AngleKind : UINT32 { kHorizontal, kDiagonal, kVertical, kUserDefine };

struct AngleChoice {
    AngleKind kind;
    UINT textId;
    INT32 userAngle;  ///< degrees from which a user angle starts after this choice
};

/// By kind, in the order of the editor's list.
inline constexpr auto kAngleChoices = std::to_array<AngleChoice>({
    {AngleKind::kHorizontal, IDS_ANGLE_HORIZONTAL, 0},
    {AngleKind::kDiagonal, IDS_ANGLE_DIAGONAL, 45},  // not the page's diagonal
    {AngleKind::kVertical, IDS_ANGLE_VERTICAL, 90},
    {AngleKind::kUserDefine, IDS_ANGLE_USER_DEFINE, 0},
});

/// The angle of the diagonal of the current printer's default page (`CurrentPrinterName`), in
/// degrees; 45 when it cannot be measured.
[[nodiscard]] double DiagonalAngleDegrees();

/// The whole degrees that a kind of angle stands for; the user's own for any other kind.
[[nodiscard]] INT32 DegreesOfKind(UINT32 kind, INT32 userAngle);

/// Gives a diagonal entry the angle of the current printer's page; other entries stay.
void RefreshDiagonalAngle(WatermarkRecord* entry);

}  // namespace oemui
