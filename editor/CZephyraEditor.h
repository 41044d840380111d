// The plug-in's editor as the host sees it: it reports the panel's size, opens the panel
// (CUIWindow) inside the window the host hands over, idles and closes it. The effect makes
// it and keeps it for its whole life; the panel exists only while the editor is open.
#pragma once

#include "editor/CQMTBitmap.h"
#include "editor/PendingPanelUpdates.h"
#include "effect/ZephyraEditorSeam.h"
#include "toolkit/CFrameWnd.h"

#include <atomic>
#include <functional>
#include <memory>

class AZephyra;
class CUIWindow;

class CZephyraEditor : public ZephyraEditorBase {
public:
    // Registers itself with the effect.
    explicit CZephyraEditor(AZephyra* effect);
    ~CZephyraEditor() override;
    CZephyraEditor(const CZephyraEditor&) = delete;
    CZephyraEditor& operator=(const CZephyraEditor&) = delete;

    // The factory that the module hands to the effect.
    static ZephyraEditorBase* Make(AZephyra* effect);

    // The background's size in device pixels at the scale the next open will use; it
    // holds while the panel is open.
    bool getRect(ERect** rect) override;
    // A second open while open keeps the first panel.
    bool open(void* parent) override;
    void close() override;
    void idle() override;
    void draw(ERect* rect) override;

    // While open, where the effect's changes go (from any thread); null while closed.
    ZephyraPanel* GetPanel() override;

    // Where drags on the panel's knobs and sliders are reported as gestures on their
    // parameter; none by default.
    using GestureListener = std::function<void(int parameter, bool dragging)>;
    void SetGestureListener(GestureListener listener) { m_gestureListener = std::move(listener); }
    void DragGesture(int parameter, bool dragging) {
        if (m_gestureListener)
            m_gestureListener(parameter, dragging);
    }

    // The effect as the panel sees it.
    ZephyraEditorEffect* GetZephyra() { return m_effect; }
    PendingPanelUpdates& PendingUpdates() { return m_pendingUpdates; }
    CUIWindow* GetUIWindow() const { return m_pPanel.get(); }
    // The open panel's own window in the window system (what an LV2 host embeds); 0 while
    // closed.
    uintptr_t GetPanelSystemHandle() const;

private:
    // While closed, chooses the scale from its sources (the desktop's resolution among
    // them) and loads the background drawn for it.
    void FixScale();

    ZephyraEditorEffect* m_effect;
    ERect m_rect{};
    CQMTBitmap m_background;
    CFrameWnd m_hostFrame;
    std::unique_ptr<CUIWindow> m_pPanel;
    PendingPanelUpdates m_pendingUpdates;
    std::atomic<bool> m_panelOpen{false};
    GestureListener m_gestureListener;
};
