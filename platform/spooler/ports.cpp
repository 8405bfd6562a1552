#include "platform/spooler/ports.h"

#include <array>
#include <string>

#include "platform/net/host_names.h"
#include "platform/spooler/print_keys.h"
#include "platform/text/text_encoding.h"

namespace platform::spooler {
namespace {

constexpr ULONG kUnknownAddress = 0xFFFFFFFF;

struct PortMonitor {
    const char16_t* name;
    std::array<const char16_t*, 2> hostValues;  // in the order in which they count; null: none
};

constexpr PortMonitor kStandardMonitor = {u"Standard TCP/IP Port", {u"IPAddress", u"HostName"}};
constexpr PortMonitor kLprMonitor = {u"LPR Port", {u"Server Name", nullptr}};
constexpr PortMonitor kRegalMonitor = {u"Regal Port+", {u"IPAddress", nullptr}};
constexpr std::array<PortMonitor, 3> kMonitors = {kStandardMonitor, kLprMonitor, kRegalMonitor};

std::u16string PortPath(const PortMonitor& monitor, std::u16string_view port) {
    const std::u16string ports = SubKeyPath(SubKeyPath(kMonitorsPath, monitor.name), u"Ports");
    return SubKeyPath(ports, port);
}

DWORD AddPort(const PortMonitor& monitor, std::u16string_view name,
              const std::array<std::u16string_view, 2>& hosts) {
    if (!IsKeyName(name) || name.find(u',') != name.npos) return ERROR_INVALID_PARAMETER;
    PrintKey key;
    DWORD error = key.Create(PortPath(monitor, name));
    for (std::size_t i = 0; i < hosts.size(); ++i)
        if (error == ERROR_SUCCESS && monitor.hostValues[i])
            error = key.SetText(monitor.hostValues[i], std::u16string(hosts[i]));
    return error;
}

ULONG ResolveHost(const std::u16string& host) {
    const std::string name = Utf8(host);
    if (const auto address = net::ParseAddress(name)) return *address;
    const auto addresses = net::LookUpHost(name);
    return addresses.empty() ? kUnknownAddress : addresses.front();
}

}  // namespace

DWORD AddStandardTcpIpPort(std::u16string_view name, std::u16string_view ipAddress,
                           std::u16string_view hostName) {
    return AddPort(kStandardMonitor, name, {ipAddress, hostName});
}

DWORD AddLprPort(std::u16string_view name, std::u16string_view serverName) {
    return AddPort(kLprMonitor, name, {serverName});
}

DWORD AddRegalPort(std::u16string_view name, std::u16string_view ipAddress) {
    return AddPort(kRegalMonitor, name, {ipAddress});
}

DWORD RemovePort(std::u16string_view name) {
    if (!IsKeyName(name)) return ERROR_UNKNOWN_PORT;
    DWORD result = ERROR_UNKNOWN_PORT;
    for (const PortMonitor& monitor : kMonitors) {
        const DWORD error = RemoveKey(PortPath(monitor, name));
        if (error == ERROR_FILE_NOT_FOUND) continue;
        if (error != ERROR_SUCCESS) return error;
        result = ERROR_SUCCESS;
    }
    return result;
}

std::optional<ULONG> FindPortAddress(std::u16string_view portList) {
    const std::u16string_view port = portList.substr(0, portList.find(u','));
    if (!IsKeyName(port)) return std::nullopt;
    for (const PortMonitor& monitor : kMonitors) {
        PrintKey key;
        if (key.Open(PortPath(monitor, port)) != ERROR_SUCCESS) continue;
        for (const char16_t* value : monitor.hostValues) {
            if (!value) continue;
            const std::u16string host = key.Text(value);
            if (!host.empty()) return ResolveHost(host);
        }
    }
    return std::nullopt;
}

}  // namespace platform::spooler
