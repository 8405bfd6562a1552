/// Comparing texts, and the older spellings for text in fixed arrays.
#pragma once

#include "common/fixed_text.h"
#include "common/message.h"

namespace oemui {

inline constexpr std::size_t kMessageCapacity = 260;
inline constexpr std::size_t kListTextCapacity = 32;

template <std::size_t Capacity>
using LoadedText = FixedText<Capacity>;

/// Whether two texts are equal when the letters A to Z and a to z count as the same; no other
/// character has a case here.
[[nodiscard]] bool EqualIgnoringAsciiCase(TextView left, TextView right);

}  // namespace oemui
