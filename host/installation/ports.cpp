#include "host/installation/ports.h"

#include <windows.h>

#include <algorithm>
#include <array>

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

}  // namespace

PortSpec ParsePort(const std::string& name, const std::string& kind, const std::string& address) {
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
