/// The ports of the machine's port monitors and the addresses behind them.
#pragma once

#include <windef.h>

#include <optional>
#include <string_view>

namespace platform::spooler {

/// Adds a port of the "Standard TCP/IP Port" monitor, or replaces it.
/// \param name       the port's name, such as "IP_127.0.0.5": not empty, without backslash.
/// \param ipAddress  an IPv4 address with dots; empty when the port has a host's name instead.
/// \param hostName   a host's name; may be empty.
/// \return a result code; ERROR_INVALID_PARAMETER for a name that cannot be one.
[[nodiscard]] DWORD AddStandardTcpIpPort(std::u16string_view name, std::u16string_view ipAddress,
                                         std::u16string_view hostName);

/// Adds a port of the "LPR Port" monitor, or replaces it.
/// \param serverName  the host's name or address.
[[nodiscard]] DWORD AddLprPort(std::u16string_view name, std::u16string_view serverName);

/// Adds a port of the "Regal Port+" monitor, or replaces it.
[[nodiscard]] DWORD AddRegalPort(std::u16string_view name, std::u16string_view ipAddress);

/// The address (network byte order) that a monitor has for a port; 0xFFFFFFFF for a host that is
/// not known, nothing for a port without monitor, such as a USB port. \param portList  a printer's
/// ports; the first one counts.
[[nodiscard]] std::optional<ULONG> FindPortAddress(std::u16string_view portList);

}  // namespace platform::spooler
