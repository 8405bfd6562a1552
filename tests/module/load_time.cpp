// How long a driver waits for the plug-in object, beside the time to load an empty module of the
// same toolchain. Prints both; fails when the ratio is above the limit.

#include <windows.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <cstdio>

#include "common/oem_driver_interface.h"

namespace {

constexpr int kLoads = 60;
constexpr double kLimit = 2.0;

template <typename Work>
double MedianMicroseconds(Work work) {
    std::array<double, kLoads> times{};
    for (double& time : times) {
        const auto start = std::chrono::steady_clock::now();
        work();
        time = std::chrono::duration<double, std::micro>(std::chrono::steady_clock::now() - start)
                   .count();
    }
    std::nth_element(times.begin(), times.begin() + kLoads / 2, times.end());
    return times[kLoads / 2];
}

bool CreatePlugin(HMODULE module) {
    using GetClassObject = HRESULT(STDAPICALLTYPE*)(REFCLSID, REFIID, void**);
    const auto getClassObject = reinterpret_cast<GetClassObject>(
        reinterpret_cast<void*>(::GetProcAddress(module, "DllGetClassObject")));
    IClassFactory* factory = nullptr;
    IPrintOemUI* plugin = nullptr;
    if (getClassObject == nullptr ||
        getClassObject(CLSID_OEMUI, IID_IClassFactory, reinterpret_cast<void**>(&factory)) != S_OK)
        return false;
    factory->CreateInstance(nullptr, IID_IPrintOemUI, reinterpret_cast<void**>(&plugin));
    factory->Release();
    if (plugin == nullptr) return false;
    plugin->Release();
    return true;
}

}  // namespace

int wmain(int count, wchar_t** arguments) {
    if (count != 3) return 2;
    bool created = true;
    const double empty = MedianMicroseconds([&] { ::FreeLibrary(::LoadLibraryW(arguments[1])); });
    const double plugin = MedianMicroseconds([&] {
        const HMODULE module = ::LoadLibraryW(arguments[2]);
        created = created && module != nullptr && CreatePlugin(module);
        ::FreeLibrary(module);
    });
    std::printf("empty module %.0f us, plug-in object %.0f us, ratio %.2f (limit %.1f)\n", empty,
                plugin, plugin / empty, kLimit);
    return created && plugin <= kLimit * empty ? 0 : 1;
}
