#include "platform/gui/drawing/fonts.h"

#include <QFontDatabase>
#include <QFontMetricsF>
#include <QGuiApplication>
#include <QHash>
#include <algorithm>
#include <cmath>
#include <cstdlib>

#include "platform/faults/failure_points.h"
#include "platform/gui/drawing/graphics_objects.h"
#include "platform/gui/windows/application.h"

namespace platform {
namespace {

constexpr int kDefaultCellHeight = 16;  // pixels
constexpr int kLargestHeight = 2000;    // pixels; beyond it a glyph only costs time

/// Faces that documents ask for everywhere, and the families with the same widths.
struct Substitute {
    const char* face;
    const char* standIn;
};
constexpr Substitute kSubstitutes[] = {
    {"Arial", "Liberation Sans"},
    {"Times New Roman", "Liberation Serif"},
    {"Courier New", "Liberation Mono"},
};

/// The families of the system; read again after fonts have come or gone.
struct FontCatalogue {
    QList<FontFamily> families;
    QHash<QString, QString> realNames;  ///< lower-case face name to the system's family

    void Add(const QString& shown, const QString& real);
    [[nodiscard]] bool Has(const QString& face) const { return realNames.contains(face.toLower()); }
};

void FontCatalogue::Add(const QString& shown, const QString& real) {
    const QString face = shown.left(LF_FACESIZE - 1);
    if (face.isEmpty() || Has(face)) return;
    families.append(
        {face, QFontDatabase::isSmoothlyScalable(real), QFontDatabase::isFixedPitch(real)});
    realNames.insert(face.toLower(), real);
}

/// The family alone: one that several foundries make is listed once for each, "Family [foundry]".
QString WithoutFoundry(const QString& name) {
    return name.endsWith(u']') ? name.left(name.lastIndexOf(QLatin1String(" ["))) : name;
}

FontCatalogue ReadFontCatalogue() {
    FontCatalogue catalogue;
    const QStringList names = QFontDatabase::families();
    for (const QString& name : names) {
        const QString family = WithoutFoundry(name);
        if (!QFontDatabase::isPrivateFamily(family)) catalogue.Add(family, family);
    }
    for (const Substitute& substitute : kSubstitutes) {
        if (catalogue.Has(substitute.standIn)) {
            catalogue.Add(substitute.face, substitute.standIn);
        }
    }
    return catalogue;
}

const FontCatalogue& Catalogue() {
    EnsureApplication();
    static FontCatalogue catalogue;
    static bool current = false;
    static const QGuiApplication* watched = nullptr;
    if (watched != qGuiApp) {
        watched = qGuiApp;
        current = false;
        QObject::connect(watched, &QGuiApplication::fontDatabaseChanged, [] { current = false; });
    }
    if (!current) {
        catalogue = ReadFontCatalogue();
        current = true;
    }
    return catalogue;
}

QString FallbackFace(BYTE pitchAndFamily) {
    const int family = pitchAndFamily & 0xF0;
    if (family == FF_ROMAN) return "Times New Roman";
    if (family == FF_MODERN || (pitchAndFamily & 3) == FIXED_PITCH) return "Courier New";
    return "Arial";
}

QFont FaceFor(const LOGFONTW& asked) {
    const WCHAR* end = std::find(asked.lfFaceName, asked.lfFaceName + LF_FACESIZE - 1, 0);
    const QString face = WellFormedText(asked.lfFaceName, static_cast<int>(end - asked.lfFaceName));
    const auto& realNames = Catalogue().realNames;
    const QString fallback = FallbackFace(asked.lfPitchAndFamily);
    const auto found = realNames.constFind(face.toLower());
    QFont font(found != realNames.constEnd() ? *found
                                             : realNames.value(fallback.toLower(), fallback));
    const int weight = asked.lfWeight == 0 ? FW_NORMAL : std::clamp(asked.lfWeight, 1, 1000);
    font.setWeight(static_cast<QFont::Weight>(weight));
    font.setItalic(asked.lfItalic != 0);
    // Turned text must be as wide as level text.
    font.setHintingPreference(QFont::PreferNoHinting);
    return font;
}

LOGFONTW LogicalFont(const FontFamily& family) {
    LOGFONTW font = {};
    font.lfWeight = FW_NORMAL;
    font.lfCharSet = DEFAULT_CHARSET;
    font.lfPitchAndFamily = family.fixedPitch ? FIXED_PITCH | FF_MODERN : VARIABLE_PITCH;
    std::copy_n(reinterpret_cast<const WCHAR*>(family.name.utf16()), family.name.size(),
                font.lfFaceName);
    return font;
}

TEXTMETRICW Metrics(const FontFamily& family) {
    TEXTMETRICW metrics = {};
    metrics.tmWeight = FW_NORMAL;
    metrics.tmCharSet = DEFAULT_CHARSET;
    int pitchAndFamily = family.fixedPitch ? int{FF_MODERN} : TMPF_FIXED_PITCH;
    if (family.scalable) pitchAndFamily |= TMPF_VECTOR | TMPF_TRUETYPE;
    metrics.tmPitchAndFamily = static_cast<BYTE>(pitchAndFamily);
    return metrics;
}

}  // namespace

SettledFont SettleFont(const LOGFONTW& asked) {
    SettledFont settled{FaceFor(asked), 0, 0};
    const int height = std::clamp(asked.lfHeight, -kLargestHeight, kLargestHeight);
    const int size = height == 0 ? kDefaultCellHeight : std::abs(height);
    settled.font.setPixelSize(size);
    const QFontMetricsF metrics(settled.font);
    const double ascent = metrics.ascent();
    const double cell = std::max(1.0, ascent + metrics.descent());
    if (height < 0) {
        settled.ascent = static_cast<int>(std::lround(ascent));
        settled.descent = static_cast<int>(std::lround(cell - ascent));
        return settled;
    }
    settled.font.setPixelSize(std::max(1, static_cast<int>(std::lround(size * size / cell))));
    settled.ascent = static_cast<int>(std::lround(ascent * size / cell));
    settled.descent = size - settled.ascent;
    return settled;
}

QList<FontFamily> FontFamilies() {
    return Catalogue().families;
}

QString WellFormedText(const WCHAR* text, int length) {
    QString result(reinterpret_cast<const QChar*>(text), length);
    for (qsizetype at = 0; at < result.size(); ++at) {
        if (!result[at].isSurrogate()) continue;
        const bool pair = result[at].isHighSurrogate() && at + 1 < result.size() &&
                          result[at + 1].isLowSurrogate();
        if (pair) {
            ++at;
        } else {
            result[at] = QChar::ReplacementCharacter;
        }
    }
    return result;
}

}  // namespace platform

int WINAPI EnumFontFamiliesW(HDC context, LPCWSTR family, FONTENUMPROCW procedure,
                             LPARAM argument) try {
    using platform::Fail;
    if (const auto error = platform::InjectedFailure("EnumFontFamiliesW")) return Fail<int>(*error);
    const platform::GraphicsObject* object = platform::FindGraphicsObject(context);
    if (object == nullptr) return 0;
    if (family != nullptr || procedure == nullptr ||
        object->Kind() != platform::GraphicsKind::kDeviceContext) {
        return Fail<int>(ERROR_INVALID_PARAMETER);
    }
    int result = 1;
    // A copy: the callback may bring the catalogue to be read again.
    const QList<platform::FontFamily> families = platform::FontFamilies();
    for (const platform::FontFamily& each : families) {
        const LOGFONTW font = platform::LogicalFont(each);
        const TEXTMETRICW metrics = platform::Metrics(each);
        result = procedure(&font, &metrics, each.scalable ? TRUETYPE_FONTTYPE : RASTER_FONTTYPE,
                           argument);
        if (result == 0) break;
    }
    return result;
} catch (...) {
    return platform::FailCaught<int>();
}
