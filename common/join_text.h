/// Texts put together in a fixed array.
#pragma once

#include <algorithm>
#include <initializer_list>

#include "common/fixed_text.h"

namespace oemui {

/// Puts texts one after the other and terminates.
/// \return false, and nothing written, when they do not fit with their terminator.
template <std::size_t Capacity>
bool JoinText(WCHAR (&destination)[Capacity], std::initializer_list<TextView> parts) {
    std::size_t length = 0;
    for (const TextView part : parts) length += part.size();
    if (length >= Capacity) return false;
    WCHAR* end = destination;
    for (const TextView part : parts) end = std::copy(part.begin(), part.end(), end);
    *end = 0;
    return true;
}

}  // namespace oemui
