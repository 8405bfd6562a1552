#include "platform/text/text_encoding.h"

#include <unicode/uchar.h>
#include <unicode/utf16.h>
#include <unicode/utf8.h>

#include <algorithm>
#include <iterator>

namespace platform {
namespace {

// Windows-1252 from 0x80 to 0x9F; the five codes it leaves open stand for themselves.
constexpr char16_t kWindows1252[] = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};
constexpr UChar32 kReplacement = 0xFFFD;

UChar32 NextCodePoint(std::u16string_view text, std::size_t& at) {
    UChar32 character;
    U16_NEXT(text.data(), at, text.size(), character);
    return character;
}

// Three bytes for everything from U+0800 to U+FFFF, surrogates included.
void AppendUtf8(std::string& out, UChar32 character) {
    const auto append = [&out](UChar32 byte) { out += static_cast<char>(byte); };
    if (character < 0x80) return append(character);
    if (character < 0x800) {
        append(0xC0 | (character >> 6));
    } else if (character < 0x10000) {
        append(0xE0 | (character >> 12));
        append(0x80 | ((character >> 6) & 0x3F));
    } else {
        append(0xF0 | (character >> 18));
        append(0x80 | ((character >> 12) & 0x3F));
        append(0x80 | ((character >> 6) & 0x3F));
    }
    append(0x80 | (character & 0x3F));
}

void AppendUtf16(std::u16string& out, UChar32 character) {
    if (character < 0x10000) {
        out += static_cast<char16_t>(character);
    } else {
        out += static_cast<char16_t>(U16_LEAD(character));
        out += static_cast<char16_t>(U16_TRAIL(character));
    }
}

// Below 0 for what is not UTF-8, which is stepped over as far as it cannot begin a character.
UChar32 NextCodePoint(std::string_view text, std::size_t& at) {
    UChar32 character;
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wconversion"  // inside ICU's macro
    U8_NEXT(text.data(), at, text.size(), character);
#pragma GCC diagnostic pop
    return character;
}

// A surrogate in three bytes, which only the exact form has.
bool TakeSurrogate(std::string_view text, std::size_t& at, char16_t* surrogate) {
    if (text.size() - at < 3) return false;
    const auto byte = [&](std::size_t i) { return static_cast<unsigned char>(text[at + i]); };
    if (byte(0) != 0xED || byte(1) < 0xA0 || byte(1) > 0xBF || (byte(2) & 0xC0) != 0x80) {
        return false;
    }
    *surrogate = static_cast<char16_t>(0xD000 | ((byte(1) & 0x3F) << 6) | (byte(2) & 0x3F));
    at += 3;
    return true;
}

int Windows1252Byte(UChar32 character) {
    if (character < 0x80 || (character >= 0xA0 && character <= 0xFF)) return character;
    const auto* found = std::find(std::begin(kWindows1252), std::end(kWindows1252), character);
    if (found == std::end(kWindows1252)) return -1;
    return 0x80 + static_cast<int>(found - std::begin(kWindows1252));
}

}  // namespace

std::string ExactUtf8(std::u16string_view text) {
    std::string out;
    out.reserve(text.size());
    for (std::size_t at = 0; at < text.size();) AppendUtf8(out, NextCodePoint(text, at));
    return out;
}

std::u16string ExactUtf16(std::string_view text) {
    std::u16string out;
    out.reserve(text.size());
    for (std::size_t at = 0; at < text.size();) {
        char16_t surrogate;
        if (TakeSurrogate(text, at, &surrogate)) {
            out += surrogate;
            continue;
        }
        const UChar32 character = NextCodePoint(text, at);
        AppendUtf16(out, character < 0 ? kReplacement : character);
    }
    return out;
}

std::string Utf8(std::u16string_view text) {
    std::string out;
    out.reserve(text.size());
    for (std::size_t at = 0; at < text.size();) {
        const UChar32 character = NextCodePoint(text, at);
        AppendUtf8(out, U_IS_SURROGATE(character) ? kReplacement : character);
    }
    return out;
}

std::u16string Utf16(std::string_view text) {
    return DecodeUtf8(text, nullptr);
}

std::u16string DecodeUtf8(std::string_view text, bool* wellFormed) {
    std::u16string out;
    out.reserve(text.size());
    bool good = true;
    for (std::size_t at = 0; at < text.size();) {
        const UChar32 character = NextCodePoint(text, at);
        good = good && character >= 0;
        AppendUtf16(out, character < 0 ? kReplacement : character);
    }
    if (wellFormed != nullptr) *wellFormed = good;
    return out;
}

std::u16string DecodeWindows1252(std::string_view text) {
    std::u16string out(text.size(), 0);
    std::transform(text.begin(), text.end(), out.begin(), [](char c) {
        const auto byte = static_cast<unsigned char>(c);
        return byte >= 0x80 && byte < 0xA0 ? kWindows1252[byte - 0x80] : char16_t{byte};
    });
    return out;
}

std::string EncodeWindows1252(std::u16string_view text, char replacement, bool* replaced) {
    std::string out;
    out.reserve(text.size());
    *replaced = false;
    for (std::size_t at = 0; at < text.size();) {
        const int byte = Windows1252Byte(NextCodePoint(text, at));
        *replaced = *replaced || byte < 0;
        out += byte < 0 ? replacement : static_cast<char>(byte);
    }
    return out;
}

std::u16string Uppercase(std::u16string_view text) {
    std::u16string out;
    out.reserve(text.size());
    for (std::size_t at = 0; at < text.size();)
        AppendUtf16(out, u_toupper(NextCodePoint(text, at)));
    return out;
}

bool EqualIgnoringCase(std::u16string_view left, std::u16string_view right) {
    return left.size() == right.size() && Uppercase(left) == Uppercase(right);
}

}  // namespace platform
