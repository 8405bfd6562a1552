/// The module as a driver has it: loaded from its file, reached through its exports.
#pragma once

#include "common/oem_driver_interface.h"
#include "common/unique_handle.h"
#include "tests/support/text.h"

namespace tests {

class LoadedModule {
public:
    explicit LoadedModule(const Text& path) : library_(::LoadLibraryW(path.c_str())) {}

    explicit operator bool() const { return static_cast<bool>(library_); }
    HMODULE Handle() const { return library_.Get(); }
    HRESULT CanUnload() const { return Export<HRESULT(STDAPICALLTYPE*)()>("DllCanUnloadNow")(); }

    IPrintOemUI* CreatePlugin() const {
        using GetClassObject = HRESULT(STDAPICALLTYPE*)(REFCLSID, REFIID, void**);
        IClassFactory* factory = nullptr;
        Export<GetClassObject>("DllGetClassObject")(CLSID_OEMUI, IID_IClassFactory,
                                                    reinterpret_cast<void**>(&factory));
        IPrintOemUI* plugin = nullptr;
        if (factory == nullptr) return nullptr;
        factory->CreateInstance(nullptr, IID_IPrintOemUI, reinterpret_cast<void**>(&plugin));
        factory->Release();
        return plugin;
    }

    DWORD Signature() const {
        DWORD signature = 0;
        DWORD needed = 0;
        IPrintOemUI* plugin = CreatePlugin();
        if (plugin == nullptr) return 0;
        plugin->GetInfo(OEMGI_GETSIGNATURE, &signature, sizeof signature, &needed);
        plugin->Release();
        return signature;
    }

private:
    template <typename Function>
    Function Export(const char* name) const {
        return reinterpret_cast<Function>(
            reinterpret_cast<void*>(::GetProcAddress(library_.Get(), name)));
    }

    oemui::UniqueLibrary library_;
};

}  // namespace tests
