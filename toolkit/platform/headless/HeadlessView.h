// One window of the in-memory platform. A view made by the toolkit owns its node; a
// wrapped host window only refers to the host's node.
#pragma once

#include "toolkit/platform/headless/HeadlessPlatform.h"

namespace native {

class HeadlessView final : public NativeView {
public:
    HeadlessView(HeadlessPlatform& platform, HeadlessNode* node, bool ownsNode);
    ~HeadlessView() override;

    // Null once the window is gone.
    HeadlessNode* Node() const { return m_lost || m_node->destroyed ? nullptr : m_node; }
    // The window went away with its host window; the view still frees the node.
    void Lose() { m_lost = true; }

    void SetFrame(const RECT& frame) override;
    SIZE Size() const override;
    POINT ScreenOrigin() const override;
    void SetVisible(bool visible) override;
    void Raise() override;
    void SetTitle(const char* utf8Title) override;
    void Present(cairo_surface_t* pixels, const RECT& area) override;
    void TakeKeyboardFocus() override;
    void ReturnKeyboardFocus() override;
    void GrabPointer() override;
    void ReleasePointer() override;
    uintptr_t SystemHandle() const override { return reinterpret_cast<uintptr_t>(m_node); }

private:
    HeadlessPlatform& m_platform;
    HeadlessNode* m_node;
    const bool m_ownsNode;
    bool m_lost = false;
};

} // namespace native
