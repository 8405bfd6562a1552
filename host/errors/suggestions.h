/// Near names for a name that is not known: of a printer, an item, a choice, a control.
#pragma once

#include <iterator>
#include <string>
#include <string_view>
#include <vector>

#include "host/errors/failure.h"

namespace host {

/// The known names that a slip of the fingers could have meant, nearest first, at most three.
/// Letters compare without regard to ASCII case; all texts are UTF-8.
[[nodiscard]] std::vector<std::string> NearNames(std::string_view wanted,
                                                 const std::vector<std::string>& known);

/// `no KIND "WANTED"`, followed by the near names, or by all of them when there are few, or
/// nothing.
[[nodiscard]] std::string UnknownName(std::string_view kind, std::string_view wanted,
                                      const std::vector<std::string>& known);

/// A text with its ASCII letters small; all others stay as they are.
[[nodiscard]] std::string AsciiLowerCase(std::string_view text);

/// Whether two texts are equal when ASCII letters of either case count as the same.
[[nodiscard]] bool EqualIgnoringAsciiCase(std::string_view left, std::string_view right);

/// The names of a table's rows, in its order.
template <typename Rows>
[[nodiscard]] std::vector<std::string> NamesOf(const Rows& rows) {
    std::vector<std::string> names;
    names.reserve(std::size(rows));
    for (const auto& row : rows) names.emplace_back(row.name);
    return names;
}

/// The row of a table whose name a person wrote. An unknown name is a `UsageFailure` that tells
/// the near ones.
template <typename Rows>
[[nodiscard]] const auto& RowNamed(const Rows& rows, std::string_view kind,
                                   std::string_view wanted) {
    for (const auto& row : rows) {
        if (EqualIgnoringAsciiCase(row.name, wanted)) return row;
    }
    throw UsageFailure(UnknownName(kind, wanted, NamesOf(rows)));
}

}  // namespace host
