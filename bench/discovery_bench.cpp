// Finding a port among the ten thousand of a monitor.

#include <benchmark/benchmark.h>
#include <windows.h>

#include <string>

#include "bench/limits.h"
#include "common/unique_handle.h"
#include "printerprops/port_discovery.h"
#include "tests/support/text.h"

namespace {

constexpr int kPorts = 10000;
constexpr LPCWSTR kPortsKey =
    TEXT("System\\CurrentControlSet\\Control\\Print\\Monitors\\Standard TCP/IP Port\\Ports");

tests::Text PortName(int number) {
    return tests::Wide("IP_127." + std::to_string(number / 65536) + "." +
                       std::to_string(number / 256 % 256) + "." + std::to_string(number % 256));
}

// Filling the store costs seconds: once for all benchmarks of the run.
void FillPorts() {
    static bool filled = false;
    if (filled) return;
    filled = true;
    oemui::UniqueKey ports;
    ::RegCreateKeyExW(HKEY_LOCAL_MACHINE, kPortsKey, 0, nullptr, 0, KEY_ALL_ACCESS, nullptr,
                      ports.Receive(), nullptr);
    for (int number = 0; number < kPorts; ++number) {
        oemui::UniqueKey port;
        ::RegCreateKeyExW(ports.Get(), PortName(number).c_str(), 0, nullptr, 0, KEY_ALL_ACCESS,
                          nullptr, port.Receive(), nullptr);
    }
    oemui::UniqueKey last;
    ::RegOpenKeyExW(ports.Get(), PortName(kPorts - 1).c_str(), 0, KEY_ALL_ACCESS, last.Receive());
    const WCHAR address[] = TEXT("127.0.0.9");
    ::RegSetValueExW(last.Get(), TEXT("IPAddress"), 0, REG_SZ,
                     reinterpret_cast<const BYTE*>(address), sizeof address);
}

// No port has this name: every key is looked at.
void FindAmongPorts(benchmark::State& state) {
    FillPorts();
    for (auto _ : state) {
        oemui::PrinterLink link{};
        benchmark::DoNotOptimize(oemui::FindPortInMonitor(TEXT("IP_missing"), kPortsKey,
                                                          TEXT("IPAddress"), nullptr, &link));
    }
}

void EnumeratePortsBare(benchmark::State& state) {
    FillPorts();
    for (auto _ : state) {
        oemui::UniqueKey ports;
        ::RegOpenKeyExW(HKEY_LOCAL_MACHINE, kPortsKey, 0, KEY_ALL_ACCESS, ports.Receive());
        WCHAR name[260];
        DWORD size = 260;
        for (DWORD index = 0; ::RegEnumKeyExW(ports.Get(), index, name, &size, nullptr, nullptr,
                                              nullptr, nullptr) == 0;
             ++index)
            size = 260;
        benchmark::DoNotOptimize(name);
    }
}

BENCHMARK(EnumeratePortsBare)->Unit(benchmark::kMillisecond);
BENCHMARK(FindAmongPorts)->Unit(benchmark::kMillisecond);

const bench::DeclareLimit find({"FindAmongPorts", "EnumeratePortsBare", 1.5});

}  // namespace
