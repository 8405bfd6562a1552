#include "host/installation/ports.h"

#include <windows.h>

#include <array>

#include "host/errors/failure.h"
#include "host/errors/suggestions.h"
#include "platform/spooler/ports.h"
#include "platform/text/text_encoding.h"

namespace host {
namespace {

struct KindName {
    const char* name;
    PortForm form;
};

constexpr std::array kKinds = {
    KindName{"tcpip", PortForm::Standard},
    KindName{"lpr", PortForm::Lpr},
    KindName{"regal", PortForm::Regal},
    KindName{"direct", PortForm::Direct},
};

struct Prefix {
    const char* text;
    PortForm form;
};

constexpr std::array kPrefixes = {
    Prefix{"IP_", PortForm::Standard},
    Prefix{"REGAL_", PortForm::Regal},
};

PortForm ParseKind(const std::string& kind) {
    std::vector<std::string> known;
    for (const KindName& entry : kKinds) {
        if (EqualIgnoringCase(kind, entry.name)) return entry.form;
        known.emplace_back(entry.name);
    }
    throw UsageFailure(UnknownName("kind of port", kind, known));
}

bool IsDirectName(const std::string& name) {
    return name.starts_with("\\\\") || name.starts_with("http://") || name.ends_with(':');
}

// What the name alone says: the kind, and the host after the prefix or before the queue.
PortSpec ReadName(const std::string& name) {
    for (const Prefix& prefix : kPrefixes) {
        const std::string text = prefix.text;
        if (name.starts_with(text)) return {name, prefix.form, name.substr(text.size())};
    }
    const std::size_t colon = name.find(':');
    if (!IsDirectName(name) && colon != std::string::npos && colon > 0) {
        return {name, PortForm::Lpr, name.substr(0, colon)};
    }
    return {name, PortForm::Direct, ""};
}

// Numbers with dots are an address, anything else a host's name.
bool IsAddress(const std::string& host) {
    return host.find_first_not_of("0123456789.") == std::string::npos;
}

DWORD AddToMonitor(const PortSpec& port) {
    const std::u16string name = platform::Utf16(port.name);
    const std::u16string host = platform::Utf16(port.host);
    switch (port.form) {
        case PortForm::Standard:
            return IsAddress(port.host) ? platform::spooler::AddStandardTcpIpPort(name, host, u"")
                                        : platform::spooler::AddStandardTcpIpPort(name, u"", host);
        case PortForm::Lpr:
            return platform::spooler::AddLprPort(name, host);
        case PortForm::Regal:
            return platform::spooler::AddRegalPort(name, host);
        case PortForm::Direct:
            break;
    }
    return ERROR_SUCCESS;
}

}  // namespace

PortSpec ParsePort(const std::string& name, const std::string& kind, const std::string& address) {
    PortSpec port = ReadName(name);
    if (!kind.empty()) port.form = ParseKind(kind);
    // An address makes a port of unknown kind a standard one.
    if (kind.empty() && !address.empty() && port.form == PortForm::Direct) {
        port.form = PortForm::Standard;
    }
    if (!address.empty()) port.host = address;
    if (port.form != PortForm::Direct && port.host.empty()) {
        throw UsageFailure("port \"" + name + "\" needs --address");
    }
    return port;
}

void RegisterPort(const PortSpec& port) {
    const DWORD error = AddToMonitor(port);
    if (error != ERROR_SUCCESS) FailWith("port \"" + port.name + "\" cannot be added", error);
}

}  // namespace host
