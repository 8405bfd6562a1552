/// Owners of the platform's handles.
#pragma once

#include <windows.h>

#include <winspool.h>

#include <memory>
#include <type_traits>

namespace host {

template <auto Close>
struct Closer {
    template <typename Pointer>
    void operator()(Pointer handle) const {
        Close(handle);
    }
};

using PrinterHandle = std::unique_ptr<void, Closer<::ClosePrinter>>;
using HeapHandle = std::unique_ptr<void, Closer<::HeapDestroy>>;
using KeyHandle = std::unique_ptr<std::remove_pointer_t<HKEY>, Closer<::RegCloseKey>>;
using ModuleHandle = std::unique_ptr<std::remove_pointer_t<HMODULE>, Closer<::FreeLibrary>>;

}  // namespace host
