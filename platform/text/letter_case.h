/// Capital and small letters without regard to language, WCHAR by WCHAR: lengths stay.
#pragma once

#include <string>
#include <string_view>

namespace platform {

/// As names are kept: with the capitals of the platform's own table.
[[nodiscard]] std::u16string Uppercase(std::u16string_view text);
[[nodiscard]] std::u16string Lowercase(std::u16string_view text);

/// Whether two texts have the same capitals: how names of files, keys, values and printers compare.
[[nodiscard]] bool EqualIgnoringUnicodeCase(std::u16string_view left, std::u16string_view right);

}  // namespace platform
