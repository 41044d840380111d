#include "tests/editor/DesktopDriver.h"

#include <cstdio>
#include <cstdlib>
#include <thread>

namespace {

using Clock = std::chrono::steady_clock;
constexpr auto kPollPeriod = std::chrono::milliseconds(100);

std::string FirstWindow(const std::string& searchArguments) {
    const std::string found =
        CommandOutput("xdotool search " + searchArguments + " 2>/dev/null | head -n 1");
    return found.substr(0, found.find('\n'));
}

} // namespace

const char* MissingDesktop() {
    if (std::getenv("DISPLAY") == nullptr)
        return "no X display; run under xvfb-run";
    if (!RunCommand("command -v xdotool > /dev/null"))
        return "xdotool is not installed";
    return nullptr;
}

bool RunCommand(const std::string& command) {
    return std::system(command.c_str()) == 0;
}

std::string CommandOutput(const std::string& command) {
    std::string text;
    if (FILE* pipe = popen(command.c_str(), "r")) {
        char buffer[256];
        while (std::fgets(buffer, sizeof buffer, pipe))
            text += buffer;
        pclose(pipe);
    }
    return text;
}

std::string FindWindow(const std::string& searchArguments, std::chrono::milliseconds limit) {
    const auto end = Clock::now() + limit;
    for (;;) {
        std::string window = FirstWindow(searchArguments);
        if (!window.empty() || Clock::now() >= end)
            return window;
        std::this_thread::sleep_for(kPollPeriod);
    }
}

bool WaitForNoWindow(const std::string& searchArguments, std::chrono::milliseconds limit) {
    const auto end = Clock::now() + limit;
    for (;;) {
        if (FirstWindow(searchArguments).empty())
            return true;
        if (Clock::now() >= end)
            return false;
        std::this_thread::sleep_for(kPollPeriod);
    }
}
