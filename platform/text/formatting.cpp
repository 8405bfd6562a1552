#include <winbase.h>

#include <algorithm>
#include <cstdarg>
#include <string>
#include <string_view>

namespace {

constexpr std::size_t kCapacity = 1024;  // characters with terminator, as the platform promises

struct Directive {
    bool alignLeft = false;
    bool prefix = false;
    bool zeroFill = false;
    std::size_t width = 0;
    std::size_t precision = std::u16string_view::npos;
    char16_t conversion = 0;
};

// A number in a directive; larger ones than the buffer make no difference.
std::size_t TakeNumber(const char16_t*& format) {
    std::size_t number = 0;
    for (; *format >= u'0' && *format <= u'9'; ++format) {
        number = std::min(number * 10 + static_cast<std::size_t>(*format - u'0'), kCapacity);
    }
    return number;
}

// What follows a percent sign; sizes are read over, since all numbers are 32 bits wide here.
Directive TakeDirective(const char16_t*& format) {
    Directive directive;
    for (; *format == u'-' || *format == u'#' || *format == u'0'; ++format) {
        directive.alignLeft |= *format == u'-';
        directive.prefix |= *format == u'#';
        directive.zeroFill |= *format == u'0';
    }
    directive.width = TakeNumber(format);
    if (*format == u'.') directive.precision = TakeNumber(++format);
    if (*format == u'l' || *format == u'h') ++format;
    directive.conversion = *format;
    if (*format != 0) ++format;
    return directive;
}

std::u16string Digits(std::uint32_t number, unsigned base, bool capitals) {
    const char16_t* symbols = capitals ? u"0123456789ABCDEF" : u"0123456789abcdef";
    std::u16string digits;
    do {
        digits.insert(digits.begin(), symbols[number % base]);
        number /= base;
    } while (number != 0);
    return digits;
}

std::u16string Number(const Directive& directive, std::uint32_t value) {
    const bool isSigned = directive.conversion == u'd' || directive.conversion == u'i';
    const bool isHexadecimal = directive.conversion == u'x' || directive.conversion == u'X';
    const bool isNegative = isSigned && (value >> 31) != 0;
    std::u16string digits = Digits(isNegative ? 0u - value : value, isHexadecimal ? 16 : 10,
                                   directive.conversion == u'X');
    std::u16string lead = isNegative ? u"-" : u"";
    if (isHexadecimal && directive.prefix) lead = directive.conversion == u'X' ? u"0X" : u"0x";
    std::size_t wanted = directive.precision == std::u16string_view::npos ? 0 : directive.precision;
    if (directive.zeroFill && !directive.alignLeft && directive.width > lead.size()) {
        wanted = std::max(wanted, directive.width - lead.size());
    }
    if (digits.size() < wanted) digits.insert(0, wanted - digits.size(), u'0');
    return lead + digits;
}

std::u16string_view Text(const Directive& directive, const char16_t* text) {
    if (text == nullptr) return u"(null)";
    std::size_t length = 0;
    const std::size_t most = std::min(directive.precision, kCapacity);
    while (length < most && text[length] != 0) ++length;
    return {text, length};
}

void Append(std::u16string& out, const Directive& directive, std::u16string_view field) {
    const std::size_t fill = directive.width > field.size() ? directive.width - field.size() : 0;
    if (!directive.alignLeft) out.append(fill, u' ');
    out.append(field);
    if (directive.alignLeft) out.append(fill, u' ');
}

}  // namespace

int wsprintfW(LPWSTR text, LPCWSTR format, ...) {
    std::u16string out;
    va_list arguments;
    va_start(arguments, format);
    while (*format != 0 && out.size() < kCapacity) {
        if (*format != u'%') {
            out += *format++;
            continue;
        }
        const Directive directive = TakeDirective(++format);
        switch (directive.conversion) {
            case u's':
                Append(out, directive, Text(directive, va_arg(arguments, const char16_t*)));
                break;
            case u'c': {
                const auto character = static_cast<char16_t>(va_arg(arguments, int));
                Append(out, directive, {&character, 1});
                break;
            }
            case u'd':
            case u'i':
            case u'u':
            case u'x':
            case u'X':
                Append(out, directive, Number(directive, va_arg(arguments, std::uint32_t)));
                break;
            case 0:
                break;
            default:
                out += directive.conversion;
        }
    }
    va_end(arguments);
    out.resize(std::min(out.size(), kCapacity - 1));
    std::copy(out.begin(), out.end(), text);
    text[out.size()] = 0;
    return static_cast<int>(out.size());
}
