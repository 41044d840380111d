// The host's window as a CWnd, so that the editor's panel can be created as its child. It
// opens a platform (a display connection of its own) when given the host's handle and
// closes it when the handle is taken away. Until the host's first idle call it keeps the
// toolkit running on a fallback thread, since some hosts never idle their editors; while the
// fallback may run, host calls into the toolkit hold AfxUiLock. Owned by the editor.
#pragma once

#include "toolkit/CWnd.h"
#include "toolkit/FallbackIdleDriver.h"

#include <memory>

class CFrameWnd : public CWnd {
public:
    ~CFrameWnd() override;

    // Wraps the host's native window; null releases the wrapper and the platform. Returns
    // false when the handle names nothing usable.
    bool SetNativeHandle(void* systemWindow);
    void* GetNativeHandle() const { return m_systemWindow; }
    // The host's idle call: ends the fallback (the host drives from now on) and runs the
    // main thread's work once.
    void HostIdle();
    bool IsFallbackRunning() const { return m_fallback != nullptr; }
    CWnd* FirstChild() const { return GetChildren().empty() ? nullptr : GetChildren().front(); }
    bool IsFrameWnd() const override { return true; }

private:
    void* m_systemWindow = nullptr;
    std::unique_ptr<FallbackIdleDriver> m_fallback;
};

// The editor's main window: the first child of the host frame opened last, or null.
CWnd* AfxGetMainWnd();
