/// Reads watermarks from the lines of the default-watermark file.
#pragma once

#include "watermark/watermark_list.h"

namespace oemui {

/// The radix of the numbers in files that people write.
inline constexpr int kDecimal = 10;

/// Reads the digits of a text and skips everything else, signs included.
/// \param text   read up to its first terminator, at most 255 characters.
/// \param radix  2..36; letters are digits in either case.
/// \return the value modulo 2^32; 0 without digits.
[[nodiscard]] INT32 ParseInteger(TextView text, int radix);

/// Decodes one line of fifteen comma-separated fields: index, name, text, face name, point size,
/// bold, italic, red, green, blue, angle kind, degrees, position kind, horizontal and vertical
/// offset. Fields that are missing are empty or 0, texts are cut to their arrays, anything behind
/// the fifteenth field is ignored. Sets `InUse`; leaves `ColorIndex` and the padding as they were.
void ParseDefaultWatermarkLine(TextView line, WatermarkRecord* record);

}  // namespace oemui
