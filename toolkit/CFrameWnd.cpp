#include "CFrameWnd.h"

#include "MFCView0.h"
#include "MessagePump.h"
#include "PostedMessageRing.h"

CFrameWnd::~CFrameWnd() {
    SetNativeHandle(nullptr);
}

bool CFrameWnd::SetNativeHandle(void* systemWindow) {
    std::lock_guard<std::recursive_mutex> lock(AfxUiLock());
    m_fallback.reset();
    DestroyChild();
    DetachView();
    m_systemWindow = systemWindow;
    if (!systemWindow)
        return true;
    auto view = MFCView0::WrapHostNS(AfxOpenPlatform(), systemWindow, this);
    if (!view) {
        m_systemWindow = nullptr;
        return false;
    }
    MFCView0* expected = nullptr;
    hTempWnd.compare_exchange_strong(expected, view.get());
    if (!AttachNativeView(std::move(view)))
        return false;
    m_fallback = std::make_unique<FallbackIdleDriver>();
    return true;
}

void CFrameWnd::HostIdle() {
    std::lock_guard<std::recursive_mutex> lock(AfxUiLock());
    m_fallback.reset();
    AfxPumpMessages();
}
