// The order of texts as the platform sees it in the United States: the Unicode collation's own
// order, except that hyphen and apostrophe are passed over unless nothing else tells two texts
// apart. Texts that only characters without any weight tell apart are ordered by their codes, so
// that only equal texts compare equal.

#include <unicode/uchar.h>
#include <unicode/ucol.h>
#include <unicode/utf16.h>
#include <winbase.h>

#include <algorithm>
#include <string>
#include <string_view>

namespace {

const UCollator* Collator() {
    static const UCollator* const collator = [] {
        UErrorCode status = U_ZERO_ERROR;
        UCollator* opened = ucol_open("en_US", &status);
        return U_SUCCESS(status) ? opened : nullptr;
    }();
    return collator;
}

bool IsLastResort(char16_t character) {
    return character == u'-' || character == u'\'';
}

std::u16string WithoutLastResort(std::u16string_view text) {
    std::u16string kept;
    std::copy_if(text.begin(), text.end(), std::back_inserter(kept),
                 [](char16_t c) { return !IsLastResort(c); });
    return kept;
}

// Small letters, with everything else that tells characters apart left alone.
std::u16string Lowercase(std::u16string_view text) {
    std::u16string lower(text);
    for (std::size_t at = 0; at < text.size();) {
        const std::size_t begin = at;
        UChar32 character;
        U16_NEXT(text.data(), at, text.size(), character);
        const UChar32 small = u_tolower(character);
        if (U16_LENGTH(small) != static_cast<int>(at - begin)) continue;
        std::size_t written = begin;
        U16_APPEND_UNSAFE(lower.data(), written, small);
    }
    return lower;
}

int Collate(std::u16string_view left, std::u16string_view right) {
    if (Collator() == nullptr) return left.compare(right);
    return ucol_strcoll(Collator(), left.data(), static_cast<int>(left.size()), right.data(),
                        static_cast<int>(right.size()));
}

int Compare(std::u16string_view left, std::u16string_view right) {
    if (left == right) return 0;
    int order = Collate(WithoutLastResort(left), WithoutLastResort(right));
    if (order == 0) order = Collate(left, right);
    return order != 0 ? order : left.compare(right);
}

// Of null and a text the text is greater, the empty one too.
bool OneIsNull(LPCWSTR left, LPCWSTR right, int* order) {
    *order = (left != nullptr) - (right != nullptr);
    return left == nullptr || right == nullptr;
}

}  // namespace

int WINAPI lstrcmpW(LPCWSTR left, LPCWSTR right) {
    int order;
    return OneIsNull(left, right, &order) ? order : Compare(left, right);
}

int WINAPI lstrcmpiW(LPCWSTR left, LPCWSTR right) {
    int order;
    return OneIsNull(left, right, &order) ? order : Compare(Lowercase(left), Lowercase(right));
}
