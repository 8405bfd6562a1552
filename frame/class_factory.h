/// Makes the plug-in's objects.
#pragma once

#include "common/oem_driver_interface.h"
#include "frame/com_object.h"

namespace oemui {

/// One factory for every `DllGetClassObject`; it is destroyed by its last `Release`. Any thread.
class OemUiClassFactory final : public ComObject<IClassFactory, IID_IClassFactory> {
public:
    /// \return CLASS_E_NOAGGREGATION with an outer object; E_NOINTERFACE with null in `*object` for
    ///         an interface that the plug-in does not answer; E_OUTOFMEMORY.
    STDMETHODIMP CreateInstance(IUnknown* outer, REFIID iid, void** object) noexcept override;
    STDMETHODIMP LockServer(BOOL lock) noexcept override;
};

}  // namespace oemui
