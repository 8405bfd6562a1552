// How long a driver waits for the plug-in object, beside the time to load an empty module of the
// same toolchain. The platform's own libraries that a printing process has loaded anyway are there
// before either. Prints both; fails when the ratio is above the limit.

#include <windows.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <cstdio>

#include "common/oem_driver_interface.h"

namespace {

constexpr int kLoads = 200;
constexpr double kLimit = 2.0;

using Times = std::array<double, kLoads>;

template <typename Work>
double Microseconds(Work work) {
    const auto start = std::chrono::steady_clock::now();
    work();
    return std::chrono::duration<double, std::micro>(std::chrono::steady_clock::now() - start)
        .count();
}

double Median(Times times) {
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
    for (LPCWSTR library :
         {L"user32.dll", L"gdi32.dll", L"advapi32.dll", L"winspool.drv", L"wsock32.dll"})
        ::LoadLibraryW(library);
    bool created = true;
    Times emptyTimes{};
    Times pluginTimes{};
    // By turns, so that both meet the same weather.
    for (int i = 0; i < kLoads; ++i) {
        emptyTimes[i] = Microseconds([&] { ::FreeLibrary(::LoadLibraryW(arguments[1])); });
        pluginTimes[i] = Microseconds([&] {
            const HMODULE module = ::LoadLibraryW(arguments[2]);
            created = created && module != nullptr && CreatePlugin(module);
            ::FreeLibrary(module);
        });
    }
    const double empty = Median(emptyTimes);
    const double plugin = Median(pluginTimes);
    std::printf("empty module %.0f us, plug-in object %.0f us, ratio %.2f (limit %.1f)\n", empty,
                plugin, plugin / empty, kLimit);
    return created && plugin <= kLimit * empty ? 0 : 1;
}
