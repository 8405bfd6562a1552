#include <winbase.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdarg>
#include <cstdint>
#include <string>
#include <string_view>

#include "platform/text/letter_case.h"
#include "platform/text/text_encoding.h"

namespace {

constexpr std::size_t kCapacity = 1024;  // characters with terminator, as the platform promises

enum class Size { kPlain, kShort, kLong, kLongest };

// Takes what stands before a conversion's letter.
Size TakeSize(LPCWSTR& format) {
    const std::u16string_view rest = format;
    if (rest.starts_with(u"I64")) return format += 3, Size::kLongest;
    if (rest.starts_with(u'h')) return ++format, Size::kShort;
    if (rest.starts_with(u'l')) return ++format, Size::kLong;
    return Size::kPlain;
}

template <typename Number>
std::u16string Written(Number number, int base = 10) {
    std::array<char, 24> digits;
    const auto [end, error] = std::to_chars(digits.begin(), digits.end(), number, base);
    return {digits.begin(), end};
}

std::u16string WrittenHexadecimal(std::uint64_t number, bool capitals) {
    const std::u16string digits = Written(number, 16);
    return capitals ? platform::Uppercase(digits) : digits;
}

std::u16string Address(const void* address) {
    constexpr std::size_t kDigits = 16;
    const std::u16string digits =
        WrittenHexadecimal(reinterpret_cast<std::uintptr_t>(address), true);
    return std::u16string(kDigits - digits.size(), u'0') + digits;
}

// One conversion, with its argument taken; the letter itself when it is none.
std::u16string Convert(char16_t letter, Size size, va_list& arguments) {
    const bool isLongest = size == Size::kLongest;
    const bool isNarrow = size == Size::kShort;
    switch (letter) {
        case u'd':
        case u'i':
            return isLongest ? Written(va_arg(arguments, std::int64_t))
                             : Written(va_arg(arguments, INT));
        case u'u':
            return isLongest ? Written(va_arg(arguments, std::uint64_t))
                             : Written(va_arg(arguments, UINT));
        case u'x':
        case u'X':
            return WrittenHexadecimal(
                isLongest ? va_arg(arguments, std::uint64_t) : va_arg(arguments, UINT),
                letter == u'X');
        case u'p':
            return Address(va_arg(arguments, void*));
        case u's':
            if (!isNarrow) return va_arg(arguments, LPCWSTR);
            [[fallthrough]];
        case u'S':
            return platform::DecodeWindows1252(va_arg(arguments, LPCSTR));
        case u'c':
            if (!isNarrow) return {static_cast<WCHAR>(va_arg(arguments, int))};
            [[fallthrough]];
        case u'C':
            return platform::DecodeWindows1252(
                std::string(1, static_cast<CHAR>(va_arg(arguments, int))));
        default:
            return {letter};
    }
}

}  // namespace

int wsprintfW(LPWSTR text, LPCWSTR format, ...) {
    std::u16string out;
    va_list arguments;
    va_start(arguments, format);
    for (; *format != 0 && out.size() < kCapacity; ++format) {
        if (*format != u'%') {
            out += *format;
            continue;
        }
        const Size size = TakeSize(++format);
        if (*format == 0) break;
        out += Convert(*format, size, arguments);
    }
    va_end(arguments);
    out.resize(std::min(out.size(), kCapacity - 1));
    *std::ranges::copy(out, text).out = 0;
    return static_cast<int>(out.size());
}
