#include "platform/text/collation_rules.h"

#include <unicode/unorm2.h>

#include <algorithm>
#include <iterator>
#include <string_view>

namespace platform {
namespace {

// In order, before all other punctuation and the digits.
constexpr std::u16string_view kPunctuation =
    u" \u00A0\t\n\v\f\r!\"#$%&()*,./:;?@[\\]^_`{|}~\u00A1\u00A6\u00A8\u00AF\u00B4\u00B8\u00BF\u02DC"
    u"\u2018\u2019\u201A\u201C\u201D\u201E\u2039\u203A\u00A2\u00A3\u00A4\u00A5\u20AC+<=>\u00B1"
    u"\u00AB\u00BB\u00D7\u00F7\u00A7\u00A9\u00AC\u00AE\u00B0\u00B5\u00B6\u00B7\u2026\u2020\u2021"
    u"\u2022\u2030";

// Accents stand in the platform's own order, fractions between the numbers.
constexpr std::u16string_view kOthers =
    u"&\u0301<<\u0300<<\u0302<<\u0308<<\u0303<<\u030A&0<\u00BC<\u00BD<\u00BE&'^'=\u02C6";

struct Pair {
    char16_t letter;
    std::u16string_view standsFor;
};
constexpr Pair kPairs[] = {{u'\u00E6', u"ae"},  {u'\u00C6', u"AE"}, {u'\u0153', u"oe"},
                           {u'\u0152', u"OE"},  {u'\u00FE', u"th"}, {u'\u00DE', u"TH"},
                           {u'\u00DF', u"ss"},  {u'\u1E9E', u"SS"}, {u'\uFB00', u"ff"},
                           {u'\uFB01', u"fi"},  {u'\uFB02', u"fl"}, {u'\uFB03', u"ffi"},
                           {u'\uFB04', u"ffl"}, {u'\uFB06', u"st"}};

// In order, behind the control characters.
constexpr std::u16string_view kDashes = u"'-\u2212\u2010\u2011\u2012\u2013\u2014\u2015";

std::u16string Decomposed(std::u16string_view text) {
    constexpr std::size_t kLargestGrowth = 4;  // WCHARs that one becomes
    UErrorCode status = U_ZERO_ERROR;
    const UNormalizer2* const decomposition = unorm2_getNFDInstance(&status);
    std::u16string decomposed(text.size() * kLargestGrowth, 0);
    const int length =
        unorm2_normalize(decomposition, text.data(), static_cast<int>(text.size()),
                         decomposed.data(), static_cast<int>(decomposed.size()), &status);
    if (U_FAILURE(status)) return std::u16string(text);
    decomposed.resize(static_cast<std::size_t>(length));
    return decomposed;
}

}  // namespace

std::u16string CollationRules() {
    std::u16string rules;
    for (const char16_t character : kPunctuation) {
        rules += rules.empty() ? u"&'" : u"<'";
        rules += character;
        rules += u'\'';
    }
    return rules.append(kOthers);
}

std::u16string Apart(std::u16string_view text) {
    std::u16string apart;
    for (const char16_t character : Decomposed(text)) {
        const auto* const pair = std::ranges::find(kPairs, character, &Pair::letter);
        if (pair == std::end(kPairs)) {
            apart += character;
        } else {
            apart += pair->standsFor;
        }
    }
    return apart;
}

int LastResortRank(char16_t character) {
    constexpr int kControlCharacters = 0xA0;
    const bool isControl =
        character < u' ' || (character >= 0x7F && character < kControlCharacters);
    if (isControl) return character >= u'\t' && character <= u'\r' ? -1 : character;
    const std::size_t dash = kDashes.find(character);
    return dash == std::u16string_view::npos ? -1 : kControlCharacters + static_cast<int>(dash);
}

}  // namespace platform
