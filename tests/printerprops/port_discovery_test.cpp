#include "printerprops/port_discovery.h"

#include <winspool.h>

#include <string>
#include <vector>

#include "common/unique_handle.h"
#include "tests/support/plugin_fixture.h"
#include "tests/support/test_printer.h"

using namespace oemui;
using tests::Text;

namespace {

const Text kMonitors = TEXT("System\\CurrentControlSet\\Control\\Print\\Monitors\\");
const Text kRegalPorts = kMonitors + TEXT("Regal Port+\\Ports");
constexpr const char* kNoAddress = "255.255.255.255";

class PortDiscovery : public tests::PluginTest {
protected:
    PortDiscovery() {
        AddPort("Standard TCP/IP Port", "IP_10.0.0.5", TEXT("IPAddress"), "10.0.0.5");
        AddPort("Standard TCP/IP Port", "ByName", TEXT("HostName"), "localhost");
        AddPort("Standard TCP/IP Port", "Emptied", TEXT("IPAddress"), "");
        AddPort("Standard TCP/IP Port", "Emptied", TEXT("HostName"), "10.0.0.4");
        AddPort("Standard TCP/IP Port", "Both", TEXT("IPAddress"), "10.0.0.6");
        AddPort("LPR Port", "Both", TEXT("Server Name"), "10.0.0.7");
        AddPort("LPR Port", "Queue", TEXT("Server Name"), "10.0.0.8");
        AddPort("LPR Port", "Wrong", TEXT("HostName"), "10.0.0.8");
        AddPort("Regal Port+", "Regal1", TEXT("IPAddress"), "10.0.0.9");
        AddPort("pigmentra 7140RZ TCP/IP Port", "Own", TEXT("IPAddress"), "10.0.0.10");
    }
    ~PortDiscovery() override {
        for (const Text& monitor : monitors_) tests::RemoveRegistryKey(kMonitors + monitor);
    }

    void AddPort(const char* monitor, const char* port, LPCWSTR value, const char* text) {
        monitors_.push_back(tests::Wide(monitor));
        tests::WriteRegistryText(
            kMonitors + monitors_.back() + TEXT("\\Ports\\") + tests::Wide(port), value,
            tests::Wide(text));
    }

private:
    std::vector<Text> monitors_;
};

std::string AddressOf(const PrinterLink& link) {
    const auto* bytes = reinterpret_cast<const unsigned char*>(&link.Address.sin_addr);
    std::string text;
    for (int i = 0; i < 4; ++i) text += (i == 0 ? "" : ".") + std::to_string(bytes[i]);
    return text;
}

PrinterLink Classify(const Text& port, PlatformFamily family) {
    Text name = port;
    PrinterLink link = {};
    ClassifyPort(name.data(), family, &link);
    name.resize(name.find(WCHAR{0}) == Text::npos ? name.size() : name.find(WCHAR{0}));
    EXPECT_EQ(name, port.substr(0, port.find(TEXT(','))));
    return link;
}

TEST_F(PortDiscovery, AKindFollowsFromTheMonitorThatKnowsThePortOrFromItsName) {
    constexpr PlatformFamily kNt = PlatformFamily::kNt;
    constexpr PlatformFamily kConsumer = PlatformFamily::kConsumer;
    constexpr PlatformFamily kNeither = PlatformFamily::kNeither;
    const struct {
        PlatformFamily family;
        const char* port;
        PortKind kind;
        const char* address;
    } rows[] = {
        {kNt, "IP_10.0.0.5", PortKindTcpIp, "10.0.0.5"},
        {kNt, "IP_10.0.0.5,LPT1:", PortKindTcpIp, "10.0.0.5"},
        {kNt, "ip_10.0.0.5", PortKindNone, nullptr},
        {kNt, "ByName", PortKindTcpIp, "127.0.0.1"},
        {kNt, "Emptied", PortKindTcpIp, "10.0.0.4"},
        {kNt, "Both", PortKindLpr, "10.0.0.7"},
        {kNt, "Queue", PortKindLpr, "10.0.0.8"},
        {kNt, "Wrong", PortKindNone, nullptr},
        {kNt, "Own", PortKindNone, nullptr},
        {kNt, "Regal1", PortKindRegal, "10.0.0.9"},
        {kNt, ",Regal1", PortKindNone, nullptr},
        {kConsumer, "Own", PortKindTcpIp, "10.0.0.10"},
        {kConsumer, "Queue", PortKindNone, nullptr},
        {kConsumer, "Regal1", PortKindRegal, "10.0.0.9"},
        {kNeither, "IP_10.0.0.5", PortKindNone, nullptr},
        {kNeither, "Own", PortKindNone, nullptr},
        {kNeither, "Regal1", PortKindRegal, "10.0.0.9"},
        {kNt, "\\\\10.1.2.3\\SMB_PRI1", PortKindShare, "10.1.2.3"},
        {kNeither, "10.1.2.3\\queue\\smb_pri1", PortKindShare, "10.1.2.3"},
        {kNt, "\\\\3printer\\SMB_PRI1", PortKindShare, kNoAddress},
        {kNt, "\\\\10.1.2.3\\SMB_PRI12", PortKindNone, nullptr},
        {kNt, "SMB_PRI1", PortKindNone, nullptr},
        {kNt, "http://10.1.2.3:631/ipp", PortKindIpp, "10.1.2.3"},
        {kNt, "HTTP://localhost/IPP.CGI", PortKindIpp, "127.0.0.1"},
        {kNt, "http://10.1.2.3/", PortKindNone, nullptr},
        {kNt, "http://10.1.2.3", PortKindNone, nullptr},
        {kNt, "http://10.1.2.3/a/ipp", PortKindNone, nullptr},
        {kNt, "http://10.1.2.3/ipp.cg", PortKindNone, nullptr},
        {kNt, "http:///ipp", PortKindNone, nullptr},
        {kNt, "http://", PortKindNone, nullptr},
        {kNt, "USB1", PortKindNone, nullptr},
        {kNt, "", PortKindNone, nullptr},
    };
    for (const auto& row : rows) {
        const PrinterLink link = Classify(tests::Wide(row.port), row.family);
        EXPECT_EQ(link.Kind, row.kind) << row.port;
        EXPECT_EQ(link.Found, row.address == nullptr ? 0u : 1u) << row.port;
        if (row.address != nullptr) {
            EXPECT_EQ(AddressOf(link), row.address) << row.port;
            EXPECT_EQ(link.Address.sin_family, AF_INET);
            EXPECT_EQ(link.Address.sin_port, 0);
        }
    }
}

TEST_F(PortDiscovery, StoredHostsAreReadBoundedAndTyped) {
    const Text address = TEXT("10.0.0.5");
    const Text full(130, TEXT('1'));
    const struct {
        DWORD type;
        Text text;
        DWORD size;
        const char* address;
    } rows[] = {
        {REG_SZ, address, 16, "10.0.0.5"},            // without its terminator
        {REG_SZ, TEXT("10.0.0.55"), 17, "10.0.0.5"},  // half a character is none
        {REG_SZ, full + TEXT("1"), 260, kNoAddress},
        {REG_SZ, full + TEXT("1"), 262, nullptr},
        {REG_SZ, address, 0, nullptr},
        {REG_BINARY, address, 16, nullptr},
        {REG_DWORD, address, 4, nullptr},
    };
    for (const auto& row : rows) {
        tests::WriteRegistryValue(kRegalPorts + TEXT("\\Stored"), TEXT("IPAddress"), row.type,
                                  row.text.data(), row.size);
        const PrinterLink link = Classify(TEXT("Stored"), PlatformFamily::kNeither);
        EXPECT_EQ(link.Found, row.address == nullptr ? 0u : 1u) << row.type << " " << row.size;
        if (row.address != nullptr) {
            EXPECT_EQ(AddressOf(link), row.address);
        }
    }
}

TEST_F(PortDiscovery, NamesThatDoNotFitTheirBuffersMatchNothing) {
    const Text digits(300, TEXT('1'));
    sockaddr_in address = {};
    EXPECT_TRUE(ResolveHost(digits.substr(0, 259).c_str(), &address));
    EXPECT_FALSE(ResolveHost(digits.substr(0, 260).c_str(), &address));
    // Names that have to be looked up: the longest that fits, and one more.
    for (const std::size_t length : {259u, 260u}) {
        Text host(length, TEXT('n'));
        EXPECT_FALSE(ResolveHost(host.c_str(), &address));
        tests::WriteRegistryText(kRegalPorts + TEXT("\\Long"), TEXT("IPAddress"), host);
        for (const Text& port : {TEXT("\\\\") + host + TEXT("\\SMB_PRI1"),
                                 TEXT("http://") + host + TEXT("/ipp"), Text(TEXT("Long"))}) {
            const PrinterLink link = Classify(port, PlatformFamily::kNeither);
            EXPECT_EQ(link.Found, 0u) << length;
            EXPECT_EQ(link.Kind, PortKindNone) << length;
        }
    }
    EXPECT_FALSE(ResolveHost(TEXT(""), &address));
    EXPECT_FALSE(ResolveHost(nullptr, &address));

    const std::size_t room = 263 - kRegalPorts.size() - 1;
    for (const std::size_t length : {room, room + 1}) {
        const Text port(length, TEXT('p'));
        Text key = kRegalPorts;
        key.append(TEXT("\\")).append(port);
        tests::WriteRegistryText(key, TEXT("IPAddress"), TEXT("1.1"));
        EXPECT_EQ(Classify(port, PlatformFamily::kNt).Found, length == room ? 1u : 0u);
    }
    for (const std::size_t length : {1u, 259u, 260u, 300u}) {
        const UINT32 expected = length <= 259 ? 1 : 0;
        Text share(length, TEXT('1'));
        Text ipp = share;
        share.insert(0, TEXT("\\\\")).append(TEXT("\\SMB_PRI1"));
        ipp.insert(0, TEXT("http://")).append(TEXT("/ipp"));
        EXPECT_EQ(Classify(share, PlatformFamily::kNeither).Found, expected) << length;
        EXPECT_EQ(Classify(ipp, PlatformFamily::kNeither).Found, expected) << length;
    }
}

TEST_F(PortDiscovery, OnlyDirectKindsAreReachableWithoutBidirectionalCommunication) {
    const struct {
        const char* port;
        PortKind kind;
        bool reachableOneWay;
        bool reachableBothWays;
    } rows[] = {
        {"USB001", PortKindUsb, false, true},
        {"USB0012", PortKindUsb, false, true},
        {"USB01", PortKindNone, false, false},
        {"usb001", PortKindNone, false, false},
        {"Regal1", PortKindRegal, false, true},
        {"\\\\10.1.2.3\\SMB_PRI1,LPT1:", PortKindShare, true, true},
        {"http://10.1.2.3/ipp", PortKindIpp, true, true},
        {"LPT1:", PortKindNone, false, false},
    };
    for (const auto& row : rows) {
        for (const bool isBidirectional : {false, true}) {
            tests::TestPrinter printer(TEXT("Discovered"), tests::Wide(row.port));
            printer.SetBidirectional(isBidirectional);
            const UniquePrinter handle = OpenPrinterFor(TEXT("Discovered"), PRINTER_ACCESS_USE);
            PrinterLink link = {};
            EXPECT_EQ(DiscoverPrinterPort(handle.Get(), &link),
                      isBidirectional ? row.reachableBothWays : row.reachableOneWay)
                << row.port;
            EXPECT_EQ(link.Kind, row.kind) << row.port;
            EXPECT_EQ(link.OpenCount, 0u);
        }
    }
    PrinterLink link = {
        .Found = 1, .Address = {}, .Socket = 5, .Kind = PortKindIpp, .OpenCount = 3};
    EXPECT_FALSE(DiscoverPrinterPort(nullptr, &link));
    EXPECT_EQ(link.Found, 0u);
    EXPECT_EQ(link.Socket, 0u);
    EXPECT_EQ(link.Kind, PortKindNone);
    EXPECT_EQ(link.OpenCount, 0u);
}

TEST(PlatformFamily, FollowsFromThePlatformIdAndTheVersion) {
    for (const DWORD major : {4u, 10u}) EXPECT_EQ(FamilyOf(2, major, 0), PlatformFamily::kNt);
    for (const DWORD minor : {0u, 10u}) EXPECT_EQ(FamilyOf(1, 4, minor), PlatformFamily::kConsumer);
    EXPECT_EQ(FamilyOf(2, 3, 51), PlatformFamily::kNeither);
    EXPECT_EQ(FamilyOf(1, 4, 9), PlatformFamily::kNeither);
    EXPECT_EQ(FamilyOf(0, 0, 0), PlatformFamily::kNeither);
}

}  // namespace
