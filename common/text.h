/// Comparing texts.
#pragma once

#include "common/fixed_text.h"

namespace oemui {

/// Whether two texts are equal when the letters A to Z and a to z count as the same; no other
/// character has a case here.
[[nodiscard]] bool EqualIgnoringAsciiCase(TextView left, TextView right);

}  // namespace oemui
