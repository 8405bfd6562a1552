/// Conversions between UTF-16 and the encodings of files, and case without regard to language.
#pragma once

#include <windef.h>

#include <string>
#include <string_view>

namespace platform {

/// UTF-8 of a UTF-16 text (lone surrogates become U+FFFD), and back.
std::string Utf8(std::u16string_view text);
std::u16string Utf16(std::string_view text);

/// UTF-8 that keeps lone surrogates, as three bytes each, so that every UTF-16 text comes back as
/// it was: for names in stores.
std::string ExactUtf8(std::u16string_view text);
std::u16string ExactUtf16(std::string_view text);

/// UTF-16 of a text in UTF-8. What is not UTF-8 becomes U+FFFD.
/// \param wellFormed  set to whether everything was; may be null.
std::u16string DecodeUtf8(std::string_view text, bool* wellFormed);

/// UTF-16 of a text in Windows-1252; every byte has a meaning.
std::u16string DecodeWindows1252(std::string_view text);

/// Windows-1252 of a text. What it lacks becomes the replacement, once for a surrogate pair.
/// \param replaced  set to whether the replacement was used.
std::string EncodeWindows1252(std::u16string_view text, char replacement, bool* replaced);

/// Capital letters, character by character; the length stays.
std::u16string Uppercase(std::u16string_view text);

bool EqualIgnoringCase(std::u16string_view left, std::u16string_view right);

}  // namespace platform
