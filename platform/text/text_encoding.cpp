#include "platform/text/text_encoding.h"

#include <unicode/unistr.h>
#include <unicode/utf16.h>
#include <unicode/utf8.h>

#include <algorithm>
#include <array>
#include <cstdint>

namespace platform {
namespace {

// Windows-1252 from 0x80 to 0x9F; the five codes it leaves open stand for themselves.
constexpr auto kWindows1252 = std::to_array<char16_t>(
    {0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
     0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
     0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178});

UChar32 TakeCodePoint(std::u16string_view text, std::size_t& at) {
    UChar32 character;
    U16_NEXT(text.data(), at, text.size(), character);
    return character;
}

bool IsSurrogate(std::string_view bytes) {
    return bytes.size() >= 3 && bytes[0] == '\xED' && (bytes[1] & 0xE0) == 0xA0 &&
           (bytes[2] & 0xC0) == 0x80;
}

char Windows1252Byte(UChar32 character) {
    if (character < 0x80 || (character >= 0xA0 && character <= 0xFF)) {
        return static_cast<char>(character);
    }
    const auto found = std::ranges::find(kWindows1252, character);
    return found == kWindows1252.end() ? '?'
                                       : static_cast<char>(0x80 + (found - kWindows1252.begin()));
}

}  // namespace

std::string Utf8(std::u16string_view text) {
    std::string utf8;
    return icu::UnicodeString(false, text.data(), static_cast<int>(text.size())).toUTF8String(utf8);
}

std::u16string Utf16(std::string_view text) {
    const auto utf16 = icu::UnicodeString::fromUTF8({text.data(), static_cast<int>(text.size())});
    return {utf16.getBuffer(), static_cast<std::size_t>(utf16.length())};
}

// ICU writes no surrogates as UTF-8 but by its unchecked macro, and reads none back at all.
std::string ExactUtf8(std::u16string_view text) {
    std::string out;
    for (std::size_t at = 0; at < text.size();) {
        std::array<char, U8_MAX_LENGTH> bytes;
        std::size_t length = 0;
        const auto character = static_cast<std::uint32_t>(TakeCodePoint(text, at));
        U8_APPEND_UNSAFE(bytes, length, character);
        out.append(bytes.data(), length);
    }
    return out;
}

std::u16string ExactUtf16(std::string_view text) {
    std::u16string out;
    for (std::size_t begin = 0, at = 0; at <= text.size(); ++at) {
        const bool isSurrogate = IsSurrogate(text.substr(at));
        if (!isSurrogate && at < text.size()) continue;
        out += Utf16(text.substr(begin, at - begin));
        if (isSurrogate) {
            out +=
                static_cast<char16_t>(0xD000 | (text[at + 1] & 0x3F) << 6 | (text[at + 2] & 0x3F));
        }
        begin = at + 3;
    }
    return out;
}

std::u16string DecodeWindows1252(std::string_view text) {
    std::u16string out(text.size(), 0);
    std::ranges::transform(text, out.begin(), [](char c) {
        const auto byte = static_cast<unsigned char>(c);
        return byte >= 0x80 && byte < 0xA0 ? kWindows1252[byte - 0x80] : char16_t{byte};
    });
    return out;
}

std::string EncodeWindows1252(std::u16string_view text) {
    std::string out;
    for (std::size_t at = 0; at < text.size();) out += Windows1252Byte(TakeCodePoint(text, at));
    return out;
}

}  // namespace platform
