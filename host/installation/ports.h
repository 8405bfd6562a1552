/// Ports by their names, and what has to be registered for them.
#pragma once

#include <string>

namespace host {

enum class PortKind {
    Standard,  ///< "IP_ADDRESS", or any name with an address: a standard TCP/IP port
    Lpr,       ///< "HOST:QUEUE", or any name with a server
    Regal,     ///< "REGAL_ADDRESS", or any name with an address
    Direct,    ///< shares, internet printing, USB, parallel ports, files: the name says all
};

struct PortSpec {
    std::string name;
    PortKind kind = PortKind::Direct;
    std::string host;  ///< address or name of the host; empty for direct ports
};

/// Understands a port as given on the command line. Throws `UsageFailure` when the address is
/// missing or the kind is unknown.
/// \param kind  "tcpip", "lpr", "regal" or "direct"; empty: the name tells.
/// \param address  empty: the name tells.
[[nodiscard]] PortSpec ParsePort(const std::string& name, const std::string& kind = "",
                                 const std::string& address = "");

/// Why the plug-in never asks the printer behind a port, for a person; empty when it does. Shares,
/// internet ports and registered ports of an address are asked over the network; others only over
/// bidirectional communication.
[[nodiscard]] std::string WhyNeverAsked(const std::string& portName, bool bidirectional);

/// Registers the port with its monitor.
void RegisterPort(const PortSpec& port);

}  // namespace host
