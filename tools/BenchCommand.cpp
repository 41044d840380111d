#include "tools/Commands.h"
#include "tools/PluginRack.h"
#include "tools/RackBenchmark.h"
#include "tools/ResultStream.h"
#include "tools/ToolError.h"

#include <cmath>
#include <cstdio>
#include <memory>
#include <string>

namespace {

constexpr long kDefaultSampleRate = 48000;
constexpr double kDefaultSeconds = 5.0;
constexpr long kDefaultRepetitions = 5;
// The noise is stereo: a mono plug-in runs as two instances, as it would on a stereo track.
constexpr int kBenchChannels = 2;

struct Contender {
    std::string path;
    std::unique_ptr<PluginRack> rack;
    std::unique_ptr<RackBenchmark> benchmark;
    std::vector<double> timings;
};

std::string describe(Contender& contender) {
    std::string name = contender.rack->front().text(effGetEffectName);
    if (name.empty()) {
        name = contender.path;
    }
    const int instances = contender.rack->instanceCount();
    return name + " (" + contender.path + "), " + std::to_string(instances) +
           (instances == 1 ? " instance" : " instances, one per channel");
}

void report(Contender& contender, int rate) {
    const TimingSummary summary = summarise(contender.timings);
    const double realtimeFactor = 1e9 / rate / summary.medianNanoseconds;
    std::FILE* out = results();
    std::fprintf(out, "%s\n", describe(contender).c_str());
    std::fprintf(out, "  ns per stereo frame  median %.2f, min %.2f\n", summary.medianNanoseconds,
                 summary.minimumNanoseconds);
    std::fprintf(out, "  realtime factor      %.1fx\n", realtimeFactor);
    std::fprintf(out, "  instances per core   %.0f\n", std::floor(realtimeFactor));
}

int runBench(const CommandLine& commandLine, const ToolContext& context) {
    if (!commandLine.positionals().empty()) {
        throw UsageError("bench takes no arguments");
    }
    const int blockSize = readBlockSize(commandLine);
    const bool useDouble = commandLine.has("double");
    const int rate =
        static_cast<int>(commandLine.integer("rate", kDefaultSampleRate, 8000, 384000));
    const double seconds = commandLine.number("seconds", kDefaultSeconds, 0.001, 3600.0);
    const int repetitions =
        static_cast<int>(commandLine.integer("repeat", kDefaultRepetitions, 1, 1000));
    const PluginSettings settings = readSettings(commandLine);
    const int64_t framesPerRun = std::max<int64_t>(1, std::llround(seconds * rate));

    std::vector<Contender> contenders(commandLine.has("compare") ? 2 : 1);
    contenders[0].path = context.pluginPath();
    if (contenders.size() == 2) {
        contenders[1].path = commandLine.text("compare");
    }
    for (std::size_t i = 0; i < contenders.size(); ++i) {
        Contender& contender = contenders[i];
        // Settings name the main plug-in's parameters; the other one runs as it starts.
        contender.rack =
            std::make_unique<PluginRack>(PluginModule::load(contender.path), kBenchChannels, rate,
                                         blockSize, i == 0 ? settings : PluginSettings{});
        if (useDouble && !contender.rack->canProcessDouble()) {
            throw ToolError(contender.path + " has no 64-bit process call; bench without "
                                             "--double");
        }
        contender.benchmark = std::make_unique<RackBenchmark>(*contender.rack, rate, blockSize,
                                                              useDouble, framesPerRun);
        contender.benchmark->run(); // warm caches and any lazy set-up first
    }

    // Alternating, and swapping the order every round, spreads slow phases of the machine
    // over both plug-ins alike.
    for (int round = 0; round < repetitions; ++round) {
        for (std::size_t i = 0; i < contenders.size(); ++i) {
            Contender& contender = contenders[round % 2 == 0 ? i : contenders.size() - 1 - i];
            contender.timings.push_back(contender.benchmark->run());
        }
    }

    std::fprintf(results(), "%d Hz, block %d, %s samples, %d runs of %.3f s of noise\n", rate,
                 blockSize, useDouble ? "64-bit" : "32-bit", repetitions,
                 static_cast<double>(framesPerRun) / rate);
    for (Contender& contender : contenders) {
        report(contender, rate);
    }
    if (contenders.size() == 2) {
        const double ratio = summarise(contenders[1].timings).medianNanoseconds /
                             summarise(contenders[0].timings).medianNanoseconds;
        std::fprintf(results(), "ratio (compared / main, median time per frame): %.3f\n", ratio);
    }
    return 0;
}

} // namespace

Command benchCommand() {
    std::vector<OptionDefinition> options = processingOptions();
    options.push_back({"rate", "HZ", "sample rate (48000)"});
    options.push_back({"seconds", "S", "noise processed per run (5)"});
    options.push_back({"repeat", "N", "runs per plug-in (5)"});
    options.push_back({"compare", "OTHER.so",
                       "time another plug-in alternately and print the "
                       "ratio"});
    return {"bench", "", "time the plug-in on stereo noise: ns per frame, realtime factor", options,
            runBench};
}
