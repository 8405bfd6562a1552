#include "frame/class_factory.h"

#include <new>

#include "frame/module_counters.h"
#include "frame/plugin_object.h"

namespace oemui {

STDMETHODIMP OemUiClassFactory::QueryInterface(REFIID iid, void** object) {
    if (object == nullptr) return E_POINTER;
    if (!(iid == IID_IUnknown) && !(iid == IID_IClassFactory)) {
        *object = nullptr;
        return E_NOINTERFACE;
    }
    *object = static_cast<IClassFactory*>(this);
    AddRef();
    return S_OK;
}

STDMETHODIMP_(ULONG) OemUiClassFactory::AddRef() {
    return ++references_;
}

STDMETHODIMP_(ULONG) OemUiClassFactory::Release() {
    const ULONG remaining = --references_;
    if (remaining == 0) delete this;
    return remaining;
}

STDMETHODIMP OemUiClassFactory::CreateInstance(IUnknown* outer, REFIID iid, void** object) {
    if (outer != nullptr) return CLASS_E_NOAGGREGATION;
    auto* plugin = new (std::nothrow) OemUiPlugin;
    if (plugin == nullptr) return E_OUTOFMEMORY;
    const HRESULT result = plugin->QueryInterface(iid, object);
    plugin->Release();
    return result;
}

STDMETHODIMP OemUiClassFactory::LockServer(BOOL lock) {
    if (lock != FALSE) {
        ++serverLockCount;
    } else {
        --serverLockCount;
    }
    return S_OK;
}

}  // namespace oemui
