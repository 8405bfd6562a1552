/// What the fields of a watermark hold, and what the editor lets a user put into them. Whatever
/// comes from outside may lie beyond.
#pragma once

#include <windows.h>

#include <algorithm>
#include <cstddef>

namespace oemui {

/// Entries that a list holds at most, the one for no watermark included.
inline constexpr INT32 kWatermarkCapacity = 16;

// Characters of the record's texts, with their terminator.
inline constexpr std::size_t kNameCapacity = 32;
inline constexpr std::size_t kTextCapacity = 64;
inline constexpr std::size_t kFaceNameCapacity = 32;

// Characters that can be typed: fewer than a name holds, one more than the text keeps.
inline constexpr WPARAM kTypedNameLimit = 20;
inline constexpr WPARAM kTypedTextLimit = 64;

inline constexpr INT32 kMinimumPointSize = 8;
inline constexpr INT32 kMaximumPointSize = 200;
inline constexpr INT32 kLargestUserAngle = 180;  // degrees, to either side
inline constexpr INT32 kLargestOffset = 999;     // points (1/72 inch), to either side

/// Brings a point size into 8..200.
[[nodiscard]] constexpr INT32 ClampedPointSize(INT32 size) {
    return std::clamp(size, kMinimumPointSize, kMaximumPointSize);
}

}  // namespace oemui
