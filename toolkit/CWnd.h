// A window of the toolkit: message-driven, with Win32 message numbers, drawn through CDC.
// A created window owns one native view (MFCView0) and, when it is top-level, one
// MFCWindow; its behaviour lives in the message maps of its classes. Whoever creates a
// CWnd owns the object; the window (view) goes with DestroyWindow or the destructor.
#pragma once

#include "base/CPoint.h"
#include "base/CRect.h"
#include "base/CSize.h"
#include "base/CString.h"
#include "base/WinTypes.h"
#include "toolkit/CCmdTarget.h"
#include "toolkit/CFont.h"

#include <atomic>
#include <cairo.h>
#include <memory>
#include <vector>

class CDC;
class MFCView0;
class MFCWindow;
class WindowTimer;
class CDataExchange;
using HWND = MFCView0*;

struct CREATESTRUCT {
    void* lpCreateParams;
    void* hInstance;
    void* hMenu; // the control id for a child window
    HWND hwndParent;
    int cy;
    int cx;
    int y;
    int x;
    DWORD style;
    const char* lpszName;
    const char* lpszClass;
    DWORD dwExStyle;
};

// A key press on its way to PreTranslateMessage: message WM_KEYDOWN, wParam the key code,
// lParam the repeat count (1), character the character the key types (KeyCodes.h), 0 if none.
struct MSG {
    HWND hwnd;
    UINT message;
    WPARAM wParam;
    LPARAM lParam;
    DWORD time;
    POINT pt;
    UINT character;
};

// The record that WM_WINDOWPOSCHANGED carries in lParam.
struct WINDOWPOS {
    HWND hwnd;
    int x;
    int y;
    int cx;
    int cy;
    UINT flags;
};

class CWnd : public CCmdTarget {
public:
    CWnd();
    ~CWnd() override;

    // Creation and structure.
    virtual bool Create(const char* className, const char* windowName, DWORD style,
                        const RECT& rect, CWnd* parent, UINT id, void* context = nullptr);
    virtual bool CreateEx(DWORD exStyle, const char* className, const char* windowName, DWORD style,
                          int x, int y, int cx, int cy, HWND parent, UINT id,
                          void* param = nullptr);
    virtual bool DestroyWindow();
    virtual bool ShowWindow(int showCommand);
    bool IsWindowVisible() const;
    HWND GetSafeHwnd() const { return m_pView.get(); }
    static CWnd* FromHandle(HWND handle);
    CWnd* GetParent() const { return m_pParentWnd; }
    CWnd* GetDlgItem(int id) const;
    int GetDlgCtrlID() const { return static_cast<int>(m_nID); }
    void SetDlgCtrlID(int id) { m_nID = static_cast<UINT>(id); }
    DWORD GetStyle() const { return m_dwStyle; }
    bool IsTopLevel() const { return m_pNSWindow != nullptr; }
    // Input to a disabled window, or into a disabled window's children, is dropped.
    bool EnableWindow(bool enable = true);
    bool IsWindowEnabled() const;
    // Enabled itself and through every parent up to its top-level window.
    bool AcceptsInput() const;
    void SetFocus();
    static CWnd* GetFocus();

    // Text and font.
    virtual void SetWindowText(const char* text);
    virtual int GetWindowText(char* buffer, int maxCount) const;
    virtual void GetWindowText(CString& text) const;
    int GetWindowTextLength() const { return m_windowText.GetLength(); }
    int GetDlgItemText(int id, CString& text) const;
    void SetDlgItemText(int id, const char* text);
    virtual void SetFont(CFont* font, bool redraw = true);
    CFont* GetFont() { return &m_font; }
    COLORREF GetBackgroundColor() const { return m_backgroundColor; }
    void SetBackgroundColor(COLORREF color);
    // Fills the whole client area with the background colour; returns that area.
    CRect EraseClientArea(CDC& dc) const;

    // Geometry: client coordinates have their origin at the window's top left.
    virtual void MoveWindow(int x, int y, int cx, int cy, bool repaint = true);
    virtual void MoveWindow(const RECT* rect, bool repaint = true);
    virtual bool SetWindowPos(const CWnd* insertAfter, int x, int y, int cx, int cy, UINT flags);
    virtual void GetWindowRect(RECT* rect) const;
    void GetClientRect(RECT* rect) const;
    void ClientToScreen(POINT* point) const;
    void ScreenToClient(POINT* point) const;
    // Takes the size of the native view as the window's own (a wrapped host view).
    void SetBounds();

    // Painting.
    void Invalidate(bool erase = true);
    void InvalidateRect(const RECT* rect, bool erase = true);
    // Paints the pending area now instead of at the next pump.
    virtual void UpdateWindow();
    cairo_t* GetPaintContext() const { return m_paintContext; }
    const CRect& GetUpdateRect() const { return m_updateRect; }

    // Mouse capture is bookkeeping: handlers test GetCapture themselves.
    CWnd* SetCapture();
    static CWnd* GetCapture();

    // One timer per window; every tick arrives as WM_TIMER with wParam 0 whatever id was
    // asked for. KillTimer returns after the timer's thread has ended.
    UINT SetTimer(UINT id, UINT periodMs, void (*callback)(HWND, UINT, UINT, DWORD) = nullptr);
    bool KillTimer(int id);

    // Messages.
    LRESULT SendMessage(UINT message, WPARAM wParam = 0, LPARAM lParam = 0);
    // Safe from any thread, the audio thread included: never blocks, never allocates.
    bool PostMessage(UINT message, WPARAM wParam = 0, LPARAM lParam = 0);
    virtual LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam);
    virtual bool OnWndMsg(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* result);
    virtual LRESULT DefWindowProc(UINT message, WPARAM wParam, LPARAM lParam);
    virtual bool OnCommand(WPARAM wParam, LPARAM lParam);
    virtual bool OnNotify(WPARAM wParam, LPARAM lParam, LRESULT* result);
    // A control's chance to take a notification it sent to its parent (reflection).
    virtual bool OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* result);
    // Sees key presses before they are dispatched; true consumes them. Asked of the focus
    // window first, then of its parents up to the top-level window.
    virtual bool PreTranslateMessage(MSG* msg);

    // Dialog support.
    virtual bool OnInitDialog();
    virtual void DoDataExchange(CDataExchange* exchange);
    bool UpdateData(bool saveAndValidate = true);
    virtual bool IsFrameWnd() const { return false; }

    // Base handlers that derived handlers call at their end.
    LRESULT Default() { return 0; }
    int OnCreate(CREATESTRUCT* create);
    void OnMove(int x, int y);
    void OnSize(UINT type, int cx, int cy);
    void OnMouseMove(UINT flags, CPoint point);
    void OnChar(UINT character, UINT repeat, UINT flags);
    void OnKeyDown(UINT key, UINT repeat, UINT flags);
    void OnTimer(UINT id);
    void OnSetFocus(CWnd* oldWnd);
    void OnKillFocus(CWnd* newWnd);

    // The native layer's entry points (MFCView0 calls them).
    void AttachPaintContext(cairo_t* context, const RECT& updateRect);
    void DetachPaintContext();
    void DeliverTimerTick(std::uint32_t generation);
    void DetachView();
    bool HasView() const { return m_hasView.load(std::memory_order_acquire); }

protected:
    virtual bool PreCreateWindow(CREATESTRUCT& create);
    // Whether the window takes the keyboard when it gets the focus (text fields, lists,
    // buttons); other windows hand the keyboard back to the host.
    virtual bool TakesKeyboard() const { return false; }
    virtual void PostNcDestroy();
    // Destroys the child windows (in reverse order of creation).
    virtual void DestroyChild();
    // Wraps an existing native view (a host's window) as this window's view.
    bool AttachNativeView(std::unique_ptr<MFCView0> view);
    MFCView0* GetView() const { return m_pView.get(); }
    // The window's own text, whatever a derived GetWindowText makes of it.
    const CString& StoredText() const { return m_windowText; }
    void StoreText(const char* text) { m_windowText = text; }
    const std::vector<CWnd*>& GetChildren() const { return m_children; }
    // Moves a child to a place in the order of children (the Tab order of a dialog).
    void PlaceChildAt(CWnd* child, std::size_t index);

    DECLARE_MESSAGE_MAP()

private:
    bool CreateTopLevelWindow(const CREATESTRUCT& create);
    bool CreateChildView(const CREATESTRUCT& create);
    void SendWindowPosChanged(UINT flags);
    void RemoveChild(CWnd* child);
    bool DispatchToMap(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* result);

    std::unique_ptr<MFCWindow> m_pNSWindow;
    std::unique_ptr<MFCView0> m_pView;
    std::atomic<bool> m_hasView{false};
    cairo_t* m_paintContext = nullptr;
    CRect m_updateRect;
    CFont m_font;
    COLORREF m_backgroundColor = 0xFFFFFF;
    CWnd* m_pParentWnd = nullptr;
    UINT m_nID = 0;
    CPoint m_position;
    CSize m_size;
    std::unique_ptr<WindowTimer> m_timer;
    bool m_bVisible = false;
    bool m_bCreated = false;
    bool m_bDestroying = false;
    bool m_bEnabled = true;
    DWORD m_dwStyle = 0;
    DWORD m_dwExStyle = 0;
    CString m_windowText;
    std::vector<CWnd*> m_children;
};

// Sends with a null check: a null target yields 0 and nothing happens.
LRESULT SendMessage0(CWnd* target, UINT message, WPARAM wParam, LPARAM lParam);
bool ReleaseCapture();
// 0xFFFF8000 while the key is down, else 0: 16 Shift, 17 Control, 18 Command, 19 Option.
DWORD GetKeyState(int virtualKey);
// The modifier keys held now, as KeyCodes.h's modifier bits.
unsigned GetCurrentKeyModifiers0();
int GetSystemMetrics(int index);

// The window holding the mouse capture and the window with the keyboard focus, or null.
extern CWnd* pCaptureWnd;
extern CWnd* pFocusWnd;
