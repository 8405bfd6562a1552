// Runs the benchmarks and holds each that has a limit against it.

#include <benchmark/benchmark.h>

#include <atomic>
#include <cstdio>
#include <cstdlib>
#include <map>
#include <new>
#include <string>
#include <vector>

#include "bench/limits.h"
#include "tests/support/test_machine.h"

namespace {

std::atomic<std::size_t> allocations = 0;

std::vector<bench::Limit>& Limits() {
    static std::vector<bench::Limit> limits;
    return limits;
}

class TimesReporter : public benchmark::ConsoleReporter {
public:
    void ReportRuns(const std::vector<Run>& runs) override {
        for (const Run& run : runs)
            if (run.run_type == Run::RT_Iteration)
                nanoseconds_[run.run_name.function_name] =
                    run.GetAdjustedRealTime() / benchmark::GetTimeUnitMultiplier(run.time_unit) *
                    1e9;
        ConsoleReporter::ReportRuns(runs);
    }

    // A benchmark left out by a filter is not held against anything.
    bool Check(const bench::Limit& limit) const {
        const auto measured = nanoseconds_.find(limit.name);
        if (measured == nanoseconds_.end()) return true;
        double figure = measured->second;
        if (limit.floor != nullptr) {
            const auto floor = nanoseconds_.find(limit.floor);
            if (floor == nanoseconds_.end()) return true;
            figure /= floor->second;
        }
        const bool holds = figure <= limit.most;
        std::printf("%-28s %10.2f %s, at most %.2f%s\n", limit.name, figure,
                    limit.floor != nullptr ? "times its floor" : "ns", limit.most,
                    holds ? "" : "   TOO SLOW");
        return holds;
    }

private:
    std::map<std::string, double> nanoseconds_;
};

}  // namespace

void* operator new(std::size_t size) {
    ++allocations;
    if (void* block = std::malloc(size)) return block;
    throw std::bad_alloc();
}
void operator delete(void* block) noexcept {
    std::free(block);
}
void operator delete(void* block, std::size_t) noexcept {
    std::free(block);
}

namespace bench {

DeclareLimit::DeclareLimit(Limit limit) {
    Limits().push_back(limit);
}

std::size_t Allocations() {
    return allocations;
}

}  // namespace bench

int main(int count, char** arguments) {
    const tests::TestMachine machine;
    benchmark::Initialize(&count, arguments);
    TimesReporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    bool holds = true;
    for (const bench::Limit& limit : Limits()) holds = reporter.Check(limit) && holds;
    return holds ? 0 : 1;
}
