#include "platform/text/letter_case.h"

#include <unicode/uchar.h>
#include <unicode/utf16.h>

namespace platform {
namespace {

// A character and its other case lie in the same plane, so each takes the other's place.
std::u16string WithEach(UChar32 (*otherCase)(UChar32), std::u16string_view text) {
    std::u16string changed(text);
    for (std::size_t at = 0; at < text.size();) {
        std::size_t written = at;
        UChar32 character;
        U16_NEXT(text.data(), at, text.size(), character);
        U16_APPEND_UNSAFE(changed.data(), written, otherCase(character));
    }
    return changed;
}

}  // namespace

std::u16string Uppercase(std::u16string_view text) {
    return WithEach(u_toupper, text);
}

std::u16string Lowercase(std::u16string_view text) {
    return WithEach(u_tolower, text);
}

bool EqualIgnoringUnicodeCase(std::u16string_view left, std::u16string_view right) {
    return left.size() == right.size() && Uppercase(left) == Uppercase(right);
}

}  // namespace platform
