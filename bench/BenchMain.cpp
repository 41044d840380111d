// The performance bench. Without arguments it checks that the module and the plain
// reference agree bit for bit, times every case with Google Benchmark (its flags apply)
// and prints each case's time per stereo frame beside its ratio to its baseline. The
// repetitions of all cases run interleaved in random order and the summary takes each
// case's fastest repetition: on a shared machine other work only ever slows a run down, so
// the fastest is the least disturbed, and interleaving spreads slow phases over all cases.
//
//   zephyra_bench --cases                 lists the case names
//   zephyra_bench --count CASE FRAMES     runs one case for about FRAMES frames inside
//                                         CountedRun, for valgrind --tool=callgrind
//                                         --toggle-collect='*CountedRun*'
#include "bench/Workloads.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <map>
#include <string>

namespace {

std::string ModulePath() {
    const char* path = std::getenv("ZEPHYRA_BENCH_MODULE");
    return path != nullptr ? path : ZEPHYRA_MODULE_PATH;
}

void TimeCase(benchmark::State& state, const BenchCase& benchCase) {
    const std::unique_ptr<Workload> workload = benchCase.make();
    workload->Run(); // caches, lazy set-up
    for (auto _ : state) {
        if (workload->HasPrelude()) {
            state.PauseTiming();
            workload->Prelude();
            state.ResumeTiming();
        }
        workload->Run();
    }
    state.counters["per_frame"] = benchmark::Counter(static_cast<double>(workload->FramesPerRun()),
                                                     benchmark::Counter::kIsIterationInvariantRate |
                                                         benchmark::Counter::kInvert);
}

// Prints as usual and keeps each case's median time per frame for the summary.
class SummaryReporter : public benchmark::ConsoleReporter {
public:
    void ReportRuns(const std::vector<Run>& runs) override {
        ConsoleReporter::ReportRuns(runs);
        for (const Run& run : runs) {
            if (run.run_type != Run::RT_Aggregate || run.aggregate_name != "min") {
                continue;
            }
            // With the rate and invert flags the counter is seconds per frame.
            const double secondsPerFrame = run.counters.at("per_frame").value;
            m_nsPerFrame[run.run_name.function_name] = secondsPerFrame * 1e9;
        }
    }

    void PrintSummary(const std::vector<BenchCase>& cases) const {
        std::printf("\n%-28s %12s   %s\n", "case", "ns/frame", "ratio");
        for (const BenchCase& c : cases) {
            const auto found = m_nsPerFrame.find(c.name);
            if (found == m_nsPerFrame.end()) {
                continue;
            }
            std::printf("%-28s %12.3f", c.name.c_str(), found->second);
            const auto base = m_nsPerFrame.find(c.baseline);
            if (base != m_nsPerFrame.end()) {
                std::printf("   %6.2fx %s", found->second / base->second, c.baseline.c_str());
            }
            std::printf("\n");
        }
    }

private:
    std::map<std::string, double> m_nsPerFrame;
};

// Kept out of line and named so that callgrind can count exactly this.
[[gnu::noinline]] void CountedRun(Workload& workload, long long frames) {
    for (long long done = 0; done < frames; done += workload.FramesPerRun()) {
        workload.Run();
    }
}

int CountInstructions(const std::vector<BenchCase>& cases, const std::string& name,
                      long long frames) {
    for (const BenchCase& c : cases) {
        if (c.name == name) {
            const std::unique_ptr<Workload> workload = c.make();
            workload->Run();
            if (workload->HasPrelude()) {
                workload->Prelude();
            }
            const long long runs =
                (frames + workload->FramesPerRun() - 1) / workload->FramesPerRun();
            CountedRun(*workload, frames);
            std::printf("%s: %lld frames counted\n", name.c_str(),
                        runs * static_cast<long long>(workload->FramesPerRun()));
            return 0;
        }
    }
    std::fprintf(stderr, "no case named %s\n", name.c_str());
    return 2;
}

} // namespace

int main(int argc, char** argv) {
    const std::string module = ModulePath();
    const std::vector<BenchCase> cases = BenchCases(module);
    if (argc == 2 && std::string(argv[1]) == "--cases") {
        for (const BenchCase& c : cases) {
            std::printf("%s\n", c.name.c_str());
        }
        return 0;
    }
    if (argc == 4 && std::string(argv[1]) == "--count") {
        return CountInstructions(cases, argv[2], std::atoll(argv[3]));
    }

    std::string mismatch;
    if (!ModuleMatchesPlainReference(module, &mismatch)) {
        std::fprintf(stderr, "%s\n", mismatch.c_str());
        return 1;
    }
    for (const BenchCase& c : cases) {
        benchmark::RegisterBenchmark(c.name.c_str(), TimeCase, c)
            ->Repetitions(7)
            ->ReportAggregatesOnly(true)
            ->ComputeStatistics(
                "min",
                [](const std::vector<double>& v) { return *std::min_element(v.begin(), v.end()); })
            ->MinTime(0.05);
    }
    std::vector<char*> arguments(argv, argv + argc);
    char interleave[] = "--benchmark_enable_random_interleaving=true";
    arguments.insert(arguments.begin() + 1, interleave);
    int count = static_cast<int>(arguments.size());
    benchmark::Initialize(&count, arguments.data());
    SummaryReporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    reporter.PrintSummary(cases);
    benchmark::Shutdown();
    return 0;
}
