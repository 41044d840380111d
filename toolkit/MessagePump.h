// The main thread's work outside message handlers: native events, posted messages, timer
// ticks and painting. The host's idle call, the fallback driver and every modal loop (menus,
// dialogs) run it.
#pragma once

#include "NativePlatform.h"

#include <functional>
#include <memory>

using PlatformFactory = std::function<std::shared_ptr<native::NativePlatform>()>;

// Chooses how AfxOpenPlatform makes a platform (tests choose the in-memory one).
void AfxSetPlatformFactory(PlatformFactory factory);
// A platform for one editor (one display connection); kept while anything uses it.
std::shared_ptr<native::NativePlatform> AfxOpenPlatform();
// A platform that is open already (the first one), or a new one.
std::shared_ptr<native::NativePlatform> AfxDefaultPlatform();
// Calls the function for every platform still open.
void AfxForEachPlatform(const std::function<void(native::NativePlatform&)>& function);

// Delivers pending native events, then the queued posts and ticks present now, then paints
// every view with a pending area. Never blocks.
void AfxPumpMessages();
// Blocks until native input may be waiting, work is queued, or the time is up.
void AfxWaitForWork(int timeoutMs);
// Runs the pump until the condition turns false.
void AfxRunModalLoop(const std::function<bool()>& continueModal);
