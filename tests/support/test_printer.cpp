#include "tests/support/test_printer.h"

#include <array>
#include <utility>

#include "common/unique_handle.h"

namespace tests {
namespace {

const Text kPrint = TEXT("System\\CurrentControlSet\\Control\\Print\\");
const Text kDriverName = TEXT("Test Laser");

oemui::UniqueKey OpenKey(const Text& path) {
    oemui::UniqueKey key;
    ::RegCreateKeyExW(HKEY_LOCAL_MACHINE, path.c_str(), 0, nullptr, 0, KEY_ALL_ACCESS, nullptr,
                      key.Receive(), nullptr);
    return key;
}

void RegisterDriver() {
    const Text key = kPrint + TEXT("Environments\\Windows x64\\Drivers\\Version-3\\") + kDriverName;
    for (LPCWSTR value : {TEXT("Driver"), TEXT("Configuration File"), TEXT("Data File")})
        WriteRegistryText(key, value, TEXT("QVRT__UI.DLL"));
    const DWORD version = 3;
    WriteRegistryValue(key, TEXT("Version"), REG_DWORD, &version, sizeof version);
}

}  // namespace

void WriteRegistryValue(const Text& keyPath, LPCWSTR valueName, DWORD type, const void* bytes,
                        DWORD size) {
    ::RegSetValueExW(OpenKey(keyPath).Get(), valueName, 0, type, static_cast<const BYTE*>(bytes),
                     size);
}

void WriteRegistryText(const Text& keyPath, LPCWSTR valueName, const Text& text) {
    WriteRegistryValue(keyPath, valueName, REG_SZ, text.c_str(),
                       static_cast<DWORD>((text.size() + 1) * sizeof(WCHAR)));
}

std::string ReadRegistryValue(const Text& keyPath, LPCWSTR valueName, DWORD* type) {
    oemui::UniqueKey key;
    if (::RegOpenKeyExW(HKEY_LOCAL_MACHINE, keyPath.c_str(), 0, KEY_READ, key.Receive()) != 0)
        return {};
    DWORD size = 0;
    if (::RegQueryValueExW(key.Get(), valueName, nullptr, type, nullptr, &size) != 0) return {};
    std::string bytes(size, '\0');
    ::RegQueryValueExW(key.Get(), valueName, nullptr, type, reinterpret_cast<BYTE*>(bytes.data()),
                       &size);
    return bytes;
}

void RemoveRegistryKey(const Text& keyPath) {
    ::RegDeleteTreeW(HKEY_LOCAL_MACHINE, keyPath.c_str());
}

TestPrinter::TestPrinter(Text name, Text port) : name_(std::move(name)) {
    RegisterDriver();
    const std::array<std::pair<LPCWSTR, Text>, 6> values = {
        {{TEXT("Name"), name_},
         {TEXT("Printer Driver"), kDriverName},
         {TEXT("Print Processor"), TEXT("winprint")},
         {TEXT("Datatype"), TEXT("RAW")},
         {TEXT("Share Name"), TEXT("")},
         {TEXT("Description"), TEXT("")}}};
    for (const auto& [value, text] : values) WriteRegistryText(KeyPath(), value, text);
    SetPort(port);
    SetBidirectional(false);
    OpenKey(KeyPath() + TEXT("\\PrinterDriverData"));
}

TestPrinter::~TestPrinter() {
    RemoveRegistryKey(KeyPath());
}

void TestPrinter::SetBidirectional(bool on) {
    const DWORD attributes = on ? 0x800u : 0u;
    WriteRegistryValue(KeyPath(), TEXT("Attributes"), REG_DWORD, &attributes, sizeof attributes);
}

void TestPrinter::SetPort(const Text& port) {
    WriteRegistryText(KeyPath(), TEXT("Port"), port);
}

std::string TestPrinter::StoredValue(LPCWSTR valueName) const {
    return ReadRegistryValue(KeyPath() + TEXT("\\PrinterDriverData"), valueName);
}

void TestPrinter::StoreValue(LPCWSTR valueName, const std::string& bytes) {
    WriteRegistryValue(KeyPath() + TEXT("\\PrinterDriverData"), valueName, REG_BINARY, bytes.data(),
                       static_cast<DWORD>(bytes.size()));
}

Text TestPrinter::KeyPath() const {
    return kPrint + TEXT("Printers\\") + name_;
}

}  // namespace tests
