#include "tools/Commands.h"
#include "tools/PendingOutput.h"
#include "tools/PluginRack.h"
#include "tools/PngFile.h"
#include "tools/ResponsePlot.h"
#include "tools/ResultStream.h"
#include "tools/ToolError.h"

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <memory>

namespace {

constexpr long kDefaultSampleRate = 48000;
constexpr int kPoints = 1000;

PlotLayout readLayout(const CommandLine& commandLine) {
    PlotLayout layout;
    layout.showPhase = commandLine.has("phase");
    if (commandLine.has("size")) {
        const std::string size = commandLine.text("size");
        int width = 0;
        int height = 0;
        char rest = '\0';
        if (std::sscanf(size.c_str(), "%dx%d%c", &width, &height, &rest) != 2 || width < 320 ||
            height < 200 || width > 8000 || height > 8000) {
            throw UsageError("--size needs WIDTHxHEIGHT from 320x200 to 8000x8000, not '" + size +
                             "'");
        }
        layout.width = width;
        layout.height = height;
    }
    return layout;
}

std::string settingsSummary(const PluginSettings& settings, PluginInstance& plugin, int rate) {
    std::string summary = std::to_string(rate) + " Hz";
    if (settings.bank) {
        summary += "; bank " + settings.bankPath;
    }
    if (settings.program) {
        summary += "; program " + std::to_string(*settings.program) + " '" +
                   plugin.text(effGetProgramName) + "'";
    }
    for (const std::string& assignment : settings.assignments) {
        summary += "; " + assignment;
    }
    return summary;
}

void writeCsv(const MeasuredResponse& response, const PendingOutput& output) {
    std::unique_ptr<std::FILE, int (*)(std::FILE*)> file(
        std::fopen(output.temporaryPath().c_str(), "w"), std::fclose);
    if (!file) {
        throw ToolError("cannot write " + output.path() + ": " + std::strerror(errno));
    }
    std::fprintf(file.get(), "frequency_hz,magnitude_db,phase_degrees\n");
    for (std::size_t i = 0; i < response.frequencies.size(); ++i) {
        std::fprintf(file.get(), "%.6f,%.6f,%.4f\n", response.frequencies[i],
                     response.magnitudeDb[i], response.phaseDegrees[i]);
    }
    if (std::fclose(file.release()) != 0) {
        throw ToolError("cannot write " + output.path() + ": " + std::strerror(errno));
    }
}

int runPlot(const CommandLine& commandLine, const ToolContext& context) {
    if (commandLine.positionals().size() != 1) {
        throw UsageError("plot needs one argument: OUT.png");
    }
    const std::string outputPath = commandLine.positionals()[0];
    PlotLayout layout = readLayout(commandLine);
    const int blockSize = readBlockSize(commandLine);
    const bool useDouble = commandLine.has("double");
    const int rate =
        static_cast<int>(commandLine.integer("rate", kDefaultSampleRate, 8000, 384000));
    const PluginSettings settings = readSettings(commandLine);

    PendingOutput picture(outputPath);
    std::unique_ptr<PendingOutput> table;
    if (commandLine.has("csv")) {
        table = std::make_unique<PendingOutput>(commandLine.text("csv"));
    }
    PluginRack rack(PluginModule::load(context.pluginPath()), 1, rate, blockSize, settings);
    if (useDouble && !rack.canProcessDouble()) {
        throw ToolError("the plug-in has no 64-bit process call; plot without --double");
    }
    // Above 95 % of the Nyquist frequency there is nothing left worth drawing.
    const double highest = std::min(20000.0, 0.475 * rate);
    const MeasuredResponse response = measureResponse(
        rack, rate, blockSize, useDouble, logarithmicFrequencies(20.0, highest, kPoints));

    std::string name = rack.front().text(effGetEffectName);
    if (name.empty()) {
        name = rack.front().module().path();
    }
    layout.title = name + ": frequency response";
    layout.subtitle = settingsSummary(settings, rack.front(), rate);
    writePng(drawResponsePlot(response, layout).get(), picture);
    if (table) {
        writeCsv(response, *table);
        table->commit();
    }
    picture.commit();
    std::fprintf(results(), "wrote %s%s%s\n", outputPath.c_str(), table ? " and " : "",
                 table ? table->path().c_str() : "");
    return 0;
}

} // namespace

Command plotCommand() {
    std::vector<OptionDefinition> options = processingOptions();
    options.push_back({"rate", "HZ", "sample rate to measure at (48000)"});
    options.push_back({"phase", nullptr, "draw the phase as well"});
    options.push_back({"size", "WxH", "picture size in pixels (900x500)"});
    options.push_back({"csv", "FILE", "also write the measured points as CSV"});
    return {"plot", "OUT.png",
            "measure the magnitude response with an impulse and draw it from 20 Hz to 20 kHz",
            options, runPlot};
}
