// Building the document page of a printer whose list is stored already.

#include <benchmark/benchmark.h>
#include <windows.h>

#include <winspool.h>

#include "bench/limits.h"
#include "common/current_printer.h"
#include "common/unique_handle.h"
#include "docprops/document_items.h"
#include "host/driver/devmode.h"
#include "host/driver/models.h"
#include "host/driver/page_items.h"
#include "platform/base/heap.h"
#include "resources/resource_ids.h"
#include "tests/support/document_page.h"
#include "tests/support/plugin_fixture.h"
#include "tests/support/test_printer.h"
#include "watermark/watermark_list.h"

namespace {

constexpr std::size_t kPageHeapLimit = 8 * 1024;
constexpr int kItemsWithHelp = 4;
constexpr UINT kTexts[] = {IDS_SCALING,
                           IDS_WATERMARK,
                           IDS_ENABLED,
                           IDS_DISABLED,
                           IDS_EDIT,
                           IDS_OFF,
                           IDS_ON,
                           IDS_SATURATION,
                           IDS_PERCEPTUAL,
                           IDS_TRANSMIT_ONCE,
                           IDS_RENDERING_INTENT,
                           IDS_HELP_FILE_T,
                           IDS_HELP_FILE_T,
                           IDS_HELP_FILE_T,
                           IDS_HELP_FILE_T,
                           IDS_TRAY_2,
                           IDS_TRAY_3};

/// A printer and a page over the host's own items of the document page.
class BenchPage {
public:
    BenchPage()
        : opened_(oemui::OpenPrinterFor(printer_.Name().c_str(), PRINTER_ALL_ACCESS)),
          page_(printer_.Name()),
          devmode_(printer_.Name(), sizeof(oemui::PrivateDevmode)),
          items_(host::DocumentPageItems(opened_.Get(), *host::FindModel("T"), devmode_)) {
        tests::LoadPlugin();
        page_.MakeRoom();
    }

    LPCWSTR Name() const { return printer_.Name().c_str(); }

    OEMCUIPPARAM Params(HANDLE heap) {
        OEMCUIPPARAM params = page_.Params();
        params.hOEMHeap = heap;
        params.pDrvOptItems = items_.Records().data();
        params.cDrvOptItems = static_cast<DWORD>(items_.Records().size());
        return params;
    }

private:
    tests::TestPrinter printer_{TEXT("Bench")};
    oemui::UniquePrinter opened_;
    tests::DocumentPage page_;
    host::Devmode devmode_;
    host::OptionItems items_;
};

void BuildDocumentPage(benchmark::State& state) {
    BenchPage page;
    std::size_t heapBytes = 0;
    for (auto _ : state) {
        const HANDLE heap = ::HeapCreate(0, 0, 0);
        OEMCUIPPARAM params = page.Params(heap);
        oemui::BuildDocumentItems(OEMCUIP_DOCPROP, &params);
        heapBytes = platform::HeapBytes(heap);
        ::HeapDestroy(heap);
    }
    state.counters["heap"] = static_cast<double>(heapBytes);
    if (heapBytes > kPageHeapLimit) state.SkipWithError("the page takes more than 8 KiB of heap");
}

void QueryDriverPath(HANDLE printer) {
    DWORD needed = 0;
    ::GetPrinterDriverW(printer, nullptr, 2, nullptr, 0, &needed);
    BYTE info[4096];
    ::GetPrinterDriverW(printer, nullptr, 2, info, sizeof info, &needed);
    benchmark::DoNotOptimize(info);
}

void DocumentPageCallsBare(benchmark::State& state) {
    BenchPage page;
    const HANDLE module = ::GetModuleHandleW(nullptr);
    WCHAR value[] = TEXT("WaterMarkList");
    for (auto _ : state) {
        const HANDLE heap = ::HeapCreate(0, 0, 0);
        const oemui::UniquePrinter printer = oemui::OpenPrinterFor(page.Name(), PRINTER_ALL_ACCESS);
        oemui::WatermarkList list;
        DWORD needed = 0;
        ::GetPrinterDataW(printer.Get(), value, nullptr, reinterpret_cast<BYTE*>(&list),
                          sizeof list, &needed);
        for (int item = 0; item < kItemsWithHelp; ++item) QueryDriverPath(printer.Get());
        for (const UINT text : kTexts) {
            WCHAR characters[260];
            ::LoadStringW(static_cast<HINSTANCE>(module), text, characters, 260);
            benchmark::DoNotOptimize(characters);
        }
        ::HeapDestroy(heap);
        benchmark::DoNotOptimize(list);
    }
}

BENCHMARK(DocumentPageCallsBare)->Unit(benchmark::kMicrosecond);
BENCHMARK(BuildDocumentPage)->Unit(benchmark::kMicrosecond);

const bench::DeclareLimit build({"BuildDocumentPage", "DocumentPageCallsBare", 2.0});

}  // namespace
