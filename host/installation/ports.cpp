#include "host/installation/ports.h"

#include <windows.h>

#include <algorithm>
#include <array>
#include <optional>

#include "host/errors/failure.h"
#include "host/errors/suggestions.h"
#include "platform/spooler/ports.h"
#include "platform/text/text_encoding.h"

namespace host {
namespace {

// Numbers with dots are an address, anything else a host's name.
DWORD AddStandardPort(std::u16string_view name, std::u16string_view host) {
    const bool isAddress = host.find_first_not_of(u"0123456789.") == std::u16string::npos;
    return isAddress ? platform::spooler::AddStandardTcpIpPort(name, host, u"")
                     : platform::spooler::AddStandardTcpIpPort(name, u"", host);
}

struct KindRow {
    const char* name;
    PortKind kind;
    std::string_view prefix;  ///< of the names that tell the kind; empty: none does
    DWORD (*add)(std::u16string_view name, std::u16string_view host);  ///< null: no monitor
};

constexpr auto kKinds = std::to_array<KindRow>({
    {"tcpip", PortKind::Standard, "IP_", AddStandardPort},
    {"lpr", PortKind::Lpr, "", platform::spooler::AddLprPort},
    {"regal", PortKind::Regal, "REGAL_", platform::spooler::AddRegalPort},
    {"direct", PortKind::Direct, "", nullptr},
});

bool IsDirectName(const std::string& name) {
    return name.starts_with("\\\\") || name.starts_with("http://") || name.ends_with(':');
}

// What the name alone says: the kind, and the host after the prefix or before the queue.
PortSpec ReadName(const std::string& name) {
    for (const KindRow& row : kKinds) {
        if (!row.prefix.empty() && name.starts_with(row.prefix)) {
            return {name, row.kind, name.substr(row.prefix.size())};
        }
    }
    const std::size_t colon = name.find(':');
    if (!IsDirectName(name) && colon != std::string::npos && colon > 0) {
        return {name, PortKind::Lpr, name.substr(0, colon)};
    }
    return {name, PortKind::Direct, ""};
}

bool EndsWithIgnoringCase(std::string_view text, std::string_view end) {
    return text.size() > end.size() &&
           EqualIgnoringAsciiCase(text.substr(text.size() - end.size()), end);
}

bool IsUsbPort(std::string_view name) {
    return name.size() >= 6 && name.starts_with("USB") &&
           name.substr(3, 3).find_first_not_of("0123456789") == std::string_view::npos;
}

// The host in the name of a share or an internet port that the plug-in connects to by itself.
std::optional<std::string_view> DirectHost(std::string_view name) {
    constexpr std::string_view kInternet = "http://";
    if (EndsWithIgnoringCase(name, "SMB_PRI1")) {
        name.remove_prefix(std::min(name.find_first_not_of('\\'), name.size()));
        return name.substr(0, name.find('\\'));
    }
    const bool isInternet =
        EqualIgnoringAsciiCase(name.substr(0, kInternet.size()), kInternet) &&
        (EndsWithIgnoringCase(name, "/ipp") || EndsWithIgnoringCase(name, "/ipp.cgi"));
    if (!isInternet) return std::nullopt;
    name.remove_prefix(kInternet.size());
    return name.substr(0, name.find_first_of("/:"));
}

bool IsLoopback(std::string_view host) {
    const bool isAddress = host.find_first_not_of("0123456789.") == std::string_view::npos;
    return !isAddress || host.starts_with("127.");
}

// Of an address in network byte order; one of a host that is not known is none.
bool IsLoopback(ULONG address) {
    return (address & 0xFF) == 127;
}

constexpr const char* kElsewhere = "its address is not one of 127.0.0.0/8";

}  // namespace

std::string WhyNeverAsked(const std::string& portName, bool bidirectional) {
    if (const auto host = DirectHost(portName)) return IsLoopback(*host) ? "" : kElsewhere;
    if (!IsUsbPort(portName)) {
        const auto address = platform::spooler::FindPortAddress(platform::Utf16(portName));
        if (!address) return "its port is of no kind that is asked";
        if (!IsLoopback(*address)) return kElsewhere;
    }
    return bidirectional ? "" : "its port is asked with --bidi on only";
}

PortSpec ParsePort(const std::string& name, const std::string& kind, const std::string& address) {
    if (name.empty() || Escaped(name) != name) {
        throw UsageFailure(Quoted(name) + " is no name for a port");
    }
    PortSpec port = ReadName(name);
    if (!kind.empty()) port.kind = RowNamed(kKinds, "kind of port", kind).kind;
    // An address makes a port of unknown kind a standard one.
    if (kind.empty() && !address.empty() && port.kind == PortKind::Direct) {
        port.kind = PortKind::Standard;
    }
    if (!address.empty()) port.host = address;
    if (port.kind != PortKind::Direct && port.host.empty()) {
        throw UsageFailure("port " + Quoted(name) + " needs --address");
    }
    return port;
}

void RegisterPort(const PortSpec& port) {
    const auto* row = std::ranges::find(kKinds, port.kind, &KindRow::kind);
    if (row->add == nullptr) return;
    const DWORD error = row->add(platform::Utf16(port.name), platform::Utf16(port.host));
    if (error != ERROR_SUCCESS) FailWith("port " + Quoted(port.name) + " cannot be added", error);
}

}  // namespace host
