/// COM basics: what an in-process server and its client need.
#pragma once

#include <windef.h>

#define STDMETHOD(name) virtual HRESULT STDMETHODCALLTYPE name
#define STDMETHOD_(type, name) virtual type STDMETHODCALLTYPE name
#define STDMETHODIMP HRESULT STDMETHODCALLTYPE
#define STDMETHODIMP_(type) type STDMETHODCALLTYPE
#define PURE = 0
/// An entry that a module exports by its plain name; the module's export list decides which do.
#define STDAPI extern "C" __attribute__((visibility("default"))) HRESULT STDAPICALLTYPE

inline constexpr IID IID_IUnknown = {
    0x00000000, 0x0000, 0x0000, {0xC0, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x46}};
inline constexpr IID IID_IClassFactory = {
    0x00000001, 0x0000, 0x0000, {0xC0, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x46}};

/// Objects are destroyed by their own `Release`, never through this interface.
struct IUnknown {
    STDMETHOD(QueryInterface)(REFIID iid, void** object) PURE;
    STDMETHOD_(ULONG, AddRef)() PURE;
    STDMETHOD_(ULONG, Release)() PURE;

protected:
    ~IUnknown() = default;
};

struct IClassFactory : IUnknown {
    STDMETHOD(CreateInstance)(IUnknown* outer, REFIID iid, void** object) PURE;
    STDMETHOD(LockServer)(BOOL lock) PURE;

protected:
    ~IClassFactory() = default;
};

STDAPI DllGetClassObject(REFCLSID clsid, REFIID iid, void** object);
STDAPI DllCanUnloadNow();
