#include "printerprops/port_discovery.h"

#include "common/model_identity.h"
#include "common/spooler_records.h"
#include "common/text.h"
#include "common/unique_handle.h"
#include "printerprops/socket_library.h"

namespace oemui {
namespace {

/// Characters with terminator for a key's path and for a host taken from a port name, and for the
/// name of one key.
constexpr std::size_t kPathCapacity = 264;
constexpr std::size_t kKeyNameCapacity = 260;

/// Bytes with terminator for a host name in the narrow character set.
constexpr int kHostCapacity = 260;

/// More ports than a monitor has: the registry's answers alone never end a search.
constexpr DWORD kMostPorts = 65536;

/// The longest text that is taken from a port's settings, in characters.
constexpr std::size_t kSettingLength = 130;

constexpr TextView kMonitorsKey = TEXT("System\\CurrentControlSet\\Control\\Print\\Monitors\\");
constexpr TextView kShareSuffix = TEXT("SMB_PRI1");
constexpr TextView kIppPrefix = TEXT("http://");

/// Where a port monitor keeps the host of a port.
struct MonitorPlace {
    TextView Monitor;
    LPCWSTR ValueName;
    LPCWSTR FallbackValue;
    PortKind Kind;
};

constexpr MonitorPlace kStandardMonitor = {TEXT("Standard TCP/IP Port"), TEXT("IPAddress"),
                                           TEXT("HostName"), PortKindTcpIp};
constexpr MonitorPlace kLprMonitor = {TEXT("LPR Port"), TEXT("Server Name"), nullptr, PortKindLpr};
constexpr MonitorPlace kRegalMonitor = {TEXT("Regal Port+"), TEXT("IPAddress"), nullptr,
                                        PortKindRegal};

bool IsDigit(WCHAR character) {
    return character >= TEXT('0') && character <= TEXT('9');
}

bool IsUsbPort(TextView port) {
    return port.size() >= 6 && port.starts_with(TEXT("USB")) && IsDigit(port[3]) &&
           IsDigit(port[4]) && IsDigit(port[5]);
}

/// Classifies the port and answers whether anything can be reached over it.
bool ReachPort(LPWSTR port, PrinterLink* link) {
    if (IsUsbPort(port)) {
        link->Kind = PortKindUsb;
        return true;
    }
    ClassifyPort(port, link);
    return IsNetworkKind(link->Kind);
}

bool FindInPlace(LPCWSTR portName, const MonitorPlace& place, PrinterLink* link) {
    FixedText<kPathCapacity> portsKey;
    if (!portsKey.Join({kMonitorsKey, place.Monitor, TEXT("\\Ports")})) return false;
    if (!FindPortInMonitor(portName, portsKey.c_str(), place.ValueName, place.FallbackValue,
                           link)) {
        return false;
    }
    link->Found = 1;
    link->Kind = place.Kind;
    return true;
}

void FindInFamilyMonitors(LPCWSTR portName, PlatformFamily family, PrinterLink* link) {
    if (family == PlatformFamily::kNt) {
        FindInPlace(portName, kStandardMonitor, link);
        // A port that both monitors know belongs to this one.
        FindInPlace(portName, kLprMonitor, link);
    }
    if (family == PlatformFamily::kConsumer) {
        const MonitorPlace ownMonitor = {TextIn(Model().PortMonitor), TEXT("IPAddress"), nullptr,
                                         PortKindTcpIp};
        FindInPlace(portName, ownMonitor, link);
    }
}

void TakeHost(TextView host, PortKind kind, PrinterLink* link) {
    FixedText<kPathCapacity> hostName;
    if (!hostName.Join({host}) || !ResolveHost(hostName.c_str(), &link->Address)) return;
    link->Found = 1;
    link->Kind = kind;
}

void ClassifyShare(TextView port, PrinterLink* link) {
    if (port.size() <= kShareSuffix.size()) return;
    if (!EqualIgnoringAsciiCase(port.substr(port.size() - kShareSuffix.size()), kShareSuffix)) {
        return;
    }
    port.remove_prefix(std::min(port.find_first_not_of(TEXT('\\')), port.size()));
    TakeHost(port.substr(0, port.find(TEXT('\\'))), PortKindShare, link);
}

void ClassifyIpp(TextView port, PrinterLink* link) {
    if (port.size() <= kIppPrefix.size()) return;
    if (!EqualIgnoringAsciiCase(port.substr(0, kIppPrefix.size()), kIppPrefix)) return;
    port.remove_prefix(kIppPrefix.size());
    const TextView host = port.substr(0, port.find_first_of(TEXT("/:")));
    const std::size_t slash = port.find(TEXT('/'), host.size());
    const TextView path = slash == TextView::npos ? TextView() : port.substr(slash + 1);
    if (!EqualIgnoringAsciiCase(path, TEXT("ipp")) &&
        !EqualIgnoringAsciiCase(path, TEXT("ipp.cgi"))) {
        return;
    }
    TakeHost(host, PortKindIpp, link);
}

/// Whether one of the key's sub-keys is named exactly so; the registry itself ignores case.
bool HasSubkey(HKEY key, TextView wanted) {
    FixedText<kKeyNameCapacity> name;
    for (DWORD index = 0; index < kMostPorts; ++index) {
        DWORD length = kKeyNameCapacity;
        const LSTATUS status =
            ::RegEnumKeyExW(key, index, name.Room(), &length, nullptr, nullptr, nullptr, nullptr);
        // A name that does not fit its buffer is none that is looked for.
        if (status == ERROR_MORE_DATA) continue;
        if (status != ERROR_SUCCESS) return false;
        if (TextView(name.c_str(), length) == wanted) return true;
    }
    return false;
}

bool ResolveSetting(HKEY port, LPCWSTR valueName, sockaddr_in* address) {
    // One character more than is read: stored texts may lack their terminator.
    FixedText<kSettingLength + 1> text;
    DWORD size = kSettingLength * sizeof(WCHAR);
    DWORD type = REG_NONE;
    if (::RegQueryValueExW(port, valueName, nullptr, &type, reinterpret_cast<BYTE*>(text.Room()),
                           &size) != ERROR_SUCCESS ||
        type != REG_SZ) {
        return false;
    }
    text.CutAt(size / sizeof(WCHAR));
    return ResolveHost(text.c_str(), address);
}

bool IsLetter(char character) {
    return (character >= 'A' && character <= 'Z') || (character >= 'a' && character <= 'z');
}

bool LookUpName(const char* host, sockaddr_in* address) {
    const SocketLibrary library;
    if (!library) return false;
    const hostent* entry = ::gethostbyname(host);
    // The answer belongs to the library: it is taken before the library stops.
    if (entry == nullptr || entry->h_addr_list == nullptr || entry->h_addr_list[0] == nullptr) {
        return false;
    }
    if (entry->h_length <= 0) return false;
    const std::size_t length =
        std::min<std::size_t>(static_cast<std::size_t>(entry->h_length), sizeof address->sin_addr);
    std::copy_n(entry->h_addr_list[0], length, reinterpret_cast<char*>(&address->sin_addr));
    return true;
}

}  // namespace

bool DiscoverPrinterPort(HANDLE printer, PrinterLink* link) {
    PrinterLink found = {};
    bool isReachable = false;
    bool isBidirectional = false;
    const auto records = ReadPrinterInfo(printer);
    for (const PRINTER_INFO_2W& info : records.All()) {
        isBidirectional = (info.Attributes & PRINTER_ATTRIBUTE_ENABLE_BIDI) != 0;
        if (info.pPortName != nullptr) isReachable = ReachPort(info.pPortName, &found);
    }
    *link = found;
    return isReachable && (IsDirectKind(found.Kind) || isBidirectional);
}

void ClassifyPort(LPWSTR portName, PrinterLink* link) {
    const OSVERSIONINFOW version = PlatformVersion();
    ClassifyPort(portName,
                 FamilyOf(version.dwPlatformId, version.dwMajorVersion, version.dwMinorVersion),
                 link);
}

void ClassifyPort(LPWSTR portName, PlatformFamily family, PrinterLink* link) {
    link->Kind = PortKindNone;
    const TextView list = portName;
    const TextView port = list.substr(0, list.find(TEXT(',')));
    if (port.size() < list.size()) portName[port.size()] = 0;
    FindInFamilyMonitors(portName, family, link);
    if (link->Kind == PortKindNone) FindInPlace(portName, kRegalMonitor, link);
    if (link->Kind == PortKindNone) ClassifyShare(port, link);
    if (link->Kind == PortKindNone) ClassifyIpp(port, link);
}

PlatformFamily FamilyOf(DWORD platformId, DWORD majorVersion, DWORD minorVersion) {
    if (platformId == VER_PLATFORM_WIN32_NT && majorVersion >= 4) return PlatformFamily::kNt;
    if (platformId == VER_PLATFORM_WIN32_WINDOWS && (minorVersion == 0 || minorVersion >= 10)) {
        return PlatformFamily::kConsumer;
    }
    return PlatformFamily::kNeither;
}

OSVERSIONINFOW PlatformVersion() {
    OSVERSIONINFOW version = {};
    version.dwOSVersionInfoSize = sizeof version;
    if (!::GetVersionExW(&version)) return {};
    return version;
}

bool FindPortInMonitor(LPCWSTR portName, LPCWSTR portsKey, LPCWSTR valueName, LPCWSTR fallbackValue,
                       PrinterLink* link) {
    const UniqueKey ports = OpenMachineKey(portsKey);
    if (!ports || !HasSubkey(ports.Get(), portName)) return false;
    FixedText<kPathCapacity> portKey;
    if (!portKey.Join({portsKey, TEXT("\\"), portName})) return false;
    const UniqueKey port = OpenMachineKey(portKey.c_str());
    if (!port) return false;
    if (ResolveSetting(port.Get(), valueName, &link->Address)) return true;
    return fallbackValue != nullptr && ResolveSetting(port.Get(), fallbackValue, &link->Address);
}

bool ResolveHost(LPCWSTR hostName, sockaddr_in* address) {
    if (hostName == nullptr || *hostName == 0) return false;
    address->sin_family = AF_INET;
    char host[kHostCapacity];
    if (::WideCharToMultiByte(CP_ACP, 0, hostName, -1, host, kHostCapacity, nullptr, nullptr) ==
        0) {
        return false;
    }
    if (!IsLetter(host[0])) {
        address->sin_addr.s_addr = ::inet_addr(host);
        return true;
    }
    return LookUpName(host, address);
}

}  // namespace oemui
