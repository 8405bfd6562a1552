// The order of texts as the platform sees it in the United States, by its published weights:
// punctuation, symbols, digits, letters. What hyphen, apostrophe and their like add is passed over
// unless nothing else tells two texts apart.
#include <unicode/ucol.h>
#include <winbase.h>

#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/text/collation_rules.h"
#include "platform/text/letter_case.h"

namespace {

const UCollator* Collator() {
    static const UCollator* const collator = [] {
        const std::u16string rules = platform::CollationRules();
        UErrorCode status = U_ZERO_ERROR;
        UCollator* opened = ucol_openRules(rules.data(), static_cast<int>(rules.size()), UCOL_ON,
                                           UCOL_TERTIARY, nullptr, &status);
        return U_SUCCESS(status) ? opened : nullptr;
    }();
    return collator;
}

// A text without what counts only as a last resort, and where that stood: the number of other
// characters before each, and its rank. Of two such places the later one sorts first.
struct Parted {
    std::u16string weighty;
    std::vector<std::pair<int, int>> lastResort;
};

Parted Part(std::u16string_view text) {
    Parted parted;
    for (const char16_t character : text) {
        const int rank = platform::LastResortRank(character);
        if (rank < 0) {
            parted.weighty += character;
        } else {
            parted.lastResort.emplace_back(-static_cast<int>(parted.weighty.size()), rank);
        }
    }
    return parted;
}

int Collate(std::u16string_view left, std::u16string_view right) {
    if (Collator() == nullptr) return left.compare(right);
    return ucol_strcoll(Collator(), left.data(), static_cast<int>(left.size()), right.data(),
                        static_cast<int>(right.size()));
}

int Compare(std::u16string_view left, std::u16string_view right) {
    if (left == right) return 0;
    const Parted first = Part(left);
    const Parted second = Part(right);
    const int order = Collate(first.weighty, second.weighty);
    if (order != 0 || first.lastResort == second.lastResort) return order;
    return first.lastResort < second.lastResort ? -1 : 1;
}

// Of null and a text the text is greater, the empty one too.
bool OneIsNull(LPCWSTR left, LPCWSTR right, int* order) {
    *order = (left != nullptr) - (right != nullptr);
    return left == nullptr || right == nullptr;
}

}  // namespace

int WINAPI lstrcmpW(LPCWSTR left, LPCWSTR right) {
    int order;
    if (OneIsNull(left, right, &order)) return order;
    return Compare(platform::Apart(left), platform::Apart(right));
}

int WINAPI lstrcmpiW(LPCWSTR left, LPCWSTR right) {
    int order;
    if (OneIsNull(left, right, &order)) return order;
    // Accents are apart from their letters: a capital I with a dot is no small i.
    return Compare(platform::Lowercase(platform::Apart(left)),
                   platform::Lowercase(platform::Apart(right)));
}
