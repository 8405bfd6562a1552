// Asking a printer that answers at once, beside the waiting that the exchange prescribes.

#include <benchmark/benchmark.h>
#include <windows.h>

#include <winsock.h>

#include "bench/limits.h"
#include "printerprops/pjl_query.h"
#include "tests/support/loopback_printer.h"
#include "tests/support/text.h"

namespace {

constexpr int kQuestions = 8;
constexpr DWORD kPauseBeforeReading = 250;  // milliseconds

void AskPrinterDirectly(benchmark::State& state) {
    const tests::LoopbackPrinter::Answer answer = {
        "@PJL INFO CONFIG\r\n\tTRAY2=INSTALLED\r\n\tDUPLEX=INSTALLED\r\n\f"};
    tests::LoopbackPrinter printer({kQuestions, answer});
    oemui::PrinterLink link{};
    link.Found = 1;
    link.Kind = oemui::PortKindShare;
    static_cast<void>(oemui::ResolveHost(tests::Wide(printer.Address()).c_str(), &link.Address));
    for (auto _ : state) {
        const auto installed = oemui::QueryInstalledOptions(TEXT("Bench"), link);
        if (!installed || installed->Tray3) {
            state.SkipWithError("the printer's answer was not understood");
        }
    }
}

void PauseBare(benchmark::State& state) {
    for (auto _ : state) ::Sleep(kPauseBeforeReading);
}

BENCHMARK(PauseBare)->Unit(benchmark::kMillisecond)->Iterations(kQuestions)->UseRealTime();
BENCHMARK(AskPrinterDirectly)->Unit(benchmark::kMillisecond)->Iterations(kQuestions)->UseRealTime();

const bench::DeclareLimit ask({"AskPrinterDirectly", "PauseBare", 1.1});

}  // namespace
