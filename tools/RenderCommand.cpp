#include "tools/AudioFile.h"
#include "tools/Commands.h"
#include "tools/DemoSignal.h"
#include "tools/PendingOutput.h"
#include "tools/PluginRack.h"
#include "tools/ProgressBar.h"
#include "tools/ResultStream.h"
#include "tools/StreamRenderer.h"
#include "tools/ToolError.h"

#include <cmath>
#include <memory>
#include <optional>

namespace {

constexpr int kDemoSampleRate = 48000;

// The fixed tail in seconds, or nothing for the automatic one.
std::optional<double> readTailSeconds(const CommandLine& commandLine) {
    const std::string text = commandLine.text("tail", "auto");
    if (text == "auto") {
        return std::nullopt;
    }
    constexpr double kLongestFixedTail = 600.0;
    double seconds = 0.0;
    if (!parseNumber(text, seconds) || seconds < 0.0 || seconds > kLongestFixedTail) {
        throw UsageError("--tail needs 'auto' or seconds from 0 to 600, not '" + text + "'");
    }
    return seconds;
}

int runRender(const CommandLine& commandLine, const ToolContext& context) {
    const bool demo = commandLine.has("demo");
    const std::vector<std::string>& arguments = commandLine.positionals();
    if (demo && arguments.size() != 1) {
        throw UsageError("render --demo needs one argument: OUT");
    }
    if (!demo && arguments.size() != 2) {
        throw UsageError("render needs two arguments: IN OUT (or --demo OUT)");
    }
    if (!demo && commandLine.has("rate")) {
        throw UsageError("--rate applies to --demo only; a file keeps its own rate");
    }
    const std::string outputPath = arguments.back();
    const int blockSize = readBlockSize(commandLine);
    const bool useDouble = commandLine.has("double");
    const std::optional<double> tailSeconds = readTailSeconds(commandLine);
    const PluginSettings settings = readSettings(commandLine);

    std::unique_ptr<SignalSource> source;
    int inputFormat = floatWavFormat();
    if (demo) {
        source = std::make_unique<DemoSignal>(
            static_cast<int>(commandLine.integer("rate", kDemoSampleRate, 8000, 384000)));
    } else {
        auto reader = std::make_unique<AudioFileReader>(arguments[0]);
        inputFormat = reader->format();
        source = std::move(reader);
    }
    const int rate = source->sampleRate();

    PendingOutput output(outputPath);
    PluginRack rack(PluginModule::load(context.pluginPath()), source->channels(), rate, blockSize,
                    settings);
    if (useDouble && !rack.canProcessDouble()) {
        throw ToolError("the plug-in has no 64-bit process call; render without --double");
    }
    const int format = chooseOutputFormat(outputPath, inputFormat, rack.outputChannels(), rate);
    AudioFileWriter writer(output.temporaryPath(), outputPath, format, rack.outputChannels(), rate);

    TailPolicy tail;
    if (tailSeconds) {
        tail.fixedFrames = std::llround(*tailSeconds * rate);
    }
    int64_t frames = 0;
    {
        ProgressBar progress("render", source->frames());
        frames = renderStream(
            *source, rack, blockSize, useDouble, tail,
            [&writer](const double* interleaved, int64_t count) {
                writer.write(interleaved, count);
            },
            [&progress](int64_t consumed) { progress.update(consumed); });
    }
    writer.close();
    output.commit();
    std::fprintf(results(), "wrote %s: %.3f s, %d channels, %d Hz\n", outputPath.c_str(),
                 static_cast<double>(frames) / rate, rack.outputChannels(), rate);
    return 0;
}

} // namespace

Command renderCommand() {
    std::vector<OptionDefinition> options = processingOptions();
    options.push_back({"demo", nullptr, "process the built-in demo signal instead of IN"});
    options.push_back({"rate", "HZ", "sample rate of the demo signal (48000)"});
    options.push_back({"tail", "SECONDS",
                       "silence processed after the input, or 'auto' (until "
                       "the output falls silent; the default)"});
    return {"render", "IN OUT | --demo OUT",
            "process an audio file (or the demo signal) into OUT; the format follows OUT's "
            "extension",
            options, runRender};
}
