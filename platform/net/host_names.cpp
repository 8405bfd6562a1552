#include "platform/net/host_names.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <fstream>
#include <sstream>
#include <string>

#include "platform/base/machine.h"
#include "platform/net/posix_sockets.h"

namespace platform::net {
namespace {

constexpr std::size_t kAddressParts = 4;
constexpr std::string_view kBlanks = " \t\r\n\v\f";
// A hosts file is read line by line up to this many bytes.
constexpr std::streamsize kHostsFileLimit = 1 << 20;

// One number of an address, with C's prefixes for octal and hexadecimal.
std::optional<ULONG> ParsePart(std::string_view text) {
    int base = 10;
    if (text.starts_with("0x") || text.starts_with("0X")) {
        base = 16;
        text.remove_prefix(2);
    } else if (text.size() > 1 && text.front() == '0') {
        base = 8;
        text.remove_prefix(1);
    }
    ULONG value = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value, base);
    if (error != std::errc() || end != text.data() + text.size()) return std::nullopt;
    return value;
}

ULONG NetworkOrder(ULONG value) {
    return __builtin_bswap32(value);
}

char LowerCase(char character) {
    return character >= 'A' && character <= 'Z' ? static_cast<char>(character + ('a' - 'A'))
                                                : character;
}

bool SameName(std::string_view left, std::string_view right) {
    return std::equal(left.begin(), left.end(), right.begin(), right.end(),
                      [](char a, char b) { return LowerCase(a) == LowerCase(b); });
}

std::string HostsFile() {
    const auto path = HostPath(u"C:\\Windows\\System32\\drivers\\etc\\hosts");
    std::ifstream file(path, std::ios::binary);
    std::string text(kHostsFileLimit, '\0');
    file.read(text.data(), kHostsFileLimit);
    text.resize(static_cast<std::size_t>(file.gcount()));
    return text;
}

// The address of a line "address name alias... # remark" when the name is among its names.
std::optional<ULONG> AddressOfLine(const std::string& line, std::string_view name) {
    std::istringstream words(line.substr(0, line.find('#')));
    std::string address;
    if (!(words >> address)) return std::nullopt;
    for (std::string word; words >> word;)
        if (SameName(word, name)) return ParseAddress(address);
    return std::nullopt;
}

}  // namespace

std::optional<ULONG> ParseAddress(std::string_view text) {
    text = text.substr(0, text.find('\0'));
    text = text.substr(0, text.find_first_of(kBlanks));
    std::array<ULONG, kAddressParts> parts = {};
    std::size_t count = 0;
    while (true) {
        const std::size_t dot = text.find('.');
        const auto part = ParsePart(text.substr(0, dot));
        if (!part || count == kAddressParts) return std::nullopt;
        parts[count++] = *part;
        if (dot == std::string_view::npos) break;
        text.remove_prefix(dot + 1);
    }
    ULONG address = 0;
    for (std::size_t i = 0; i + 1 < count; ++i) {
        if (parts[i] > 0xFF) return std::nullopt;
        address |= parts[i] << (24 - 8 * i);
    }
    const ULONG last = parts[count - 1];
    if (last > (0xFFFFFFFFu >> (8 * (count - 1)))) return std::nullopt;
    return NetworkOrder(address | last);
}

std::vector<ULONG> LookUpHost(std::string_view name) {
    std::vector<ULONG> addresses;
    if (name.empty()) return addresses;
    std::istringstream lines(HostsFile());
    for (std::string line; std::getline(lines, line);) {
        const auto address = AddressOfLine(line, name);
        if (address && IsLoopback(*address)) addresses.push_back(*address);
    }
    if (addresses.empty() && SameName(name, "localhost")) addresses = {NetworkOrder(0x7F000001)};
    return addresses;
}

}  // namespace platform::net
