#include "watermark/watermark_angle.h"

#include <cmath>

#include "common/current_printer.h"
#include "common/unique_handle.h"

namespace oemui {
namespace {

using UniqueDeviceContext = UniqueHandle<HDC, ::DeleteDC>;

constexpr double kFallbackDegrees = 45.0;

}  // namespace

double DiagonalAngleDegrees() {
    const UniquePrinter printer = OpenPrinterFor(CurrentPrinterName(), PRINTER_ACCESS_USE);
    if (!printer) return kFallbackDegrees;
    const UniqueDeviceContext page(::CreateDCW(nullptr, CurrentPrinterName(), nullptr, nullptr));
    if (!page) return kFallbackDegrees;
    const double width = ::GetDeviceCaps(page.Get(), PHYSICALWIDTH);
    const double height = ::GetDeviceCaps(page.Get(), PHYSICALHEIGHT);
    return std::atan2(height, width) * 180.0 / kPi;
}

INT32 DegreesOfKind(UINT32 kind, INT32 userAngle) {
    switch (static_cast<AngleKind>(kind)) {
        case AngleKind::kHorizontal:
            return 0;
        case AngleKind::kDiagonal:
            return static_cast<INT32>(DiagonalAngleDegrees());
        case AngleKind::kVertical:
            return 90;
        default:
            return userAngle;
    }
}

void RefreshDiagonalAngle(WatermarkRecord* entry) {
    if (entry->AngleKind != StoredValue(AngleKind::kDiagonal)) return;
    entry->AngleDegrees = DegreesOfKind(entry->AngleKind, entry->AngleDegrees);
}

}  // namespace oemui
