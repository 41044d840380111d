#include "toolkit/MessagePump.h"

#include "toolkit/CWnd.h"
#include "toolkit/FallbackIdleDriver.h"
#include "toolkit/MFCView0.h"
#include "toolkit/PostedMessageRing.h"
#include "toolkit/WindowTimer.h"
#include "toolkit/platform/SystemPlatform.h"
#include "toolkit/platform/headless/HeadlessPlatform.h"

#include <algorithm>
#include <chrono>
#include <thread>
#include <vector>

namespace {

// The window system when there is one; without, windows live in memory (off-screen
// rendering).
std::shared_ptr<native::NativePlatform> OpenDefaultPlatform() {
    if (auto display = native::OpenSystemPlatform(AfxRunMainThreadPass))
        return display;
    return native::HeadlessPlatform::Shared();
}

PlatformFactory& Factory() {
    static PlatformFactory factory = OpenDefaultPlatform;
    return factory;
}

std::vector<std::weak_ptr<native::NativePlatform>>& OpenPlatforms() {
    static std::vector<std::weak_ptr<native::NativePlatform>> platforms;
    return platforms;
}

std::vector<std::shared_ptr<native::NativePlatform>> LivePlatforms() {
    auto& open = OpenPlatforms();
    open.erase(std::remove_if(open.begin(), open.end(), [](const auto& p) { return p.expired(); }),
               open.end());
    std::vector<std::shared_ptr<native::NativePlatform>> live;
    for (const auto& platform : open) {
        if (auto locked = platform.lock())
            live.push_back(std::move(locked));
    }
    return live;
}

// A handler may kill its timer, set another or destroy its window: each tick looks the
// window and its timer up again.
void DeliverTimerTicks() {
    for (const WindowTimer::DueTicks& due : WindowTimer::TakeDueTicks()) {
        for (int tick = 0; tick < due.count; ++tick) {
            MFCView0* view = MFCView0::FromSerial(due.viewSerial);
            if (CWnd* wnd = view ? view->GetCWnd() : nullptr)
                wnd->DeliverTimerTick(due.generation);
        }
    }
}

struct LaterCall {
    std::uint64_t viewSerial;
    std::function<void()> call;
};

std::vector<LaterCall>& LaterCalls() {
    static std::vector<LaterCall> calls;
    return calls;
}

// Only the calls present now: one that asks for another waits for the next pump.
void RunLaterCalls() {
    std::vector<LaterCall> due;
    due.swap(LaterCalls());
    for (LaterCall& later : due) {
        if (MFCView0::FromSerial(later.viewSerial))
            later.call();
    }
}

} // namespace

void AfxSetPlatformFactory(PlatformFactory factory) {
    Factory() = std::move(factory);
}

std::shared_ptr<native::NativePlatform> AfxOpenPlatform() {
    std::shared_ptr<native::NativePlatform> platform = Factory()();
    if (!platform)
        return nullptr;
    auto live = LivePlatforms();
    if (std::find(live.begin(), live.end(), platform) == live.end())
        OpenPlatforms().push_back(platform);
    return platform;
}

std::shared_ptr<native::NativePlatform> AfxDefaultPlatform() {
    auto live = LivePlatforms();
    return live.empty() ? AfxOpenPlatform() : live.front();
}

void AfxForEachPlatform(const std::function<void(native::NativePlatform&)>& function) {
    for (const auto& platform : LivePlatforms())
        function(*platform);
}

void AfxPumpMessages() {
    AfxForEachPlatform([](native::NativePlatform& platform) { platform.ProcessEvents(); });
    DeliverPostedMessages();
    DeliverTimerTicks();
    RunLaterCalls();
    MFCView0::DisplayAllPending();
}

void AfxWaitForWork(int timeoutMs) {
    if (HasPostedMessages() || WindowTimer::AnyTickDue())
        return;
    const auto live = LivePlatforms();
    if (live.empty()) {
        std::this_thread::sleep_for(std::chrono::milliseconds(timeoutMs));
        return;
    }
    const int share = std::max(1, timeoutMs / static_cast<int>(live.size()));
    for (const auto& platform : live)
        platform->WaitForEvents(share);
}

void AfxCallLater(const CWnd* window, std::function<void()> call) {
    if (const MFCView0* view = window ? window->GetSafeHwnd() : nullptr)
        LaterCalls().push_back({view->Serial(), std::move(call)});
}
