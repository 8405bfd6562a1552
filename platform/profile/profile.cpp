// INI files: read anew with every call, since other programs write them too.

#include <winbase.h>
#include <winerror.h>

#include <algorithm>
#include <bit>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <optional>
#include <string>
#include <string_view>
#include <system_error>

#include "platform/base/fail.h"
#include "platform/base/paths.h"
#include "platform/faults/failure_points.h"
#include "platform/text/letter_case.h"
#include "platform/text/text_encoding.h"

using platform::Fail;

namespace {

using TextView = std::u16string_view;

bool IsBlank(char16_t character) {
    return character == u' ' || character == u'\t';
}

TextView Trimmed(TextView text) {
    while (!text.empty() && IsBlank(text.front())) text.remove_prefix(1);
    while (!text.empty() && IsBlank(text.back())) text.remove_suffix(1);
    return text;
}

std::u16string DecodeUtf16(std::string_view bytes, std::endian order) {
    std::u16string text(bytes.size() / 2, 0);
    for (std::size_t i = 0; i < text.size(); ++i) {
        const auto first = static_cast<unsigned char>(bytes[2 * i]);
        const auto second = static_cast<unsigned char>(bytes[2 * i + 1]);
        text[i] = static_cast<char16_t>(order == std::endian::big ? (first << 8) | second
                                                                  : (second << 8) | first);
    }
    return text;
}

// The byte-order mark tells the encoding; without one a file is in the system's code page.
std::u16string Decode(std::string_view bytes) {
    if (bytes.starts_with("\xFF\xFE")) return DecodeUtf16(bytes.substr(2), std::endian::little);
    if (bytes.starts_with("\xFE\xFF")) return DecodeUtf16(bytes.substr(2), std::endian::big);
    if (bytes.starts_with("\xEF\xBB\xBF")) return platform::Utf16(bytes.substr(3));
    return platform::DecodeWindows1252(bytes);
}

// The next line, trimmed, up to a terminator in it.
TextView TakeLine(TextView& text) {
    const std::size_t length = std::min(text.find_first_of(u"\r\n"), text.size());
    const TextView line = text.substr(0, length);
    text.remove_prefix(std::min(length + 1, text.size()));
    return Trimmed(line.substr(0, line.find(u'\0')));
}

std::optional<TextView> SectionName(TextView line) {
    if (!line.starts_with(u'[')) return {};
    const std::size_t close = line.rfind(u']');
    if (close == TextView::npos) return {};
    return Trimmed(line.substr(1, close - 1));
}

// The text of a key in the first section of the name; the first of several counts.
std::optional<TextView> FindValue(TextView file, TextView section, TextView key) {
    bool inSection = false;
    while (!file.empty()) {
        const TextView line = TakeLine(file);
        if (const auto name = SectionName(line)) {
            if (inSection) return {};
            inSection = platform::EqualIgnoringUnicodeCase(*name, section);
            continue;
        }
        const std::size_t equals = line.find(u'=');
        if (!inSection || line.starts_with(u';') || equals == TextView::npos) continue;
        if (platform::EqualIgnoringUnicodeCase(Trimmed(line.substr(0, equals)), key)) {
            return Trimmed(line.substr(equals + 1));
        }
    }
    return {};
}

// The names of the sections, each terminated.
std::u16string SectionNames(TextView file) {
    std::u16string names;
    while (!file.empty()) {
        if (const auto name = SectionName(TakeLine(file))) names.append(*name) += u'\0';
    }
    return names;
}

// The names of the keys of the first section of the name, each terminated.
std::optional<std::u16string> KeyNames(TextView file, TextView section) {
    std::optional<std::u16string> names;
    while (!file.empty()) {
        const TextView line = TakeLine(file);
        if (const auto name = SectionName(line)) {
            if (names) break;
            if (platform::EqualIgnoringUnicodeCase(*name, section)) names.emplace();
            continue;
        }
        const std::size_t equals = line.find(u'=');
        if (!names || line.starts_with(u';') || equals == TextView::npos) continue;
        names->append(Trimmed(line.substr(0, equals))) += u'\0';
    }
    return names;
}

TextView WithoutQuotes(TextView value) {
    const bool isQuoted = value.size() >= 2 && value.front() == value.back() &&
                          (value.front() == u'"' || value.front() == u'\'');
    return isQuoted ? value.substr(1, value.size() - 2) : value;
}

constexpr std::uintmax_t kLargestFile = 16 << 20;  // bytes

// The bytes of a file; nothing when there is none. A folder or a device is no file, nor is what is
// far larger than settings are.
std::optional<std::string> ReadWhole(const std::filesystem::path& name) {
    std::error_code error;
    if (!std::filesystem::is_regular_file(name, error)) return {};
    const std::uintmax_t size = std::filesystem::file_size(name, error);
    if (error || size > kLargestFile) return {};
    std::string bytes(size, '\0');
    std::ifstream file(name, std::ios::binary);
    if (!file) return {};
    file.read(bytes.data(), static_cast<std::streamsize>(size));
    bytes.resize(static_cast<std::size_t>(file.gcount()));
    return bytes;
}

using MaybeText = std::optional<std::u16string>;

// Without a key the names of keys, without a section those of sections.
DWORD LookUp(LPCWSTR section, LPCWSTR key, TextView fileName, MaybeText* found) {
    const auto bytes = ReadWhole(platform::NativePath(fileName));
    if (!bytes) return ERROR_FILE_NOT_FOUND;
    const std::u16string text = Decode(*bytes);
    if (section == nullptr) {
        *found = SectionNames(text);
    } else if (key == nullptr) {
        *found = KeyNames(text, Trimmed(section));
    } else if (const auto value = FindValue(text, Trimmed(section), Trimmed(key))) {
        *found = std::u16string(WithoutQuotes(*value));
    }
    return *found ? ERROR_SUCCESS : ERROR_FILE_NOT_FOUND;
}

// The value with its quotes removed, or names; nothing, with the last error, when it is missing.
MaybeText Read(const char* point, LPCWSTR section, LPCWSTR key, LPCWSTR fileName) {
    if (const auto error = platform::InjectedFailure(point)) {
        return Fail<MaybeText>(*error);
    }
    if (fileName == nullptr) return Fail<MaybeText>(ERROR_INVALID_PARAMETER);
    MaybeText value;
    const DWORD error = platform::Contained([&] { return LookUp(section, key, fileName, &value); });
    if (error != ERROR_SUCCESS) return Fail<MaybeText>(error);
    return value;
}

// Names that do not fit are cut, with a terminator more.
DWORD CopyNames(TextView names, LPWSTR buffer, DWORD size) {
    const bool fits = names.size() < size;
    if (!fits) names = names.substr(0, std::max<DWORD>(size, 2) - 2);
    LPWSTR end = std::copy(names.begin(), names.end(), buffer);
    *end = 0;
    if (!fits && size > 1) end[1] = 0;
    return static_cast<DWORD>(names.size());
}

// Decimal, or hexadecimal after "0x", in 32 bits that wrap; what follows the number is ignored.
std::uint32_t ParseNumber(TextView text) {
    text = Trimmed(text);
    const bool isNegative = text.starts_with(u'-');
    if (isNegative || text.starts_with(u'+')) text.remove_prefix(1);
    const bool isHexadecimal = text.starts_with(u"0x") || text.starts_with(u"0X");
    if (isHexadecimal) text.remove_prefix(2);
    const std::uint32_t base = isHexadecimal ? 16 : 10;
    std::uint32_t number = 0;
    for (const char16_t character : text) {
        constexpr TextView kDigits = u"0123456789abcdef";
        const std::size_t digit = kDigits.find(character >= u'A' && character <= u'F'
                                                   ? static_cast<char16_t>(character + 32)
                                                   : character);
        if (digit >= base) break;
        number = number * base + static_cast<std::uint32_t>(digit);
    }
    return isNegative ? 0u - number : number;
}

}  // namespace

DWORD WINAPI GetPrivateProfileStringW(LPCWSTR section, LPCWSTR key, LPCWSTR defaultText,
                                      LPWSTR value, DWORD size, LPCWSTR fileName) {
    if (value == nullptr || size == 0) return 0;
    const auto found = Read("GetPrivateProfileStringW", section, key, fileName);
    if (found && (section == nullptr || key == nullptr)) return CopyNames(*found, value, size);
    TextView text = defaultText == nullptr ? TextView{} : TextView(defaultText);
    while (!text.empty() && text.back() == u' ') text.remove_suffix(1);
    if (found) text = *found;
    text = text.substr(0, size - 1);
    *std::copy(text.begin(), text.end(), value) = 0;
    return static_cast<DWORD>(text.size());
}

UINT WINAPI GetPrivateProfileIntW(LPCWSTR section, LPCWSTR key, INT defaultNumber,
                                  LPCWSTR fileName) {
    if (section == nullptr || key == nullptr) return static_cast<UINT>(defaultNumber);
    const auto found = Read("GetPrivateProfileIntW", section, key, fileName);
    return !found || found->empty() ? static_cast<UINT>(defaultNumber) : ParseNumber(*found);
}
