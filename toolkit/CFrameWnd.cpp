#include "toolkit/CFrameWnd.h"

#include "toolkit/MFCView0.h"
#include "toolkit/MessagePump.h"
#include "toolkit/PostedMessageRing.h"

#include <algorithm>
#include <vector>

namespace {

// Host frames holding a host's window, most recent last.
std::vector<CFrameWnd*>& AttachedFrames() {
    static std::vector<CFrameWnd*> frames;
    return frames;
}

void Attached(CFrameWnd* frame) {
    AttachedFrames().push_back(frame);
}

void Detached(CFrameWnd* frame) {
    auto& frames = AttachedFrames();
    const auto found = std::find(frames.begin(), frames.end(), frame);
    if (found == frames.end())
        return;
    frames.erase(found);
}

} // namespace

CWnd* AfxGetMainWnd() {
    const auto& frames = AttachedFrames();
    for (auto frame = frames.rbegin(); frame != frames.rend(); ++frame) {
        if (CWnd* first = (*frame)->FirstChild())
            return first;
    }
    return nullptr;
}

CFrameWnd::~CFrameWnd() {
    SetNativeHandle(nullptr);
}

bool CFrameWnd::SetNativeHandle(void* systemWindow) {
    std::lock_guard<std::recursive_mutex> lock(AfxUiLock());
    m_fallback.reset();
    DestroyChild();
    DetachView();
    Detached(this);
    m_systemWindow = systemWindow;
    if (!systemWindow)
        return true;
    auto platform = AfxOpenPlatform();
    const bool platformRunsWork = platform->RunsMainThreadWork();
    auto view = MFCView0::WrapHostNS(std::move(platform), systemWindow, this);
    if (!view) {
        m_systemWindow = nullptr;
        return false;
    }
    MFCView0* expected = nullptr;
    hTempWnd.compare_exchange_strong(expected, view.get());
    if (!AttachNativeView(std::move(view)))
        return false;
    Attached(this);
    if (!platformRunsWork)
        m_fallback = std::make_unique<FallbackIdleDriver>();
    return true;
}

void CFrameWnd::HostIdle() {
    std::lock_guard<std::recursive_mutex> lock(AfxUiLock());
    m_fallback.reset();
    AfxPumpMessages();
}
