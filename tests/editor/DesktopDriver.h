// The X11 tests at the desktop as a user: xdotool runs and waits for windows to come and go,
// each with a time limit, so that a window that never comes fails the test, not hangs it.
#pragma once

#include <chrono>
#include <string>

// Why the tests cannot work a desktop here (no X display, no xdotool); null when they can.
const char* MissingDesktop();
// True when the shell command exits with 0.
bool RunCommand(const std::string& command);
// What the shell command writes to its standard output.
std::string CommandOutput(const std::string& command);

// The first window that `xdotool search` finds with these arguments (say "--name '^Save$'"),
// asked at once and again until one comes or the time is up; empty when none came.
std::string FindWindow(const std::string& searchArguments,
                       std::chrono::milliseconds limit = std::chrono::seconds(10));
// Waits until `xdotool search` finds no window with these arguments; false when one is
// still there when the time is up.
bool WaitForNoWindow(const std::string& searchArguments, std::chrono::milliseconds limit);

// The xdotool command that clicks at the point in the window.
inline std::string ClickAt(const std::string& window, int x, int y) {
    return "xdotool mousemove --window " + window + " " + std::to_string(x) + " " +
           std::to_string(y) + " click 1";
}

// A window found by its whole title.
inline std::string FindWindowTitled(const std::string& title) {
    return FindWindow("--name '^" + title + "$'");
}
