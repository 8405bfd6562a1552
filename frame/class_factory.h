/// Makes the plug-in's objects.
#pragma once

#include <atomic>

#include "common/oem_driver_interface.h"

namespace oemui {

/// One factory for every `DllGetClassObject`; it is destroyed by its last `Release`. Any thread.
class OemUiClassFactory final : public IClassFactory {
public:
    STDMETHODIMP QueryInterface(REFIID iid, void** object) override;
    STDMETHODIMP_(ULONG) AddRef() override;
    STDMETHODIMP_(ULONG) Release() override;

    /// \return CLASS_E_NOAGGREGATION with an outer object; E_NOINTERFACE with null in `*object` for
    ///         an interface that the plug-in does not answer; E_OUTOFMEMORY.
    STDMETHODIMP CreateInstance(IUnknown* outer, REFIID iid, void** object) override;
    STDMETHODIMP LockServer(BOOL lock) override;

private:
    ~OemUiClassFactory() = default;

    std::atomic<ULONG> references_{1};
};

}  // namespace oemui
