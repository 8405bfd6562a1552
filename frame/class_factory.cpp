#include "frame/class_factory.h"

#include <new>

#include "frame/module_counters.h"
#include "frame/plugin_object.h"

namespace oemui {

STDMETHODIMP OemUiClassFactory::CreateInstance(IUnknown* outer, REFIID iid,
                                               void** object) noexcept {
    if (outer != nullptr) return CLASS_E_NOAGGREGATION;
    auto* plugin = new (std::nothrow) OemUiPlugin;
    if (plugin == nullptr) return E_OUTOFMEMORY;
    const HRESULT result = plugin->QueryInterface(iid, object);
    plugin->Release();
    return result;
}

STDMETHODIMP OemUiClassFactory::LockServer(BOOL lock) noexcept {
    if (lock != FALSE) {
        ++serverLockCount;
    } else {
        --serverLockCount;
    }
    return S_OK;
}

}  // namespace oemui
