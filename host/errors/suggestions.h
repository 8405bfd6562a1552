/// Near names for a name that is not known: of a printer, an item, a choice, a control.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace host {

/// The known names that a slip of the fingers could have meant, nearest first, at most three.
/// Letters compare without regard to ASCII case; all texts are UTF-8.
std::vector<std::string> NearNames(std::string_view wanted, const std::vector<std::string>& known);

/// `no KIND "WANTED"`, followed by the near names, or by all of them when there are few, or
/// nothing.
std::string UnknownName(std::string_view kind, std::string_view wanted,
                        const std::vector<std::string>& known);

/// Whether two texts are equal when ASCII letters of either case count as the same.
bool EqualIgnoringCase(std::string_view left, std::string_view right);

}  // namespace host
