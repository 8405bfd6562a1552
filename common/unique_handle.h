/// Owners for the platform's handles: closed at the end of their scope, whatever path leaves it.
#pragma once

#include <windows.h>

#include <winspool.h>

#include <utility>

namespace oemui {

/// Owns one handle of the platform and gives it back with `Close`. Closing keeps the thread's last
/// error, so that the error of the step that failed is still there for the caller.
template <typename Handle, auto Close>
class UniqueHandle {
public:
    UniqueHandle() = default;
    explicit UniqueHandle(Handle handle) : handle_(handle) {}
    UniqueHandle(UniqueHandle&& other) noexcept : handle_(std::exchange(other.handle_, Handle{})) {}
    UniqueHandle& operator=(UniqueHandle&& other) noexcept {
        Reset(std::exchange(other.handle_, Handle{}));
        return *this;
    }
    ~UniqueHandle() { Reset(); }

    [[nodiscard]] Handle Get() const { return handle_; }
    explicit operator bool() const { return handle_ != Handle{}; }

    /// For calls that hand a handle out through a pointer; whatever is held is closed first.
    Handle* Receive() {
        Reset();
        return &handle_;
    }

    void Reset(Handle next = Handle{}) {
        if (handle_ != Handle{}) {
            const DWORD lastError = ::GetLastError();
            Close(handle_);
            ::SetLastError(lastError);
        }
        handle_ = next;
    }

private:
    Handle handle_{};
};

using UniquePrinter = UniqueHandle<HANDLE, ::ClosePrinter>;
using UniqueKey = UniqueHandle<HKEY, ::RegCloseKey>;
using UniqueLibrary = UniqueHandle<HMODULE, ::FreeLibrary>;

/// Opens a printer with the given access rights and neither data type nor devmode; empty when the
/// spooler refuses.
inline UniquePrinter OpenPrinterFor(LPCWSTR name, DWORD access) {
    PRINTER_DEFAULTSW defaults{nullptr, nullptr, access};
    UniquePrinter printer;
    // The parameter is not const in the platform's declaration, but the name is only read.
    if (!::OpenPrinterW(const_cast<LPWSTR>(name), printer.Receive(), &defaults)) return {};
    return printer;
}

/// Opens a key below the local machine's root for everything; empty when the registry refuses.
inline UniqueKey OpenMachineKey(LPCWSTR path) {
    UniqueKey key;
    if (::RegOpenKeyExW(HKEY_LOCAL_MACHINE, path, 0, KEY_ALL_ACCESS, key.Receive()) !=
        ERROR_SUCCESS) {
        return {};
    }
    return key;
}

}  // namespace oemui
