// The main thread's work outside message handlers: native events, posted messages, timer
// ticks, calls put off until no handler is on the stack, and painting. The host's idle call
// and the fallback driver run it. No menu or dialog runs a loop of its own: on Linux every
// window has its own display connection, and nothing of the host runs while a plug-in
// loops inside a host call, so the host would freeze until the menu or dialog closed.
#pragma once

#include "toolkit/platform/NativePlatform.h"

#include <functional>
#include <memory>

class CWnd;

using PlatformFactory = std::function<std::shared_ptr<native::NativePlatform>()>;

// Chooses how AfxOpenPlatform makes a platform (tests choose the in-memory one).
void AfxSetPlatformFactory(PlatformFactory factory);
// A platform for one editor (one display connection); kept while anything uses it.
std::shared_ptr<native::NativePlatform> AfxOpenPlatform();
// A platform that is open already (the first one), or a new one.
std::shared_ptr<native::NativePlatform> AfxDefaultPlatform();
// Calls the function for every platform still open.
void AfxForEachPlatform(const std::function<void(native::NativePlatform&)>& function);

// Delivers pending native events, then the posted messages and timer ticks waiting, then the
// calls put off, then paints every view with a pending area. Never blocks.
void AfxPumpMessages();
// Blocks until native input may be waiting, work is queued, or the time is up.
void AfxWaitForWork(int timeoutMs);
// Runs the call at the next pump, after the handler on the stack has returned, so that it
// may destroy the window whose handler asked for it (a menu or dialog reporting its end).
// Dropped if the window is destroyed first. Main thread only.
void AfxCallLater(const CWnd* window, std::function<void()> call);
