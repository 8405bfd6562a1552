#include <gtest/gtest.h>
#include <windows.h>

#include <bit>
#include <climits>
#include <iterator>
#include <limits>
#include <string>

namespace {

using String = std::basic_string<WCHAR>;

int Sign(int order) {
    return (order > 0) - (order < 0);
}

TEST(Collation, PunctuationSymbolsDigitsLettersAndHyphensOnlyAsALastResort) {
    const WCHAR* const inOrder[] = {
        u"",     u"\x1",    u"'",     u"-",      u"!",        u"(x)",       u",", u"/",      u"_",
        u"{",    u"\u00A3", u"+",     u"<NONE>", u"10",       u"9",         u"A", u"aB",     u"B",
        u"coop", u"co-op",  u"c-oop", u"COOPER", u"Draft #2", u"Draft (2)", u"e", u"\u00E9", u"f"};
    for (std::size_t i = 0; i < std::size(inOrder); ++i) {
        for (std::size_t j = 0; j < std::size(inOrder); ++j) {
            const int expected = (i > j) - (i < j);
            EXPECT_EQ(Sign(lstrcmpiW(inOrder[i], inOrder[j])), expected) << i << " and " << j;
            EXPECT_EQ(Sign(lstrcmpW(inOrder[i], inOrder[j])), expected) << i << " and " << j;
        }
    }
}

TEST(Collation, CaseDecidesLateAndSpellingNever) {
    const struct {
        const WCHAR *left, *right;
        int order, orderWithoutCase;
    } rows[] = {{u"a", u"A", -1, 0},
                {u"co-op", u"Coop", -1, 1},
                {u"\u00C4rger", u"A\u0308RGER", -1, 0},
                {u"caf\u00E9-1", u"cafe\u0301-1", 0, 0},
                {u"Stra\u00DFe-1", u"Strasse-1", 0, 0},
                {u"\u0130", u"i", 1, 1},
                {nullptr, u"", -1, -1}};
    for (const auto& row : rows) {
        EXPECT_EQ(Sign(lstrcmpW(row.left, row.right)), row.order) << &row - rows;
        EXPECT_EQ(Sign(lstrcmpiW(row.left, row.right)), row.orderWithoutCase) << &row - rows;
    }
}

template <typename... Arguments>
String Formatted(const WCHAR* format, Arguments... arguments) {
    WCHAR text[1025];
    text[1024] = TEXT('!');
    const int length = wsprintfW(text, format, arguments...);
    EXPECT_EQ(text[1024], TEXT('!'));
    const String formatted = text;
    EXPECT_EQ(formatted.size(), static_cast<std::size_t>(length));
    return formatted;
}

TEST(Formatting, AsTheFormatSays) {
    EXPECT_EQ(Formatted(TEXT("%s - #%ld %d%%"), TEXT("Watermark"), LONG{12}, -5),
              TEXT("Watermark - #12 -5%"));
    EXPECT_EQ(Formatted(TEXT("%ld %u %I64d %x %X"), std::numeric_limits<LONG>::min(), 4000000000u,
                        -5000000000, 0xABu, 0xABu),
              TEXT("-2147483648 4000000000 -5000000000 ab AB"));
    EXPECT_EQ(Formatted(TEXT("%p %S %hs %C %c %q"), std::bit_cast<void*>(0xABCDul), "\x80", "b",
                        'c', 0x20AC),
              TEXT("000000000000ABCD \u20AC b c \u20AC q"));
}

TEST(Formatting, StopsAtTheEndOfThePromisedBuffer) {
    const String text(5000, TEXT('y'));
    EXPECT_EQ(Formatted(TEXT("%s%d"), text.c_str(), 1).size(), 1023u);
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

TEST(CodePages, Windows1252WithQuestionMarksInTheRoomThereIs) {
    const WCHAR text[] = {0x20AC, 0x4E2D, 0x178, 0xE9, 0xD83D, 0xDE00, 0xD800, 0};
    const auto convert = [&text](int capacity) {
        std::string bytes(16, '#');
        const int length =
            WideCharToMultiByte(CP_ACP, 0, text, -1, bytes.data(), capacity, nullptr, nullptr);
        return std::to_string(length) + bytes;
    };
    EXPECT_EQ(convert(7), std::string("7\x80?\x9F\xE9??\0#########", 17));
    EXPECT_EQ(convert(6), "0################");
    EXPECT_EQ(GetLastError(), DWORD{ERROR_INSUFFICIENT_BUFFER});
    EXPECT_EQ(convert(0), "0################");
    EXPECT_EQ(GetLastError(), DWORD{ERROR_INVALID_PARAMETER});
}

}  // namespace
