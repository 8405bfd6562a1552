#include "platform/spooler/ports.h"

#include <array>
#include <initializer_list>
#include <string>

#include "platform/net/host_names.h"
#include "platform/spooler/print_keys.h"
#include "platform/text/text_encoding.h"

namespace platform::spooler {
namespace {

constexpr ULONG kUnknownAddress = 0xFFFFFFFF;

constexpr LPCWSTR kAddressValue = u"IPAddress";
constexpr LPCWSTR kHostNameValue = u"HostName";
constexpr LPCWSTR kServerValue = u"Server Name";

struct PortMonitor {
    LPCWSTR name;
    std::array<LPCWSTR, 2> hostValues;  // in the order in which they count; null: none
};

constexpr PortMonitor kStandardMonitor = {u"Standard TCP/IP Port", {kAddressValue, kHostNameValue}};
constexpr PortMonitor kLprMonitor = {u"LPR Port", {kServerValue}};
constexpr PortMonitor kRegalMonitor = {u"Regal Port+", {kAddressValue}};
constexpr auto kMonitors = std::to_array({kStandardMonitor, kLprMonitor, kRegalMonitor});

struct HostSetting {
    LPCWSTR value;
    std::u16string_view host;
};

std::u16string PortPath(const PortMonitor& monitor, std::u16string_view port) {
    const std::u16string ports = SubKeyPath(SubKeyPath(kMonitorsPath, monitor.name), u"Ports");
    return SubKeyPath(ports, port);
}

DWORD AddPort(const PortMonitor& monitor, std::u16string_view name,
              std::initializer_list<HostSetting> settings) {
    if (!IsKeyName(name) || name.find(u',') != name.npos) return ERROR_INVALID_PARAMETER;
    return ChangeAtOnce([&] {
        PrintKey key;
        DWORD error = key.Create(PortPath(monitor, name));
        for (const auto& [value, host] : settings) {
            if (error == ERROR_SUCCESS) error = key.SetText(value, std::u16string(host));
        }
        return error;
    });
}

ULONG AddressOfHost(const std::u16string& host) {
    const std::string name = Utf8(host);
    if (const auto address = net::ParseAddress(name)) return *address;
    const auto addresses = net::LookUpHost(name);
    return addresses.empty() ? kUnknownAddress : addresses.front();
}

}  // namespace

DWORD AddStandardTcpIpPort(std::u16string_view name, std::u16string_view ipAddress,
                           std::u16string_view hostName) {
    return AddPort(kStandardMonitor, name,
                   {{kAddressValue, ipAddress}, {kHostNameValue, hostName}});
}

DWORD AddLprPort(std::u16string_view name, std::u16string_view serverName) {
    return AddPort(kLprMonitor, name, {{kServerValue, serverName}});
}

DWORD AddRegalPort(std::u16string_view name, std::u16string_view ipAddress) {
    return AddPort(kRegalMonitor, name, {{kAddressValue, ipAddress}});
}

std::optional<ULONG> FindPortAddress(std::u16string_view portList) {
    const std::u16string_view port = portList.substr(0, portList.find(u','));
    if (!IsKeyName(port)) return std::nullopt;
    for (const PortMonitor& monitor : kMonitors) {
        PrintKey key;
        if (key.Open(PortPath(monitor, port)) != ERROR_SUCCESS) continue;
        for (const LPCWSTR value : monitor.hostValues) {
            if (value == nullptr) continue;
            const std::u16string host = key.Text(value);
            if (!host.empty()) return AddressOfHost(host);
        }
    }
    return std::nullopt;
}

}  // namespace platform::spooler
