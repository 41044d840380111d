#include "editor/CZephyraEditor.h"

#include "editor/CUIWindow.h"
#include "editor/UIWindowLayout.h"
#include "effect/AZephyra.h"
#include "toolkit/DisplayScale.h"
#include "toolkit/FallbackIdleDriver.h"
#include "toolkit/MFCView0.h"
#include "toolkit/MessagePump.h"

#include <mutex>

namespace {
// Host calls into the toolkit hold this while the toolkit may run on its fallback thread.
using UiLock = std::lock_guard<std::recursive_mutex>;
} // namespace

CZephyraEditor::CZephyraEditor(AZephyra* effect) : ZephyraEditorBase(effect), m_effect(effect) {
    effect->setEditor(this);
}

CZephyraEditor::~CZephyraEditor() {
    if (m_pPanel)
        close();
}

ZephyraEditorBase* CZephyraEditor::Make(AZephyra* effect) {
    return new CZephyraEditor(effect);
}

void CZephyraEditor::FixScale() {
    if (m_pPanel)
        return;
    const auto platform = AfxDefaultPlatform();
    const double scale = FixDeviceScale(platform ? platform->DesktopDpi() : 0.0);
    m_background.LoadResourceBitmap(MAKEINTRESOURCE(kBitmapBackground));
    m_rect.top = 0;
    m_rect.left = 0;
    m_rect.bottom = static_cast<int16_t>(ToDevice(m_background.Height(), scale));
    m_rect.right = static_cast<int16_t>(ToDevice(m_background.Width(), scale));
}

bool CZephyraEditor::getRect(ERect** rect) {
    UiLock lock(AfxUiLock());
    FixScale();
    *rect = &m_rect;
    return true;
}

bool CZephyraEditor::open(void* parent) {
    UiLock lock(AfxUiLock());
    if (m_pPanel)
        return true;
    FixScale();
    m_systemWindow = parent;
    m_pPanel = std::make_unique<CUIWindow>();
    m_hostFrame.SetNativeHandle(parent);
    m_hostFrame.SetBounds();
    // The new panel reads every value from the effect: older news is stale.
    m_pendingUpdates.Clear();
    m_pPanel->MakeWindow(&m_hostFrame, &m_background, this);
    m_pPanel->MoveWindow(0, 0, m_background.Width(), m_background.Height(), true);
    m_panelOpen.store(true, std::memory_order_release);
    return true;
}

void CZephyraEditor::close() {
    UiLock lock(AfxUiLock());
    m_systemWindow = nullptr;
    m_panelOpen.store(false, std::memory_order_release);
    if (m_pPanel) {
        m_pPanel->DestroyWindow();
        m_pPanel.reset();
    }
    // The host may destroy its window right after: let go of it and of the display.
    m_hostFrame.SetNativeHandle(nullptr);
}

void CZephyraEditor::idle() {
    UiLock lock(AfxUiLock());
    if (!m_pPanel)
        return;
    m_hostFrame.HostIdle();
    m_pPanel->idle();
}

// A full repaint now. The panel paints only inside a paint of its own view, so the whole
// panel is marked and that paint is run at once.
void CZephyraEditor::draw(ERect*) {
    UiLock lock(AfxUiLock());
    if (!m_pPanel)
        return;
    m_pPanel->Invalidate(true);
    m_pPanel->UpdateWindow();
}

ZephyraPanel* CZephyraEditor::GetPanel() {
    return m_panelOpen.load(std::memory_order_acquire) ? &m_pendingUpdates : nullptr;
}

uintptr_t CZephyraEditor::GetPanelSystemHandle() const {
    UiLock lock(AfxUiLock());
    const MFCView0* view = m_pPanel ? m_pPanel->GetSafeHwnd() : nullptr;
    return view && view->Native() ? view->Native()->SystemHandle() : 0;
}
