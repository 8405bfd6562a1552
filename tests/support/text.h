/// Texts of the platform in tests.
#pragma once

#include <windows.h>

#include <algorithm>
#include <string>
#include <string_view>

namespace tests {

using Text = std::basic_string<WCHAR>;

/// Text as 8-bit characters for comparisons and readable failures; anything outside ASCII becomes
/// '?'.
inline std::string Narrow(std::basic_string_view<WCHAR> text) {
    std::string narrow(text.size(), '?');
    std::transform(text.begin(), text.end(), narrow.begin(), [](WCHAR character) {
        return character < 0x80 ? static_cast<char>(character) : '?';
    });
    return narrow;
}

/// ASCII text in the platform's characters.
inline Text Wide(std::string_view text) {
    return {text.begin(), text.end()};
}

}  // namespace tests
