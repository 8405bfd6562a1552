/// 32-bit arithmetic on settings that may hold anything: always defined, wrapping like the
/// platform's own.
#pragma once

#include <windows.h>

#include <limits>

namespace oemui {

constexpr INT32 WrappedProduct(INT32 left, INT32 right) {
    return static_cast<INT32>(static_cast<UINT32>(left) * static_cast<UINT32>(right));
}

constexpr INT32 WrappedSum(INT32 left, INT32 right) {
    return static_cast<INT32>(static_cast<UINT32>(left) + static_cast<UINT32>(right));
}

constexpr INT32 WrappedDifference(INT32 left, INT32 right) {
    return static_cast<INT32>(static_cast<UINT32>(left) - static_cast<UINT32>(right));
}

/// Cuts a number toward zero; 0 when the result does not fit, or when it is no number.
constexpr INT32 TruncatedToInt32(double number) {
    constexpr double kBelow = static_cast<double>(std::numeric_limits<INT32>::min()) - 1.0;
    constexpr double kAbove = static_cast<double>(std::numeric_limits<INT32>::max()) + 1.0;
    return number > kBelow && number < kAbove ? static_cast<INT32>(number) : 0;
}

}  // namespace oemui
