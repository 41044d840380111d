#include "tools/Commands.h"
#include "tools/HostedEditor.h"
#include "tools/PendingOutput.h"
#include "tools/PluginInstance.h"
#include "tools/PluginSettings.h"
#include "tools/PngFile.h"
#include "tools/ResultStream.h"
#include "tools/ToolError.h"

#include <chrono>
#include <cstdlib>
#include <memory>
#include <thread>

namespace {

void setScaleForPlugin(const std::string& scale) {
#ifdef _WIN32
    _putenv_s("ZEPHYRA_SCALE", scale.c_str());
#else
    setenv("ZEPHYRA_SCALE", scale.c_str(), 1);
#endif
}

constexpr double kSampleRate = 48000.0;
constexpr int kBlockSize = 512;
constexpr auto kIdlePeriod = std::chrono::milliseconds(33); // about 30 Hz, as hosts idle
constexpr double kSmallestScale = 1.0;
constexpr double kLargestScale = 4.0;

int runEditor(const CommandLine& commandLine, const ToolContext& context) {
    if (!commandLine.positionals().empty()) {
        throw UsageError("editor takes no arguments");
    }
    const bool timed = commandLine.has("seconds");
    const double seconds = commandLine.number("seconds", 0.0, 0.0, 86400.0);
    const PluginSettings settings = readSettings(commandLine);
    std::unique_ptr<PendingOutput> screenshot;
    if (commandLine.has("screenshot")) {
        screenshot = std::make_unique<PendingOutput>(commandLine.text("screenshot"));
    }
    if (commandLine.has("scale")) {
        // The plug-in is a module of its own: the scale reaches it as the variable its
        // editor reads, before the module is loaded.
        const double scale = commandLine.number("scale", 1.0, kSmallestScale, kLargestScale);
        setScaleForPlugin(std::to_string(scale));
    }

    PluginInstance plugin(PluginModule::load(context.pluginPath()), kSampleRate, kBlockSize);
    plugin.resume();
    applySettings(plugin, settings);
    std::string name = plugin.text(effGetEffectName);
    if (name.empty()) {
        name = plugin.module().path();
    }
    HostedEditor editor(plugin, name);

    const auto start = std::chrono::steady_clock::now();
    const auto elapsed = [&start] {
        return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
    };
    while (editor.handleEvents() && (!timed || elapsed() < seconds)) {
        editor.idle();
        std::this_thread::sleep_for(kIdlePeriod);
    }
    editor.idle();

    if (screenshot) {
        writePng(editor.capture().get(), *screenshot);
        screenshot->commit();
        std::fprintf(results(), "wrote %s\n", screenshot->path().c_str());
    }
    return 0;
}

} // namespace

Command editorCommand() {
    std::vector<OptionDefinition> options = settingsOptions();
    options.push_back({"seconds", "S",
                       "close the editor after S seconds (default: when the "
                       "window is closed)"});
    options.push_back({"screenshot", "FILE.png", "save the editor's pixels before it closes"});
    options.push_back({"scale", "S",
                       "draw the editor at S device pixels per pixel, 1 to 4 (sets "
                       "ZEPHYRA_SCALE; default: the desktop's scale)"});
    return {"editor", "", "open the plug-in's editor in a window of its own", options, runEditor};
}
