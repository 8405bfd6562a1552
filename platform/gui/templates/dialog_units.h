/// Dialog units: quarters of the mean width and eighths of the height of a template's font.
#pragma once

#include <QFont>
#include <QRect>

#include "platform/gui/templates/dialog_template.h"

namespace platform {

/// A face by name, or the one that stands in for the platform's dialog faces, in points at 96 dots
/// per inch.
QFont DialogFont(const std::u16string& face, int pointSize);

class DialogUnits {
public:
    explicit DialogUnits(const DialogTemplate& dialog);

    [[nodiscard]] const QFont& Font() const { return font_; }
    /// Pixels at 96 dots per inch, each side rounded to the nearest.
    [[nodiscard]] QRect ToPixels(int x, int y, int width, int height) const;

private:
    QFont font_;
    int baseWidth_;
    int baseHeight_;
};

}  // namespace platform
