/// Finding faces by name, and measuring them. For the user-interface thread only.
#pragma once

#include <wingdi.h>

#include <QFont>
#include <QList>
#include <QString>

namespace platform {

/// A logical font that has found its face.
struct SettledFont {
    QFont font;
    int ascent;   ///< pixels of the cell above the baseline
    int descent;  ///< pixels of the cell below it; both together are a positive `lfHeight`
};

/// One family that can be asked for.
struct FontFamily {
    QString name;   ///< at most LF_FACESIZE - 1 characters
    bool scalable;  ///< outlines, not bitmaps of a few sizes
    bool fixedPitch;
};

/// Finds the face: the family of that name in any case, else a metric-compatible substitute of the
/// three usual faces, else a face of the kind that `lfPitchAndFamily` tells. Heights are bounded
/// to 2000 pixels either way; 0 is 16. Only height, escapement, weight, italic, face and family
/// are honoured.
SettledFont SettleFont(const LOGFONTW& asked);

/// Every family of the system, and the usual faces that a substitute stands in for.
QList<FontFamily> FontFamilies();

/// UTF-16 as the platform keeps it, lone surrogates replaced by U+FFFD.
QString WellFormedText(const WCHAR* text, int length);

}  // namespace platform
