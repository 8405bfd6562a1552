#include <winbase.h>

#include <algorithm>
#include <cstdarg>
#include <string>

namespace {

constexpr std::size_t kCapacity = 1024;  // characters with terminator, as the platform promises

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
        if (*++format == u'l') ++format;  // all numbers are 32 bits wide here
        if (*format == 0) break;
        if (*format == u's') {
            out += va_arg(arguments, const char16_t*);
        } else if (*format == u'd') {
            const std::string number = std::to_string(va_arg(arguments, int));
            out.append(number.begin(), number.end());
        } else {
            out += *format;
        }
    }
    va_end(arguments);
    out.resize(std::min(out.size(), kCapacity - 1));
    *std::ranges::copy(out, text).out = 0;
    return static_cast<int>(out.size());
}
