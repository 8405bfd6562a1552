/// Where the platform's published weights of characters differ from the Unicode collation's own.
#pragma once

#include <string>
#include <string_view>

namespace platform {

/// What is to be laid over the root collation.
[[nodiscard]] std::u16string CollationRules();

/// A text with accents apart from their letters, and letters that stand for two as those two: what
/// looks the same to a reader becomes the same.
[[nodiscard]] std::u16string Apart(std::u16string_view text);

/// The place of a character among those that count only when nothing else tells two texts apart
/// (control characters, hyphens and apostrophes); -1 for all others.
[[nodiscard]] int LastResortRank(char16_t character);

}  // namespace platform
