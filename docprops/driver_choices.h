/// The choices of the driver's own items, by their place in the item.
#pragma once

#include <windows.h>

namespace oemui {

/// Of the N-up item; the names count the pages on one sheet.
enum class NupChoice : LONG { kOne, kTwo, kFour, kSix, kNine, kSixteen, kBooklet };

/// Of the duplex item.
inline constexpr LONG kDuplexOff = 0;

/// Of the colour-management item: colours are the driver's business.
inline constexpr LONG kDriverColorManagement = 2;

/// Of the paper item: the paper that a refused one falls back to.
inline constexpr LONG kFirstForm = 0;

}  // namespace oemui
