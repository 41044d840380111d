#include "toolkit/CWnd.h"

#include "toolkit/CDC.h"
#include "toolkit/MFCView0.h"
#include "toolkit/MFCWindow.h"
#include "toolkit/MessagePump.h"
#include "toolkit/OwnedWindows.h"
#include "toolkit/PostedMessageRing.h"
#include "toolkit/WinMessages.h"
#include "toolkit/WinStyles.h"
#include "toolkit/WindowTimer.h"

#include <algorithm>
#include <cstring>

CWnd* pCaptureWnd = nullptr;
CWnd* pFocusWnd = nullptr;

namespace {
// Style bit 15 must be clear for a child window to get a view.
constexpr DWORD kNoViewStyleBit = 0x00008000;
} // namespace

BEGIN_MESSAGE_MAP(CWnd, CCmdTarget)
ON_WM_CREATE()
ON_WM_MOVE()
ON_WM_SIZE()
ON_WM_MOUSEMOVE()
END_MESSAGE_MAP()

CWnd::CWnd() {
    m_font.CreatePointFont(12, "Osaka");
}

CWnd::~CWnd() {
    if (m_pView)
        DestroyWindow();
    m_timer.reset();
    m_pNSWindow.reset();
    if (m_pView) {
        m_pView->SetCWnd(nullptr);
        m_pView.reset();
    }
    ForgetPostsTo(this);
    if (pFocusWnd == this)
        pFocusWnd = nullptr;
    if (pCaptureWnd == this)
        pCaptureWnd = nullptr;
    if (m_pParentWnd)
        m_pParentWnd->RemoveChild(this);
    for (CWnd* child : m_children)
        child->m_pParentWnd = nullptr;
}

bool CWnd::Create(const char* className, const char* windowName, DWORD style, const RECT& rect,
                  CWnd* parent, UINT id, void* context) {
    m_pParentWnd = parent;
    m_nID = id;
    return CreateEx(0, className, windowName, style | WS_CHILD, rect.left, rect.top,
                    rect.right - rect.left, rect.bottom - rect.top,
                    parent ? parent->GetSafeHwnd() : nullptr, id, context);
}

bool CWnd::CreateEx(DWORD exStyle, const char* className, const char* windowName, DWORD style,
                    int x, int y, int cx, int cy, HWND parent, UINT id, void* param) {
    CREATESTRUCT create{param,      nullptr,   reinterpret_cast<void*>(static_cast<uintptr_t>(id)),
                        parent,     cy,        cx,
                        y,          x,         style,
                        windowName, className, exStyle};
    if (!PreCreateWindow(create))
        return false;

    m_windowText = create.lpszName;
    m_dwStyle = create.style;
    m_dwExStyle = create.dwExStyle;
    m_position = CPoint(create.x, create.y);
    m_size = CSize(create.cx, create.cy);
    m_bVisible = (m_dwStyle & WS_VISIBLE) != 0;
    if (!m_pParentWnd)
        m_pParentWnd = FromHandle(create.hwndParent);
    if (m_dwStyle & WS_CHILD)
        m_nID = id;

    const bool topLevel = (m_dwStyle & (WS_DLGFRAME | WS_THICKFRAME | WS_POPUP)) != 0;
    const bool viewMade = topLevel ? CreateTopLevelWindow(create) : CreateChildView(create);
    if (!viewMade || WindowProc(WM_CREATE, 0, reinterpret_cast<LPARAM>(&create)) == -1) {
        DetachView();
        PostNcDestroy();
        return false;
    }
    WindowProc(WM_MOVE, 0, MAKELPARAM(create.x, create.y));
    WindowProc(WM_SIZE, 0, MAKELPARAM(create.cx, create.cy));
    if (m_bVisible && m_pView) {
        m_pView->SetHidden(false);
        if (m_pNSWindow)
            m_pView->Raise();
    }
    return true;
}

bool CWnd::CreateChildView(const CREATESTRUCT& create) {
    if ((create.style & kNoViewStyleBit) || !create.hwndParent)
        return false;
    m_pView =
        MFCView0::CreateViewNS(*create.hwndParent, create.x, create.y, create.cx, create.cy, this);
    m_hasView.store(m_pView != nullptr, std::memory_order_release);
    return m_pView != nullptr;
}

// A top-level window is placed in screen coordinates; pop-ups without a caption are menus
// and lists, everything else a dialog kept above its owner.
bool CWnd::CreateTopLevelWindow(const CREATESTRUCT& create) {
    MFCView0* owner = create.hwndParent;
    const auto platform = owner ? owner->Platform() : AfxDefaultPlatform();
    const bool popup = (create.style & WS_POPUP) && (create.style & WS_CAPTION) != WS_CAPTION;
    const RECT frame{create.x, create.y, create.x + create.cx, create.y + create.cy};
    m_pView = MFCView0::CreateTopLevelNS(
        platform, popup ? native::TopLevelKind::Popup : native::TopLevelKind::Dialog, owner, frame,
        this);
    if (!m_pView)
        return false;
    m_pNSWindow = std::make_unique<MFCWindow>(this, m_pView.get());
    m_pView->SetTitle(m_windowText);
    m_hasView.store(true, std::memory_order_release);
    return true;
}

bool CWnd::AttachNativeView(std::unique_ptr<MFCView0> view) {
    DetachView();
    if (!view)
        return false;
    m_pView = std::move(view);
    m_pView->SetCWnd(this);
    m_hasView.store(true, std::memory_order_release);
    SetBounds();
    return true;
}

void CWnd::DetachView() {
    m_hasView.store(false, std::memory_order_release);
    m_pNSWindow.reset();
    if (m_pView) {
        m_pView->SetCWnd(nullptr);
        m_pView.reset();
    }
}

bool CWnd::PreCreateWindow(CREATESTRUCT&) {
    return true;
}

void CWnd::PostNcDestroy() {}

bool CWnd::DestroyWindow() {
    if (m_timer) {
        m_timer->Stop();
        m_timer.reset();
    }
    if (pFocusWnd == this) {
        pFocusWnd = nullptr;
        if (m_pView)
            m_pView->ReturnKeyboardFocus();
    }
    if (!m_bCreated || m_bDestroying)
        return false;

    m_bDestroying = true;
    if (pCaptureWnd == this)
        pCaptureWnd = nullptr;
    AfxDestroyWindowsOwnedBy(this);
    DestroyChild();
    SendMessage(WM_DESTROY, 0, 0);
    DetachView();
    if (m_pParentWnd)
        m_pParentWnd->RemoveChild(this);
    m_bCreated = false;
    m_bDestroying = false;
    PostNcDestroy();
    return true;
}

void CWnd::DestroyChild() {
    const std::vector<CWnd*> children(m_children.rbegin(), m_children.rend());
    for (CWnd* child : children)
        child->DestroyWindow();
}

void CWnd::RemoveChild(CWnd* child) {
    m_children.erase(std::remove(m_children.begin(), m_children.end(), child), m_children.end());
}

void CWnd::PlaceChildAt(CWnd* child, std::size_t index) {
    RemoveChild(child);
    index = std::min(index, m_children.size());
    m_children.insert(m_children.begin() + static_cast<std::ptrdiff_t>(index), child);
}

int CWnd::OnCreate(CREATESTRUCT*) {
    m_bCreated = true;
    if (m_pParentWnd && !m_pNSWindow &&
        std::find(m_pParentWnd->m_children.begin(), m_pParentWnd->m_children.end(), this) ==
            m_pParentWnd->m_children.end())
        m_pParentWnd->m_children.push_back(this);
    return 0;
}

void CWnd::OnMove(int x, int y) {
    m_position = CPoint(x, y);
}

void CWnd::OnSize(UINT, int cx, int cy) {
    m_size = CSize(cx, cy);
    const CRect all(0, 0, cx, cy);
    InvalidateRect(&all, true);
}

void CWnd::OnMouseMove(UINT, CPoint) {
    SendMessage(WM_SETCURSOR, reinterpret_cast<WPARAM>(GetSafeHwnd()), 1);
}

void CWnd::OnChar(UINT, UINT, UINT) {}

void CWnd::OnKeyDown(UINT, UINT, UINT) {}

void CWnd::OnTimer(UINT) {}

void CWnd::OnSetFocus(CWnd*) {}

void CWnd::OnKillFocus(CWnd*) {}

bool CWnd::ShowWindow(int showCommand) {
    if (showCommand > 9)
        return true;
    const bool hide = showCommand == SW_HIDE;
    const bool show = showCommand == SW_SHOWNORMAL || showCommand == SW_SHOWMAXIMIZED ||
                      showCommand == SW_SHOWNOACTIVATE || showCommand == SW_SHOW ||
                      showCommand == SW_SHOWNA || showCommand == SW_RESTORE;
    if (!hide && !show)
        return true;
    m_bVisible = show;
    if (!m_pView)
        return true;
    m_pView->SetHidden(hide);
    if (show && m_pNSWindow)
        m_pView->Raise();
    SendWindowPosChanged(show ? SWP_SHOWWINDOW : SWP_HIDEWINDOW);
    return true;
}

void CWnd::SendWindowPosChanged(UINT flags) {
    WINDOWPOS position{GetSafeHwnd(), m_position.x, m_position.y, m_size.cx, m_size.cy, flags};
    SendMessage(WM_WINDOWPOSCHANGED, 0, reinterpret_cast<LPARAM>(&position));
}

bool CWnd::IsWindowVisible() const {
    return m_bVisible;
}

CWnd* CWnd::FromHandle(HWND handle) {
    return handle ? handle->GetCWnd() : nullptr;
}

CWnd* CWnd::GetDlgItem(int id) const {
    for (CWnd* child : m_children) {
        if (child->GetDlgCtrlID() == id)
            return child;
    }
    return nullptr;
}

bool CWnd::EnableWindow(bool enable) {
    const bool wasDisabled = !m_bEnabled;
    m_bEnabled = enable;
    if (wasDisabled == enable)
        Invalidate();
    return wasDisabled;
}

bool CWnd::IsWindowEnabled() const {
    return m_bEnabled;
}

bool CWnd::AcceptsInput() const {
    for (const CWnd* wnd = this; wnd; wnd = wnd->IsTopLevel() ? nullptr : wnd->m_pParentWnd) {
        if (!wnd->m_bEnabled)
            return false;
    }
    return true;
}

void CWnd::SetFocus() {
    CWnd* previous = pFocusWnd;
    if (previous == this)
        return;
    pFocusWnd = this;
    if (previous)
        SendMessage0(previous, WM_KILLFOCUS, reinterpret_cast<WPARAM>(GetSafeHwnd()), 0);
    if (m_pView) {
        if (TakesKeyboard())
            m_pView->TakeKeyboardFocus();
        else
            m_pView->ReturnKeyboardFocus();
    }
    SendMessage(WM_SETFOCUS, reinterpret_cast<WPARAM>(previous ? previous->GetSafeHwnd() : nullptr),
                0);
}

CWnd* CWnd::GetFocus() {
    return pFocusWnd;
}

void CWnd::SetWindowText(const char* text) {
    m_windowText = text;
    if (m_pNSWindow)
        m_pView->SetTitle(m_windowText);
    Invalidate();
}

int CWnd::GetWindowText(char* buffer, int maxCount) const {
    if (!buffer || maxCount <= 0)
        return 0;
    const int count = std::min(m_windowText.GetLength(), maxCount - 1);
    std::memcpy(buffer, m_windowText.GetString(), static_cast<size_t>(count));
    buffer[count] = '\0';
    return count;
}

void CWnd::GetWindowText(CString& text) const {
    text = m_windowText;
}

int CWnd::GetDlgItemText(int id, CString& text) const {
    text.Empty();
    if (CWnd* item = GetDlgItem(id))
        item->GetWindowText(text);
    return text.GetLength();
}

void CWnd::SetDlgItemText(int id, const char* text) {
    if (CWnd* item = GetDlgItem(id))
        item->SetWindowText(text);
}

void CWnd::SetFont(CFont* font, bool redraw) {
    if (font)
        m_font.CopyFrom(*font);
    if (redraw)
        Invalidate();
}

void CWnd::SetBackgroundColor(COLORREF color) {
    m_backgroundColor = color;
    Invalidate();
}

void CWnd::MoveWindow(int x, int y, int cx, int cy, bool repaint) {
    m_position = CPoint(x, y);
    const bool resized = cx != m_size.cx || cy != m_size.cy;
    if (m_pView)
        m_pView->SetFrame(CRect(x, y, x + cx, y + cy));
    if (resized)
        SendMessage(WM_SIZE, 0, MAKELPARAM(cx, cy));
    if (repaint)
        Invalidate();
}

void CWnd::MoveWindow(const RECT* rect, bool repaint) {
    if (rect)
        MoveWindow(rect->left, rect->top, rect->right - rect->left, rect->bottom - rect->top,
                   repaint);
}

bool CWnd::SetWindowPos(const CWnd*, int x, int y, int cx, int cy, UINT flags) {
    if (flags & SWP_NOMOVE) {
        x = m_position.x;
        y = m_position.y;
    }
    if (flags & SWP_NOSIZE) {
        cx = m_size.cx;
        cy = m_size.cy;
    }
    if (!(flags & SWP_NOMOVE) || !(flags & SWP_NOSIZE))
        MoveWindow(x, y, cx, cy, true);
    if (flags & SWP_SHOWWINDOW)
        ShowWindow(SW_SHOW);
    else if (flags & SWP_HIDEWINDOW)
        ShowWindow(SW_HIDE);
    return true;
}

void CWnd::GetWindowRect(RECT* rect) const {
    if (!rect)
        return;
    CPoint origin = m_pView ? m_pView->ScreenOrigin() : m_position;
    *rect = CRect(origin, m_size);
}

CRect CWnd::EraseClientArea(CDC& dc) const {
    CRect client;
    GetClientRect(&client);
    dc.FillSolidRect(client, GetBackgroundColor());
    return client;
}

void CWnd::GetClientRect(RECT* rect) const {
    if (rect)
        *rect = CRect(0, 0, m_size.cx, m_size.cy);
}

void CWnd::ClientToScreen(POINT* point) const {
    if (point && m_pView) {
        const CPoint origin = m_pView->ScreenOrigin();
        point->x += origin.x;
        point->y += origin.y;
    }
}

void CWnd::ScreenToClient(POINT* point) const {
    if (point && m_pView) {
        const CPoint origin = m_pView->ScreenOrigin();
        point->x -= origin.x;
        point->y -= origin.y;
    }
}

void CWnd::SetBounds() {
    if (m_pView)
        m_size = m_pView->BoundsSize();
}

void CWnd::Invalidate(bool) {
    if (m_pView)
        m_pView->SetNeedsDisplay();
}

void CWnd::InvalidateRect(const RECT* rect, bool) {
    if (!m_pView)
        return;
    if (rect)
        m_pView->SetNeedsDisplayInRect(*rect);
    else
        m_pView->SetNeedsDisplay();
}

void CWnd::UpdateWindow() {
    if (m_pView)
        m_pView->DisplayIfNeeded();
}

void CWnd::AttachPaintContext(cairo_t* context, const RECT& updateRect) {
    m_paintContext = context;
    m_updateRect = updateRect;
}

void CWnd::DetachPaintContext() {
    m_paintContext = nullptr;
    m_updateRect.SetRectEmpty();
}

CWnd* CWnd::SetCapture() {
    CWnd* previous = pCaptureWnd;
    pCaptureWnd = this;
    return previous;
}

CWnd* CWnd::GetCapture() {
    return pCaptureWnd;
}

bool ReleaseCapture() {
    if (!pCaptureWnd)
        return false;
    pCaptureWnd = nullptr;
    return true;
}

UINT CWnd::SetTimer(UINT id, UINT periodMs, void (*)(HWND, UINT, UINT, DWORD)) {
    m_timer.reset();
    if (m_pView)
        m_timer = std::make_unique<WindowTimer>(m_pView->Serial(), periodMs);
    return id;
}

bool CWnd::KillTimer(int) {
    if (m_timer) {
        m_timer->Stop();
        m_timer.reset();
    }
    return true;
}

void CWnd::DeliverTimerTick(std::uint32_t generation) {
    if (m_timer && m_timer->Generation() == generation && m_timer->IsRunning())
        SendMessage(WM_TIMER, 0, 0);
}

bool CWnd::PostMessage(UINT message, WPARAM wParam, LPARAM lParam) {
    PostMessageNS(this, message, wParam, lParam);
    return true;
}
