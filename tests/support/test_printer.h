/// A printer for a test, written into the registry where the spooler keeps its printers: the same
/// on the platform's own spooler and on the layer's.
#pragma once

#include "tests/support/text.h"

namespace tests {

/// Registers a printer of the family's driver and removes it, its data included, at the end.
class TestPrinter {
public:
    explicit TestPrinter(Text name, Text port = TEXT("LPT1:"));
    ~TestPrinter();
    TestPrinter(const TestPrinter&) = delete;
    TestPrinter& operator=(const TestPrinter&) = delete;

    const Text& Name() const { return name_; }
    void SetBidirectional(bool on);
    void SetPort(const Text& port);
    /// A value of the printer's data as it is stored; empty when there is none.
    std::string StoredValue(LPCWSTR valueName) const;
    void StoreValue(LPCWSTR valueName, const std::string& bytes);

private:
    Text KeyPath() const;

    Text name_;
};

/// Writes one value below the local machine's root key, making the key when it is missing.
void WriteRegistryValue(const Text& keyPath, LPCWSTR valueName, DWORD type, const void* bytes,
                        DWORD size);
void WriteRegistryText(const Text& keyPath, LPCWSTR valueName, const Text& text);
/// A value below the local machine's root key; empty when there is none.
std::string ReadRegistryValue(const Text& keyPath, LPCWSTR valueName, DWORD* type = nullptr);
void RemoveRegistryKey(const Text& keyPath);

}  // namespace tests
