// The order of texts as the platform sees it in the United States: the Unicode collation's own
// order, except that hyphen and apostrophe are passed over unless nothing else tells two texts
// apart. Texts that only characters without any weight tell apart are ordered by their codes, so
// that only equal texts compare equal.

#include <unicode/ucol.h>
#include <winbase.h>

#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/text/letter_case.h"

namespace {

const UCollator* Collator() {
    static const UCollator* const collator = [] {
        UErrorCode status = U_ZERO_ERROR;
        UCollator* opened = ucol_open("en_US", &status);
        return U_SUCCESS(status) ? opened : nullptr;
    }();
    return collator;
}

// What counts as a last resort, in order.
constexpr std::u16string_view kLastResort = u"'-";

// A text without its hyphens and apostrophes, and where they stood: the number of other characters
// before each, and which it is.
struct Parted {
    std::u16string weighty;
    std::vector<std::pair<std::size_t, std::size_t>> lastResort;
};

Parted Part(std::u16string_view text) {
    Parted parted;
    for (const char16_t character : text) {
        const std::size_t rank = kLastResort.find(character);
        if (rank == std::u16string_view::npos) {
            parted.weighty += character;
        } else {
            parted.lastResort.emplace_back(parted.weighty.size(), rank);
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
    if (order != 0) return order;
    if (first.lastResort != second.lastResort) {
        return first.lastResort < second.lastResort ? -1 : 1;
    }
    return left.compare(right);
}

// Of null and a text the text is greater, the empty one too.
bool OneIsNull(LPCWSTR left, LPCWSTR right, int* order) {
    *order = (left != nullptr) - (right != nullptr);
    return left == nullptr || right == nullptr;
}

}  // namespace

// Without memory the order of the codes takes the place of the collation's.
int WINAPI lstrcmpW(LPCWSTR left, LPCWSTR right) try {
    int order;
    return OneIsNull(left, right, &order) ? order : Compare(left, right);
} catch (...) {
    return std::u16string_view(left).compare(right);
}

int WINAPI lstrcmpiW(LPCWSTR left, LPCWSTR right) try {
    int order;
    if (OneIsNull(left, right, &order)) return order;
    return Compare(platform::Lowercase(left), platform::Lowercase(right));
} catch (...) {
    return std::u16string_view(left).compare(right);
}
