// The host's window as a CWnd, so that the editor's panel can be created as its child. It
// opens a platform (a display connection of its own) when given the host's handle and
// closes it when the handle is taken away. Owned by the editor.
#pragma once

#include "CWnd.h"

class CFrameWnd : public CWnd {
public:
    ~CFrameWnd() override;

    // Wraps the host's native window; null releases the wrapper and the platform. Returns
    // false when the handle names nothing usable.
    bool SetNativeHandle(void* systemWindow);
    void* GetNativeHandle() const { return m_systemWindow; }
    bool IsFrameWnd() const override { return true; }

private:
    void* m_systemWindow = nullptr;
};
