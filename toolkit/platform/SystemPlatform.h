// Opens the window system's own platform (X11 on Linux, Win32 on Windows) without bringing
// the system's names into the caller. Each system's backend defines it.
#pragma once

#include "toolkit/platform/NativePlatform.h"

#include <functional>
#include <memory>

namespace native {

// A platform for one editor; null when there is no window system to talk to (no X display).
// A platform that runs the toolkit's main-thread work by itself (RunsMainThreadWork) calls
// runMainThreadWork for it, on the thread of the windows.
std::shared_ptr<NativePlatform> OpenSystemPlatform(std::function<void()> runMainThreadWork);

} // namespace native
