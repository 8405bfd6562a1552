// The module's outer face: its entry point and its two exports.

#include <new>

#include "common/model_identity.h"
#include "common/plugin_module.h"
#include "frame/class_factory.h"
#include "frame/module_counters.h"

// Every reason records the handle again; no reason makes the load fail.
extern "C" BOOL WINAPI DllMain(HINSTANCE module, DWORD reason, LPVOID /*reserved*/) noexcept {
    oemui::RecordPluginModule(module);
    if (reason == DLL_PROCESS_ATTACH) {
        WCHAR path[MAX_PATH] = {};
        const DWORD length = ::GetModuleFileNameW(module, path, MAX_PATH);
        // A path that is too long comes back cut: its end would be the name of some folder.
        oemui::DeriveModelIdentity(oemui::TextView(path, length < MAX_PATH ? length : 0));
    }
    return TRUE;
}

// The platform declares the exports without a promise about exceptions, so they cannot give one.
STDAPI DllGetClassObject(REFCLSID clsid, REFIID iid, void** object) {
    if (!(clsid == CLSID_OEMUI)) return CLASS_E_CLASSNOTAVAILABLE;
    auto* factory = new (std::nothrow) oemui::OemUiClassFactory;
    if (factory == nullptr) return E_OUTOFMEMORY;
    const HRESULT result = factory->QueryInterface(iid, object);
    factory->Release();
    return result;
}

STDAPI DllCanUnloadNow() {
    return oemui::liveObjectCount == 0 && oemui::serverLockCount == 0 ? S_OK : S_FALSE;
}
