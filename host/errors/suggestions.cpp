#include "host/errors/suggestions.h"

#include <algorithm>
#include <numeric>
#include <utility>

namespace host {
namespace {

constexpr std::size_t kMostSuggestions = 3;
constexpr std::size_t kFewNames = 8;
constexpr std::size_t kLongestSlip = 256;  // bytes; nobody meant a name by a longer text

// The number of letters to insert, drop or replace, or of neighbours to exchange, between two
// texts.
std::size_t EditDistance(std::string_view left, std::string_view right) {
    std::vector<std::size_t> beforeLast;
    std::vector<std::size_t> last;
    std::vector<std::size_t> row(right.size() + 1);
    std::iota(row.begin(), row.end(), std::size_t{0});
    for (std::size_t i = 1; i <= left.size(); ++i) {
        beforeLast = std::exchange(last, row);
        row[0] = i;
        for (std::size_t j = 1; j <= right.size(); ++j) {
            const std::size_t replaced = last[j - 1] + (left[i - 1] == right[j - 1] ? 0 : 1);
            row[j] = std::min({replaced, last[j] + 1, row[j - 1] + 1});
            const bool exchanged =
                i > 1 && j > 1 && left[i - 1] == right[j - 2] && left[i - 2] == right[j - 1];
            if (exchanged) row[j] = std::min(row[j], beforeLast[j - 2] + 1);
        }
    }
    return row.back();
}

std::string QuotedList(const std::vector<std::string>& names) {
    std::string text;
    for (const std::string& name : names) text += (text.empty() ? "" : ", ") + Quoted(name);
    return text;
}

}  // namespace

std::string AsciiLowerCase(std::string_view text) {
    std::string lower(text);
    for (char& letter : lower) {
        if (letter >= 'A' && letter <= 'Z') letter = static_cast<char>(letter - 'A' + 'a');
    }
    return lower;
}

bool EqualIgnoringAsciiCase(std::string_view left, std::string_view right) {
    return AsciiLowerCase(left) == AsciiLowerCase(right);
}

std::vector<std::string> NearNames(std::string_view wanted, const std::vector<std::string>& known) {
    if (wanted.size() > kLongestSlip) return {};
    const std::string lowerWanted = AsciiLowerCase(wanted);
    std::vector<std::pair<std::size_t, std::string>> near;
    for (const std::string& name : known) {
        const std::string lowerName = AsciiLowerCase(name);
        std::size_t distance = EditDistance(lowerWanted, lowerName);
        // The beginning or a part of a name is as good as one slip.
        if (!lowerWanted.empty() && lowerName.find(lowerWanted) != std::string::npos) {
            distance = std::min<std::size_t>(distance, 1);
        }
        if (distance <= std::max<std::size_t>(1, lowerWanted.size() / 3)) {
            near.emplace_back(distance, name);
        }
    }
    std::ranges::stable_sort(near, {}, &std::pair<std::size_t, std::string>::first);
    std::vector<std::string> names;
    for (const auto& [distance, name] : near) {
        if (names.size() < kMostSuggestions) names.push_back(name);
    }
    return names;
}

std::string UnknownName(std::string_view kind, std::string_view wanted,
                        const std::vector<std::string>& known) {
    std::string text = "no " + std::string(kind) + " " + Quoted(wanted);
    const std::vector<std::string> near = NearNames(wanted, known);
    if (!near.empty()) return text + "; did you mean " + QuotedList(near) + "?";
    if (known.empty()) return text + "; there is none";
    if (known.size() <= kFewNames) return text + "; known: " + QuotedList(known);
    return text;
}

}  // namespace host
