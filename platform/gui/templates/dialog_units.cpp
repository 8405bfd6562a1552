#include "platform/gui/templates/dialog_units.h"

#include <QFontDatabase>
#include <QFontMetricsF>
#include <algorithm>
#include <cmath>

namespace platform {
namespace {

/// The platform's faces for dialogs are not installed elsewhere; this one has their widths.
constexpr const char* kDialogFace = "Liberation Sans";

int Scale(int units, int base, int divisor) {
    const int product = units * base;
    return (product + (product < 0 ? -divisor : divisor) / 2) / divisor;
}

}  // namespace

QFont DialogFont(const std::u16string& face, int pointSize) {
    QString family = QString::fromStdU16String(face);
    if (!QFontDatabase::hasFamily(family)) family = QString::fromLatin1(kDialogFace);
    QFont font(family);
    font.setPixelSize(std::clamp((pointSize * 96 + 36) / 72, 6, 96));
    return font;
}

DialogUnits::DialogUnits(const DialogTemplate& dialog)
    : font_(DialogFont(dialog.FontFace, dialog.PointSize)) {
    const QFontMetricsF metrics(font_);
    const QString letters = QStringLiteral("ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz");
    baseWidth_ = (static_cast<int>(metrics.horizontalAdvance(letters)) / 26 + 1) / 2;
    // Whole pixels above and below the baseline, as the platform's fonts have them.
    baseHeight_ = static_cast<int>(std::ceil(metrics.ascent()) + std::ceil(metrics.descent()));
}

QRect DialogUnits::ToPixels(int x, int y, int width, int height) const {
    return {Scale(x, baseWidth_, 4), Scale(y, baseHeight_, 8), Scale(width, baseWidth_, 4),
            Scale(height, baseHeight_, 8)};
}

}  // namespace platform
