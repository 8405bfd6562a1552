// The private devmode block, the lines of the default file and the printer's reply.

#include <benchmark/benchmark.h>
#include <windows.h>

#include <cstring>
#include <string>

#include "bench/limits.h"
#include "devmode/private_devmode.h"
#include "printerprops/pjl_query.h"
#include "watermark/watermark_codec.h"

namespace {

void MergeDevmode(benchmark::State& state) {
    oemui::PrivateDevmode in{};
    oemui::PrivateDevmode out{};
    OEMDMPARAM params{};
    params.pOEMDMOut = &in;
    oemui::HandleDevMode(OEMDM_DEFAULT, &params);
    out = in;
    params.pOEMDMIn = &in;
    params.pOEMDMOut = &out;
    for (auto _ : state) {
        oemui::HandleDevMode(OEMDM_MERGE, &params);
        benchmark::DoNotOptimize(out);
    }
}

// Behind a call, as the operation is.
[[gnu::noinline]] void CopyBlock(oemui::PrivateDevmode* out, const oemui::PrivateDevmode* in) {
    std::memmove(out, in, sizeof *out);
    benchmark::ClobberMemory();
}

void CopyDevmodeBare(benchmark::State& state) {
    oemui::PrivateDevmode in{};
    oemui::PrivateDevmode out{};
    for (auto _ : state) {
        CopyBlock(&out, &in);
        benchmark::DoNotOptimize(out);
    }
}

void DecodeDefaultLine(benchmark::State& state) {
    const oemui::TextView line =
        TEXT("1,Confidential,CONFIDENTIAL,Times New Roman,72,1,0,255,128,64,3,180,1,999,999");
    oemui::WatermarkRecord record{};
    const std::size_t before = bench::Allocations();
    for (auto _ : state) {
        oemui::ParseDefaultWatermarkLine(line, &record);
        benchmark::DoNotOptimize(record);
    }
    if (bench::Allocations() != before) state.SkipWithError("decoding a line allocates");
}

void ParseReply(benchmark::State& state) {
    std::string reply = "@PJL INFO CONFIG\r\n";
    while (reply.size() < oemui::kReplyCapacity - 40) reply += "\tOPTION=NONE\r\n";
    reply += "DUPLEX=INSTALLED\r\n\f";
    reply.resize(oemui::kReplyCapacity, ' ');
    const std::size_t before = bench::Allocations();
    for (auto _ : state) {
        benchmark::DoNotOptimize(oemui::ParseInstalledOptions(reply));
    }
    if (bench::Allocations() != before) state.SkipWithError("parsing a reply allocates");
}

BENCHMARK(CopyDevmodeBare);
BENCHMARK(MergeDevmode);
BENCHMARK(DecodeDefaultLine);
BENCHMARK(ParseReply);

const bench::DeclareLimit merge({"MergeDevmode", "CopyDevmodeBare", 3.0});
const bench::DeclareLimit decode({"DecodeDefaultLine", nullptr, 2000.0});
const bench::DeclareLimit parse({"ParseReply", nullptr, 5000.0});

}  // namespace
