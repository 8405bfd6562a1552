#include <gtest/gtest.h>
#include <windows.h>

#include <climits>
#include <iterator>
#include <limits>
#include <string>

namespace {

using String = std::basic_string<WCHAR>;

int Sign(int order) {
    return (order > 0) - (order < 0);
}

TEST(Collation, PunctuationThenDigitsThenLettersHyphenOnlyAsALastResort) {
    const WCHAR* const inOrder[] = {u"",     u"<NONE>", u"10",     u"9", u"A",      u"aB", u"B",
                                    u"coop", u"co-op",  u"COOPER", u"e", u"\u00E9", u"f"};
    for (std::size_t i = 0; i < std::size(inOrder); ++i) {
        for (std::size_t j = 0; j < std::size(inOrder); ++j) {
            const int expected = (i > j) - (i < j);
            EXPECT_EQ(Sign(lstrcmpiW(inOrder[i], inOrder[j])), expected) << i << " and " << j;
            EXPECT_EQ(Sign(lstrcmpW(inOrder[i], inOrder[j])), expected) << i << " and " << j;
        }
    }
}

TEST(Collation, CaseDecidesLastAndOnlyInOneOfTheTwo) {
    EXPECT_LT(lstrcmpW(TEXT("a"), TEXT("A")), 0);
    EXPECT_LT(lstrcmpW(TEXT("a"), TEXT("B")), 0);
    EXPECT_EQ(lstrcmpiW(TEXT("\u00C4rger"), TEXT("\u00E4RGER")), 0);
    EXPECT_LT(lstrcmpiW(TEXT("-"), TEXT("a")), 0);
    EXPECT_NE(lstrcmpiW(TEXT("-"), TEXT("")), 0);
    EXPECT_NE(lstrcmpW(TEXT("don't"), TEXT("dont")), 0);
    EXPECT_LT(lstrcmpW(nullptr, TEXT("")), 0);
}

template <typename... Arguments>
String Formatted(const WCHAR* format, Arguments... arguments) {
    WCHAR text[1025];
    text[1024] = TEXT('!');
    const int length = wsprintfW(text, format, arguments...);
    EXPECT_EQ(text[1024], TEXT('!'));
    EXPECT_EQ(lstrlenW(text), length);
    return text;
}

TEST(Formatting, AsTheFormatSays) {
    EXPECT_EQ(Formatted(TEXT("%s - #%ld %d%%"), TEXT("Watermark"), LONG{12}, -5),
              TEXT("Watermark - #12 -5%"));
    EXPECT_EQ(Formatted(TEXT("[%5d|%-5d|%05d|%.3d|%x|%#X|%04x]"), 42, 42, -42, 7, 255, 255, 10),
              TEXT("[   42|42   |-0042|007|ff|0XFF|000a]"));
    EXPECT_EQ(Formatted(TEXT("[%u %lu %c %5s %-4s %.2s]"), 4294967295u, DWORD{7}, TEXT('x'),
                        TEXT("ab"), TEXT("cd"), TEXT("efgh")),
              TEXT("[4294967295 7 x    ab cd   ef]"));
    EXPECT_EQ(Formatted(TEXT("%ld"), std::numeric_limits<LONG>::min()), TEXT("-2147483648"));
}

TEST(Formatting, StopsAtTheEndOfThePromisedBuffer) {
    const String text(5000, TEXT('y'));
    EXPECT_EQ(Formatted(TEXT("%s%d"), text.c_str(), 1).size(), 1023u);
    EXPECT_EQ(Formatted(TEXT("%9999999999d"), 1).size(), 1023u);
    EXPECT_EQ(Formatted(TEXT("100%")), TEXT("100"));
}

TEST(Copying, NeverMoreThanTheCapacity) {
    WCHAR text[8] = {9, 9, 9, 9, 9, 9, 9, 9};
    EXPECT_EQ(lstrcpynW(text, TEXT("abcdef"), 4), text);
    EXPECT_EQ(String(text), TEXT("abc"));
    EXPECT_EQ(text[4], 9);
    lstrcpynW(text, TEXT("x"), 8);
    EXPECT_EQ(String(text), TEXT("x"));
    EXPECT_EQ(lstrcpynW(text, nullptr, 8), nullptr);
    EXPECT_EQ(lstrlenW(nullptr), 0);
}

TEST(Arithmetic, MulDivRoundsToNearestAwayFromZero) {
    const struct {
        int number, numerator, denominator, result;
    } rows[] = {{8, 15, 72, 2},
                {12, 15, 72, 3},
                {1, 1, 2, 1},
                {-1, 1, 2, -1},
                {3, 1, -2, -2},
                {1, 1, 0, -1},
                {INT_MAX, INT_MAX, 1, -1},
                {INT_MAX, INT_MAX, INT_MAX, INT_MAX}};
    for (const auto& [number, numerator, denominator, result] : rows)
        EXPECT_EQ(MulDiv(number, numerator, denominator), result) << number;
}

TEST(CodePages, Windows1252AndUtf8BothWays) {
    WCHAR wide[16] = {};
    EXPECT_EQ(MultiByteToWideChar(CP_ACP, 0, "\x80\x9F\xE9", -1, wide, 16), 4);
    EXPECT_EQ(String(wide), TEXT("\u20AC\u0178\u00E9"));
    EXPECT_EQ(MultiByteToWideChar(CP_UTF8, 0, "\xE2\x82\xAC\xF0\x9F\x98\x80", 7, wide, 16), 3);
    EXPECT_EQ(String(wide, 3), TEXT("\u20AC\U0001F600"));
    char bytes[16] = {};
    BOOL usedDefault = FALSE;
    EXPECT_EQ(
        WideCharToMultiByte(CP_ACP, 0, TEXT("\u20AC\u4E2D"), -1, bytes, 16, nullptr, &usedDefault),
        3);
    EXPECT_STREQ(bytes, "\x80?");
    EXPECT_TRUE(usedDefault);
    const WCHAR lone[] = {0xD800, TEXT('x'), 0};
    EXPECT_EQ(WideCharToMultiByte(CP_UTF8, 0, lone, -1, bytes, 16, nullptr, nullptr), 5);
    EXPECT_STREQ(bytes, "\xEF\xBF\xBDx");
}

TEST(CodePages, RoomAndBadInput) {
    WCHAR wide[4] = {};
    EXPECT_EQ(MultiByteToWideChar(CP_UTF8, 0, "abcd", -1, nullptr, 0), 5);
    EXPECT_EQ(MultiByteToWideChar(CP_UTF8, 0, "abcd", -1, wide, 4), 0);
    EXPECT_EQ(GetLastError(), DWORD{ERROR_INSUFFICIENT_BUFFER});
    EXPECT_EQ(MultiByteToWideChar(CP_UTF8, MB_ERR_INVALID_CHARS, "a\xFF", 2, wide, 4), 0);
    EXPECT_EQ(GetLastError(), DWORD{ERROR_NO_UNICODE_TRANSLATION});
    EXPECT_EQ(MultiByteToWideChar(CP_UTF8, 0, "a\xFF", 2, wide, 4), 2);
    EXPECT_EQ(wide[1], 0xFFFD);
    EXPECT_EQ(MultiByteToWideChar(CP_UTF8, 0, "a", 0, wide, 4), 0);
    EXPECT_EQ(GetLastError(), DWORD{ERROR_INVALID_PARAMETER});
}

}  // namespace
