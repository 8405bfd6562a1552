#include "platform/net/host_names.h"

#include <arpa/inet.h>

#include <algorithm>
#include <fstream>
#include <sstream>
#include <string>

#include "platform/base/paths.h"
#include "platform/net/posix_sockets.h"

namespace platform::net {
namespace {

// A hosts file is read line by line up to this many bytes.
constexpr std::streamsize kHostsFileLimit = 1 << 20;

char AsciiCapital(char character) {
    return character >= 'a' && character <= 'z' ? static_cast<char>(character - 'a' + 'A')
                                                : character;
}

bool EqualIgnoringAsciiCase(std::string_view left, std::string_view right) {
    return std::ranges::equal(left, right, {}, AsciiCapital, AsciiCapital);
}

std::string HostsFile() {
    // A folder or a device in its place is no file to read.
    const auto path = ExistingFile(u"C:\\Windows\\System32\\drivers\\etc\\hosts");
    if (path.empty()) return {};
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
    for (std::string word; words >> word;) {
        if (EqualIgnoringAsciiCase(word, name)) return ParseAddress(address);
    }
    return std::nullopt;
}

}  // namespace

std::optional<ULONG> ParseAddress(const std::string& text) {
    in_addr address;
    if (inet_aton(text.c_str(), &address) == 0) return std::nullopt;
    return address.s_addr;
}

std::vector<ULONG> LookUpHost(std::string_view name) {
    std::vector<ULONG> addresses;
    if (name.empty()) return addresses;
    std::istringstream lines(HostsFile());
    for (std::string line; std::getline(lines, line);) {
        const auto address = AddressOfLine(line, name);
        if (address && IsLoopback(*address)) addresses.push_back(*address);
    }
    if (addresses.empty() && EqualIgnoringAsciiCase(name, "localhost")) {
        addresses = {htonl(INADDR_LOOPBACK)};
    }
    return addresses;
}

}  // namespace platform::net
