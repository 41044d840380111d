// zephyra: a command-line host for VST 2.4 plug-ins. It renders audio through a plug-in,
// plots its response, measures its speed, opens its editor and runs it on live audio.
#include "tools/Commands.h"
#include "tools/ModuleLoader.h"
#include "tools/ProgramArguments.h"
#include "tools/ResultStream.h"
#include "tools/ToolError.h"

#include <cstdio>
#include <exception>
#include <string>
#include <vector>

namespace {

constexpr int kExitFailure = 1;
constexpr int kExitUsage = 2;

std::vector<Command> allCommands() {
#ifdef _WIN32
    // Plots need FFTW and live audio JACK, which the Windows build does not have.
    return {infoCommand(), renderCommand(), benchCommand(), editorCommand()};
#else
    return {infoCommand(),  renderCommand(), plotCommand(),
            benchCommand(), editorCommand(), liveCommand()};
#endif
}

void printOptions(std::FILE* out, const std::vector<OptionDefinition>& options) {
    for (const OptionDefinition& option : options) {
        std::string name = std::string("--") + option.name;
        if (option.valueName != nullptr) {
            name += std::string(" ") + option.valueName;
        }
        std::fprintf(out, "      %-22s %s\n", name.c_str(), option.help);
    }
}

void printUsage(std::FILE* out) {
    const std::string name = module_loader::kDefaultModuleName;
    const std::string userFolder =
        module_loader::UserPluginFolder().empty() ? std::string() : ", else ~/.vst/" + name;
    std::fprintf(out,
                 "usage: zephyra [--plugin PATH] COMMAND [ARGUMENTS] [OPTIONS]\n\n"
                 "The plug-in is PATH, else %s beside this program%s.\n\n",
                 name.c_str(), userFolder.c_str());
    for (const Command& command : allCommands()) {
        const std::string synopsis =
            std::string(command.name) + (*command.arguments ? " " : "") + command.arguments;
        std::fprintf(out, "  %s\n      %s\n", synopsis.c_str(), command.summary);
        printOptions(out, command.options);
        std::fputc('\n', out);
    }
}

// Takes `--plugin PATH` out of the arguments wherever it stands.
std::string extractPluginOption(std::vector<std::string>& arguments) {
    std::string plugin;
    std::vector<std::string> rest;
    for (std::size_t i = 0; i < arguments.size(); ++i) {
        if (arguments[i] == "--plugin") {
            if (i + 1 == arguments.size()) {
                throw UsageError("option --plugin needs a value (PATH)");
            }
            plugin = arguments[++i];
        } else if (arguments[i].rfind("--plugin=", 0) == 0) {
            plugin = arguments[i].substr(9);
        } else {
            rest.push_back(arguments[i]);
        }
    }
    arguments = rest;
    return plugin;
}

int run(std::vector<std::string> arguments) {
    const std::string plugin = extractPluginOption(arguments);
    if (arguments.empty()) {
        printUsage(stderr);
        return kExitUsage;
    }
    if (arguments[0] == "--help" || arguments[0] == "-h" || arguments[0] == "help") {
        printUsage(results());
        return 0;
    }
    for (const Command& command : allCommands()) {
        if (arguments[0] == command.name) {
            const CommandLine commandLine(
                std::vector<std::string>(arguments.begin() + 1, arguments.end()), command.options);
            return command.run(commandLine, ToolContext(plugin));
        }
    }
    throw UsageError("unknown command '" + arguments[0] + "' (zephyra --help lists them)");
}

} // namespace

int main(int argc, char** argv) {
    reserveStdoutForResults();
    int status = kExitFailure;
    try {
        status = run(programArguments(argc, argv));
    } catch (const UsageError& error) {
        std::fprintf(stderr, "zephyra: %s\n", error.what());
        status = kExitUsage;
    } catch (const std::exception& error) {
        std::fprintf(stderr, "zephyra: %s\n", error.what());
    }
    std::fflush(results());
    return status;
}
