/// Conversions between UTF-16 and the encodings of files.
#pragma once

#include <string>
#include <string_view>

namespace platform {

/// UTF-8 of a UTF-16 text, and back. Lone surrogates, and what is not UTF-8, become U+FFFD.
[[nodiscard]] std::string Utf8(std::u16string_view text);
[[nodiscard]] std::u16string Utf16(std::string_view text);

/// UTF-8 that keeps lone surrogates, as three bytes each, so that every UTF-16 text comes back as
/// it was: for names in stores.
[[nodiscard]] std::string ExactUtf8(std::u16string_view text);
[[nodiscard]] std::u16string ExactUtf16(std::string_view text);

/// UTF-16 of a text in Windows-1252; every byte has a meaning.
[[nodiscard]] std::u16string DecodeWindows1252(std::string_view text);

/// Windows-1252 of a text. What it lacks becomes a question mark, one for a surrogate pair.
[[nodiscard]] std::string EncodeWindows1252(std::u16string_view text);

}  // namespace platform
