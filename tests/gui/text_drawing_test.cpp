#include <QFile>
#include <QFontDatabase>
#include <climits>
#include <vector>

#include "platform/gui/windows/application.h"
#include "tests/gui/drawing_fixture.h"

namespace {

TEST_F(Drawing, TextTurnsCounterClockwiseAboutItsTopCentre) {
    constexpr std::u16string_view kText = u"WATERMARK";
    struct Row {
        LONG escapement;
        int left, top;    // of the line's cell, from the reference point
        bool lengthwise;  // as wide as the text, else as high
    };
    const Canvas measure(1, 1);
    const SIZE size = Extent(measure, FontNamed(u"Arial", 20), kText);
    ASSERT_GT(size.cx, 40);
    EXPECT_EQ(size.cy, 20);
    const Row rows[] = {{0, -size.cx / 2, 0, true},
                        {900, 0, -(size.cx - size.cx / 2), false},
                        {1800, -(size.cx - size.cx / 2), -20, true},
                        {-900, -20, -size.cx / 2, false}};
    for (const Row& row : rows) {
        const Canvas canvas(400, 400);
        SetTextAlign(canvas, TA_CENTER | TA_TOP);
        SetBkColor(canvas, kRed);
        EXPECT_TRUE(Write(canvas, FontNamed(u"Arial", 20, row.escapement), 200, 200, kText));
        const QRect drawn = canvas.Drawn();
        EXPECT_EQ(drawn.topLeft(), QPoint(200 + row.left, 200 + row.top)) << row.escapement;
        EXPECT_EQ(drawn.size(), row.lengthwise ? QSize(size.cx, 20) : QSize(20, size.cx))
            << row.escapement;
    }
}

TEST_F(Drawing, TheInkStaysInTheTurnedCellInTheTextColour) {
    const Canvas canvas(200, 200);
    SetTextAlign(canvas, TA_CENTER | TA_TOP);
    EXPECT_EQ(SetTextColor(canvas, kRed), kBlack);
    EXPECT_EQ(SetBkColor(canvas, kWhite), kWhite);
    // Stepping back half a line along the text's upward direction puts the line on the centre.
    EXPECT_TRUE(Write(canvas, FontNamed(u"Arial", 30, 450), 100 - 10, 100 - 10, u"HHHH"));
    const QRect ink = canvas.Drawn();
    EXPECT_LE(std::abs(ink.center().x() - 100), 3);
    EXPECT_LE(std::abs(ink.center().y() - 100), 3);
    EXPECT_LE(std::abs(ink.width() - ink.height()), 4);
    int fullRed = 0;
    for (int x = 0; x < 200; ++x) fullRed += canvas.At(x, 199 - x) == kRed;
    EXPECT_GT(fullRed, 0);
}

TEST_F(Drawing, HeightsAreOfTheCellOrOfTheCharacters) {
    const Canvas canvas(60, 60);
    SetBkColor(canvas, kRed);
    Write(canvas, FontNamed(u"Arial", 20), 5, 6, u"x");  // from the top left corner at first
    EXPECT_EQ(canvas.Drawn().topLeft(), QPoint(5, 6));
    const SIZE cell = Extent(canvas, FontNamed(u"Arial", 100), u"mmmm");
    const SIZE characters = Extent(canvas, FontNamed(u"Arial", -100), u"mmmm");
    EXPECT_EQ(cell.cy, 100);
    EXPECT_GT(characters.cy, 105);
    EXPECT_GT(characters.cx, cell.cx);
    EXPECT_EQ(Extent(canvas, FontNamed(u"Arial", 0), u"m").cy, 16);
}

TEST_F(Drawing, FacesAreFoundByNameWithSubstituteAndFallback) {
    const Canvas canvas(300, 60);
    const auto width = [&](std::u16string_view face, std::u16string_view text) {
        return Extent(canvas, FontNamed(face, 40), text).cx;
    };
    EXPECT_EQ(width(u"Courier New", u"iiii"), width(u"Courier New", u"WWWW"));
    EXPECT_EQ(width(u"aRIAL", u"Watermark"), width(u"Liberation Sans", u"Watermark"));
    EXPECT_NE(width(u"Arial", u"Watermark"), width(u"Times New Roman", u"Watermark"));
    for (const auto* unknown : {u"No Such Face", u"", u"\xD800"}) {
        EXPECT_EQ(width(unknown, u"Watermark"), width(u"Times New Roman", u"Watermark"));
    }
    LOGFONTW bold = FontNamed(u"Arial", 40);
    bold.lfWeight = FW_BOLD;
    EXPECT_GT(Extent(canvas, bold, u"Watermark").cx, width(u"Arial", u"Watermark"));
    LOGFONTW font = FontNamed(u"Arial", 40);
    Write(canvas, font, 5, 5, u"I");
    const int upright = canvas.Drawn().width();
    font.lfItalic = 1;
    Write(canvas, font, 5, 5, u"I");
    EXPECT_GT(canvas.Drawn().width(), upright);
}

TEST_F(Drawing, AnyFontAndTextIsSafe) {
    const Canvas canvas(60, 60);
    SetTextAlign(canvas, TA_CENTER);
    for (const LONG height : {INT_MIN, -1, 447392426, INT_MAX}) {
        for (const LONG escapement : {INT_MIN, -1, 450, INT_MAX}) {
            LOGFONTW font = FontNamed(u"Arial", height, escapement);
            font.lfWeight = height;
            EXPECT_TRUE(Write(canvas, font, 30, 30, u"Watermark String"));
        }
    }
    LOGFONTW unterminated = FontNamed(u"", 12);
    std::fill_n(unterminated.lfFaceName, LF_FACESIZE, u'A');
    const std::u16string texts[] = {
        u"", u"\xDE00\xD83D", u"\u05E9\u05DC\u05D5\u05DD abc \u0645\u0631\u062D",
        std::u16string(u"a\0b\t\r\n\u202E\uFFFF", 8), std::u16string(8192, u'm')};
    for (const std::u16string& text : texts) {
        for (const int place : {INT_MIN, 30, INT_MAX}) {
            EXPECT_TRUE(Write(canvas, unterminated, place, place, text));
        }
    }
    EXPECT_FALSE(TextOutW(canvas, 0, 0, texts[4].data(), 8193));
    EXPECT_FALSE(TextOutW(canvas, 0, 0, u"a", -1));
    EXPECT_FALSE(TextOutW(canvas, 0, 0, nullptr, 1));
}

struct Enumerated {
    std::map<std::u16string, DWORD> types;
    int calls = 0;
    int most = INT_MAX;
};

int CALLBACK Remember(const LOGFONTW* font, const TEXTMETRICW* metrics, DWORD type,
                      LPARAM argument) {
    auto& seen = *reinterpret_cast<Enumerated*>(argument);
    ++seen.calls;
    seen.types[font->lfFaceName] = type;
    EXPECT_EQ(type == TRUETYPE_FONTTYPE, (metrics->tmPitchAndFamily & TMPF_TRUETYPE) != 0);
    return seen.calls < seen.most ? 7 : 0;
}

/// A family that two foundries make.
void InstallTwins() {
    platform::EnsureApplication();
    QFile file(QStringLiteral("/usr/share/fonts/truetype/liberation/LiberationSans-Regular.ttf"));
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    QByteArray font = file.readAll();
    QByteArray wide[] = {"Liberation Sans", "Two Foundries 1"};
    for (QByteArray& name : wide) {
        for (qsizetype at = name.size(); at > 0; --at) name.insert(at - 1, '\0');
    }
    font.replace(wide[0], wide[1]);
    for (const char* foundry : {"ONE ", "TWO "}) {
        font.replace("1ASC", foundry).replace("ONE ", foundry);
        ASSERT_GE(QFontDatabase::addApplicationFontFromData(font), 0);
    }
}

TEST_F(Drawing, FamiliesAreEnumeratedOnceEachUntilTheCallbackHasEnough) {
    const Canvas canvas(1, 1);
    InstallTwins();
    Enumerated all;
    const auto argument = [](Enumerated& seen) { return reinterpret_cast<LPARAM>(&seen); };
    EXPECT_EQ(EnumFontFamiliesW(canvas, nullptr, Remember, argument(all)), 7);
    EXPECT_EQ(all.calls, static_cast<int>(all.types.size()));
    EXPECT_EQ(all.types.count(u"Two Foundries 1 [ONE]"), 0u) << "the foundry's name is no part";
    for (const auto* face : {u"Arial", u"Times New Roman", u"Courier New", u"Two Foundries 1"}) {
        EXPECT_EQ(all.types[face], DWORD{TRUETYPE_FONTTYPE});
    }
    Enumerated two;
    two.most = 2;
    EXPECT_EQ(EnumFontFamiliesW(canvas, nullptr, Remember, argument(two)), 0);
    EXPECT_EQ(EnumFontFamiliesW(canvas, u"Arial", Remember, argument(two)), 0);
    EXPECT_EQ(two.calls, 2);
}

}  // namespace
