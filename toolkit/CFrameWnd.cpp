#include "CFrameWnd.h"

#include "MFCView0.h"
#include "MessagePump.h"
#include "PostedMessageRing.h"

CFrameWnd::~CFrameWnd() {
    SetNativeHandle(nullptr);
}

bool CFrameWnd::SetNativeHandle(void* systemWindow) {
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
    return AttachNativeView(std::move(view));
}
