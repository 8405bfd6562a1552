/// What the plug-in's COM objects have in common.
#pragma once

#include <windows.h>

#include <unknwn.h>

#include <atomic>

namespace oemui {

/// Counts references from 1 and answers `IUnknown` and one interface more; destroyed by its last
/// `Release`. Any thread.
template <typename Interface, const IID& kInterfaceId>
class ComObject : public Interface {
public:
    STDMETHODIMP QueryInterface(REFIID iid, void** object) noexcept override {
        if (object == nullptr) return E_POINTER;
        if (!(iid == IID_IUnknown) && !(iid == kInterfaceId)) {
            *object = nullptr;
            return E_NOINTERFACE;
        }
        *object = static_cast<Interface*>(this);
        AddRef();
        return S_OK;
    }
    STDMETHODIMP_(ULONG) AddRef() noexcept override { return ++references_; }
    STDMETHODIMP_(ULONG) Release() noexcept override {
        const ULONG remaining = --references_;
        if (remaining == 0) delete this;
        return remaining;
    }

protected:
    // Behind the interface's slots, which keep their places.
    virtual ~ComObject() = default;

private:
    std::atomic<ULONG> references_{1};
};

}  // namespace oemui
