/// The registry keys below which the spooler keeps what it knows, and reading and writing them.
#pragma once

#include <windef.h>
#include <winerror.h>

#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "platform/registry/registry_store.h"

namespace platform::spooler {

inline constexpr std::u16string_view kPrintersPath =
    u"System\\CurrentControlSet\\Control\\Print\\Printers";
inline constexpr std::u16string_view kFormsPath =
    u"System\\CurrentControlSet\\Control\\Print\\Forms";
inline constexpr std::u16string_view kMonitorsPath =
    u"System\\CurrentControlSet\\Control\\Print\\Monitors";
inline constexpr std::u16string_view kDriversPath =
    u"System\\CurrentControlSet\\Control\\Print\\Environments\\Windows x64\\Drivers\\Version-3";
inline constexpr std::u16string_view kPrintProcessorsPath =
    u"System\\CurrentControlSet\\Control\\Print\\Environments\\Windows x64\\Print Processors";

/// The key of one entry of a list; the entry's name must be usable as one (`IsKeyName`).
[[nodiscard]] std::u16string SubKeyPath(std::u16string_view list, std::u16string_view entry);

/// Whether a name stands for one key: neither empty, nor longer than a key's name may be, nor with
/// a backslash.
[[nodiscard]] bool IsKeyName(std::u16string_view name);

/// A key below the local machine's root. Reads answer "missing" for values that are not there or of
/// another type; any other failure is kept and told by `Error`.
class PrintKey {
public:
    /// Result codes of the registry.
    [[nodiscard]] DWORD Open(std::u16string_view path);
    /// Makes the key and its parents when missing. \param created  whether it was; may be null.
    [[nodiscard]] DWORD Create(std::u16string_view path, bool* created = nullptr);

    [[nodiscard]] std::u16string Text(std::u16string_view name) const;
    [[nodiscard]] DWORD Number(std::u16string_view name, DWORD missing) const;
    /// The bytes of a REG_BINARY value; empty when missing.
    [[nodiscard]] std::vector<BYTE> Bytes(std::u16string_view name) const;
    /// The first failure of these reads; ERROR_SUCCESS when there was none.
    [[nodiscard]] DWORD Error() const { return error_; }

    /// Reads and writes of any type answer a result code, ERROR_FILE_NOT_FOUND for what is missing.
    [[nodiscard]] DWORD Read(std::u16string_view name, RegistryValue* value) const;
    [[nodiscard]] DWORD Write(std::u16string_view name, DWORD type, std::span<const BYTE> bytes);
    [[nodiscard]] DWORD SetText(std::u16string_view name, const std::u16string& text);
    [[nodiscard]] DWORD SetNumber(std::u16string_view name, DWORD number);

private:
    std::optional<std::vector<BYTE>> Value(std::u16string_view name, DWORD type) const;

    KeyId key_ = 0;
    mutable DWORD error_ = ERROR_SUCCESS;
};

/// The names of the keys directly below a path; none when there is no such key.
/// \return a result code.
[[nodiscard]] DWORD ListSubKeys(std::u16string_view path, std::vector<std::u16string>* names);

/// Deletes a key with everything in it. \return a result code.
[[nodiscard]] DWORD RemoveKey(std::u16string_view path);

}  // namespace platform::spooler
