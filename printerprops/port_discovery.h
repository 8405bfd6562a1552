/// How a printer is reached: its port's kind and the network host behind it.
#pragma once

#include <windows.h>

#include <winsock.h>

namespace oemui {

/// What kind of port a printer hangs on. The value 1 is not used.
enum PortKind : UINT32 {
    PortKindNone = 0,   ///< not recognised, or no host found
    PortKindUsb = 2,    ///< "USB" and three digits
    PortKindTcpIp = 3,  ///< the platform's standard TCP/IP monitor, or the family's own
    PortKindLpr = 4,    ///< the LPR monitor
    PortKindShare = 5,  ///< a share path that ends in "SMB_PRI1"
    PortKindIpp = 6,    ///< "http://host[:port]/ipp" or ".../ipp.cgi"
    PortKindRegal = 7,  ///< the maker's "Regal Port+" monitor
};

/// The result of a discovery and, afterwards, the state of the connection made over it.
struct PrinterLink {
    UINT32 Found;         ///< 1 when a host was found and resolved, else 0
    sockaddr_in Address;  ///< the host; its port is set when a connection is opened
    SOCKET Socket;  ///< meaningful while a connection is open; INVALID_SOCKET when there is none
    PortKind Kind;
    UINT32 OpenCount;  ///< nested opens of the connection
};
static_assert(sizeof(PrinterLink) == 40 && offsetof(PrinterLink, Address) == 4);
static_assert(offsetof(PrinterLink, Socket) == 24 && offsetof(PrinterLink, Kind) == 32);

/// The families of the platform; they keep their port monitors in different places.
enum class PlatformFamily { kNeither, kNt, kConsumer };

/// Whether the plug-in talks to the printer itself, over a connection of its own.
constexpr bool IsDirectKind(PortKind kind) {
    return kind == PortKindShare || kind == PortKindIpp;
}

/// Whether a network host stands behind the port.
constexpr bool IsNetworkKind(PortKind kind) {
    return kind >= PortKindTcpIp && kind <= PortKindRegal;
}

/// Finds out how a printer is reached, and whether it can be asked for its configuration: over a
/// share or internet port always, over any other port only with bidirectional communication on.
/// \param printer  an open printer handle with PRINTER_ACCESS_USE.
/// \param link     replaced whatever the outcome; all zero when the printer tells nothing.
/// Blocks while a host name is looked up. Any thread.
[[nodiscard]] bool DiscoverPrinterPort(HANDLE printer, PrinterLink* link);

/// Classifies a port and resolves the host behind it into `Kind`, `Found` and `Address`.
/// \param portName  cut at its first comma in place: of pooled ports only the first counts.
void ClassifyPort(LPWSTR portName, PrinterLink* link);

/// The same for a given family; neither family has a place for the standard monitors.
void ClassifyPort(LPWSTR portName, PlatformFamily family, PrinterLink* link);

/// The family of a version: platform id 2 from version 4 on, or platform id 1 with minor version 0
/// or from 10 on.
PlatformFamily FamilyOf(DWORD platformId, DWORD majorVersion, DWORD minorVersion);

/// The version that the platform reports of itself; all zero when it reports none.
OSVERSIONINFOW PlatformVersion();

/// Looks a port up among the ports of a monitor, by its exact name, and resolves the host that its
/// settings name into the link's address.
/// \param portsKey       key of the monitor's ports below HKEY_LOCAL_MACHINE. The path of a port's
///                       own key has to fit 263 characters.
/// \param valueName      the value that holds the host: text of at most 260 bytes.
/// \param fallbackValue  the value to take when the first one does not resolve, or null.
[[nodiscard]] bool FindPortInMonitor(LPCWSTR portName, LPCWSTR portsKey, LPCWSTR valueName,
                                     LPCWSTR fallbackValue, PrinterLink* link);

/// Resolves a host name, at most 259 bytes in the narrow character set. A name that does not begin
/// with a letter is taken as a dotted address as it comes, all ones when it is none.
/// \param address  its family is IPv4 afterwards, also when the name is not found; the port stays.
[[nodiscard]] bool ResolveHost(LPCWSTR hostName, sockaddr_in* address);

}  // namespace oemui
