#include "platform/text/letter_case.h"

#include <unicode/uchar.h>

#include <algorithm>

namespace platform {
namespace {

std::u16string WithEach(char16_t (*otherCase)(char16_t), std::u16string_view text) {
    std::u16string changed(text);
    std::ranges::transform(changed, changed.begin(), otherCase);
    return changed;
}

// The platform's table of names knows pairs alone: a letter whose capital has another small one
// (the dotless i, the long s) stays, and so does what takes two characters.
char16_t CapitalOf(char16_t character) {
    const UChar32 capital = u_toupper(character);
    return u_tolower(capital) == character ? static_cast<char16_t>(capital) : character;
}

char16_t SmallOf(char16_t character) {
    return static_cast<char16_t>(u_tolower(character));
}

}  // namespace

std::u16string Uppercase(std::u16string_view text) {
    return WithEach(CapitalOf, text);
}

std::u16string Lowercase(std::u16string_view text) {
    return WithEach(SmallOf, text);
}

bool EqualIgnoringUnicodeCase(std::u16string_view left, std::u16string_view right) {
    return left.size() == right.size() && Uppercase(left) == Uppercase(right);
}

}  // namespace platform
