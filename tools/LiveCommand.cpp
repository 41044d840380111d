// zephyra live: the plug-in on live audio through a JACK server, with its editor.
#include "tools/Commands.h"
#include "tools/HostedEditor.h"
#include "tools/JackClient.h"
#include "tools/LiveEngine.h"
#include "tools/PluginInstance.h"
#include "tools/PluginSettings.h"
#include "tools/ResultStream.h"
#include "tools/ToolError.h"

#include <atomic>
#include <chrono>
#include <csignal>
#include <memory>
#include <thread>

namespace {

constexpr auto kIdlePeriod = std::chrono::milliseconds(33); // about 30 Hz, as hosts idle

std::atomic<bool> g_interrupted{false};

extern "C" void onInterrupt(int) {
    g_interrupted = true;
}

void processLive(void* engine, const float* const* inputs, float* const* outputs, int frames) {
    static_cast<LiveEngine*>(engine)->process(inputs, outputs, frames);
}

// A JACK client name from the plug-in's: printable, without the ':' that separates a
// client from its port.
std::string clientName(std::string name) {
    for (char& c : name) {
        if (c == ':' || static_cast<unsigned char>(c) < 0x20) {
            c = '_';
        }
    }
    return name.empty() ? "zephyra" : name.substr(0, 48);
}

int runLive(const CommandLine& commandLine, const ToolContext& context) {
    if (!commandLine.positionals().empty()) {
        throw UsageError("live takes no arguments");
    }
    const bool timed = commandLine.has("seconds");
    const double seconds = commandLine.number("seconds", 0.0, 0.0, 86400.0);
    const bool withEditor = !commandLine.has("no-editor");
    const PluginSettings settings = readSettings(commandLine);
    auto module = PluginModule::load(context.pluginPath());

    // The server first: its rate and buffer size are the plug-in's.
    const std::string moduleName = module->path().substr(module->path().rfind('/') + 1);
    JackClient jack(clientName(moduleName.substr(0, moduleName.rfind('.'))));
    PluginInstance plugin(module, jack.sampleRate(), jack.bufferSize());
    applySettings(plugin, settings);
    LiveEngine engine(plugin, jack.sampleRate(), jack.bufferSize());
    std::unique_ptr<HostedEditor> editor;
    if (withEditor) {
        std::string title = plugin.text(effGetEffectName);
        editor = std::make_unique<HostedEditor>(plugin, title.empty() ? jack.name() : title);
    }

    g_interrupted = false;
    std::signal(SIGINT, onInterrupt);
    std::signal(SIGTERM, onInterrupt);
    jack.activate(processLive, &engine);
    if (commandLine.has("connect")) {
        jack.connectToSystem();
    }
    std::fprintf(results(), "running as JACK client %s at %.0f Hz, %d frames a block\n",
                 jack.name().c_str(), jack.sampleRate(), jack.bufferSize());
    std::fflush(results());

    const auto start = std::chrono::steady_clock::now();
    const auto elapsed = [&start] {
        return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
    };
    while (!g_interrupted && !jack.shutDown() && (!timed || elapsed() < seconds)) {
        if (editor && !editor->handleEvents()) {
            break;
        }
        if (jack.takeChange()) {
            engine.reconfigure(jack.sampleRate(), jack.bufferSize());
        }
        if (editor) {
            editor->idle();
        }
        std::this_thread::sleep_for(kIdlePeriod);
    }
    // The audio stops before the editor and the plug-in go.
    jack.deactivate();
    editor.reset();
    std::signal(SIGINT, SIG_DFL);
    std::signal(SIGTERM, SIG_DFL);

    std::fprintf(results(), "frames processed: %llu\nxruns: %llu\npeak callback load: %.1f %%\n",
                 static_cast<unsigned long long>(engine.framesProcessed()),
                 static_cast<unsigned long long>(jack.xruns()), 100.0 * engine.peakLoad());
    if (jack.shutDown()) {
        throw ToolError("the JACK server shut the client down");
    }
    return 0;
}

} // namespace

Command liveCommand() {
    std::vector<OptionDefinition> options = settingsOptions();
    options.push_back({"connect", nullptr, "connect to the system's capture and playback ports"});
    options.push_back({"no-editor", nullptr, "run without opening the plug-in's editor"});
    options.push_back(
        {"seconds", "S", "stop after S seconds (default: when the editor is closed or on Ctrl-C)"});
    return {"live", "", "run the plug-in on live audio as a JACK client", options, runLive};
}
