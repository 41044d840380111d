#include "toolkit/CDialog.h"

#include "base/Diagnostic.h"
#include "toolkit/CButton.h"
#include "toolkit/CComboBox.h"
#include "toolkit/CEdit.h"
#include "toolkit/CFrameWnd.h"
#include "toolkit/CPaintDC.h"
#include "toolkit/CStatic.h"
#include "toolkit/MFCView0.h"
#include "toolkit/MessagePump.h"
#include "toolkit/OwnedWindows.h"
#include "toolkit/ToolkitTheme.h"
#include "toolkit/WinControlIds.h"
#include "toolkit/WinMessages.h"
#include "toolkit/WinStyles.h"
#include "toolkit/platform/KeyCodes.h"

#include <algorithm>
#include <cerrno>
#include <utility>

namespace {
constexpr int kCloseBoxSize = 20;
constexpr DWORD kControlStyle = WS_CHILD | WS_VISIBLE | WS_TABSTOP;
} // namespace

BEGIN_MESSAGE_MAP(CDialog, CWnd)
ON_WM_PAINT()
ON_WM_LBUTTONDOWN()
ON_WM_MOUSEMOVE()
ON_WM_LBUTTONUP()
ON_MESSAGE(WM_SYSCOMMAND, OnSysCommand)
ON_COMMAND(IDOK, OnOK)
ON_COMMAND(IDCANCEL, OnCancel)
END_MESSAGE_MAP()

CDialog::CDialog(UINT templateId, CWnd* parent) : m_nIDTemplate(templateId), m_pOwner(parent) {
    SetBackgroundColor(theme::kWindow);
}

CDialog::CDialog(const DialogTemplate& layout, CWnd* parent, UINT templateId)
    : m_nIDTemplate(templateId), m_pOwner(parent),
      m_layout(std::make_unique<DialogTemplate>(layout)) {
    SetBackgroundColor(theme::kWindow);
}

CDialog::~CDialog() {
    DestroyWindow();
    EnableOwnerAgain();
    m_layoutControls.clear();
}

int CDialog::DoModal(Ended onEnded) {
    CWnd* owner = m_pOwner ? m_pOwner : AfxGetMainWnd();
    if (!m_layout || !CreateFromLayout(*m_layout, owner)) {
        AfxDiagnostic("CreateWindowFromNib Err: %d\n", ENOENT);
        return -1;
    }
    AfxDiagnostic("PostMessage(%x,WM_ACTIVATE)\r\n",
                  static_cast<unsigned>(reinterpret_cast<std::uintptr_t>(this)));
    PostMessage(WM_ACTIVATE, 1, 0);
    SetFocus();

    if (owner && owner->IsWindowEnabled() && owner->GetSafeHwnd()) {
        owner->EnableWindow(false);
        m_disabledOwner = owner;
        m_disabledOwnerView = owner->GetSafeHwnd()->Serial();
    }
    m_ended = false;
    m_result = -1;
    m_onEnded = std::move(onEnded);
    if (!OnInitDialog() || m_ended) {
        m_onEnded = nullptr;
        DestroyWindow();
        EnableOwnerAgain();
        return -1;
    }
    const std::vector<CWnd*> stops = TabStops();
    if (!stops.empty())
        GotoDlgCtrl(stops.front());
    return 0;
}

// The caller is told last: it may destroy this dialog.
void CDialog::FinishModal() {
    DestroyWindow();
    EnableOwnerAgain();
    const Ended onEnded = std::move(m_onEnded);
    const int result = m_result;
    if (onEnded)
        onEnded(result);
}

void CDialog::EnableOwnerAgain() {
    CWnd* owner = std::exchange(m_disabledOwner, nullptr);
    const MFCView0* view = MFCView0::FromSerial(m_disabledOwnerView);
    if (owner && view && view->GetCWnd() == owner)
        owner->EnableWindow(true);
}

// Placed over the middle of its owner (or of the screen), kept on the screen.
bool CDialog::CreateFromLayout(const DialogTemplate& layout, CWnd* owner) {
    const int width = layout.width;
    const int height = layout.height + theme::kCaptionHeight;
    HWND ownerView = owner ? owner->GetSafeHwnd() : nullptr;
    const auto platform = ownerView ? ownerView->Platform() : AfxDefaultPlatform();
    if (!platform)
        return false;
    const CRect screen(MFCView0::ScreenBounds(*platform));
    CRect around(screen);
    if (ownerView)
        owner->GetWindowRect(&around);
    int x = around.left + (around.Width() - width) / 2;
    int y = around.top + (around.Height() - height) / 2;
    x = std::clamp(x, static_cast<int>(screen.left), std::max(0, screen.right - width));
    y = std::clamp(y, static_cast<int>(screen.top), std::max(0, screen.bottom - height));
    if (!CreateEx(0, nullptr, layout.title, WS_POPUP | WS_CAPTION, x, y, width, height, ownerView,
                  0))
        return false;
    m_layoutControls.clear();
    for (const DialogItemTemplate& item : layout.items)
        m_layoutControls.push_back({item, MakeControl(item)});
    ShowWindow(SW_SHOW);
    return true;
}

std::unique_ptr<CWnd> CDialog::MakeControl(const DialogItemTemplate& item) {
    CRect place(item.rect);
    place.OffsetRect(0, theme::kCaptionHeight);
    const DWORD style = kControlStyle | item.style;
    switch (item.kind) {
    case DialogItemKind::Button:
    case DialogItemKind::DefaultButton: {
        auto button = std::make_unique<CButton>();
        const DWORD kind = item.kind == DialogItemKind::DefaultButton ? BS_DEFPUSHBUTTON : 0;
        button->Create(item.text, style | kind, place, this, static_cast<UINT>(item.id));
        return button;
    }
    case DialogItemKind::Edit: {
        auto edit = std::make_unique<CEdit>();
        edit->Create(style, place, this, static_cast<UINT>(item.id));
        edit->SetTextForSpin(item.text);
        return edit;
    }
    case DialogItemKind::ComboBox: {
        auto list = std::make_unique<CComboBox>();
        list->Create(style, place, this, static_cast<UINT>(item.id));
        return list;
    }
    case DialogItemKind::Static: {
        auto label = std::make_unique<CStatic>();
        label->Create(item.text, (style & ~WS_TABSTOP), place, this, static_cast<UINT>(item.id));
        return label;
    }
    }
    return nullptr;
}

bool CDialog::SubclassDlgItem(int id, CWnd& control) {
    const auto found = std::find_if(m_layoutControls.begin(), m_layoutControls.end(),
                                    [id](const LayoutControl& c) { return c.item.id == id; });
    if (found == m_layoutControls.end() || !found->window)
        return false;
    const auto& children = GetChildren();
    const std::size_t place = static_cast<std::size_t>(
        std::find(children.begin(), children.end(), found->window.get()) - children.begin());
    CRect rect;
    found->window->GetWindowRect(&rect);
    ScreenToClient(reinterpret_cast<POINT*>(&rect.left));
    ScreenToClient(reinterpret_cast<POINT*>(&rect.right));
    const DWORD style = found->window->GetStyle();
    CString text;
    found->window->GetWindowText(text);
    found->window.reset();
    control.SetBackgroundColor(GetBackgroundColor());
    if (!control.CWnd::Create(nullptr, text, style, rect, this, static_cast<UINT>(id)))
        return false;
    PlaceChildAt(&control, place);
    return true;
}

bool CDialog::OnInitDialog() {
    if (!UpdateData(false)) {
        EndDialog(-1);
        return false;
    }
    if (GetSafeHwnd())
        GetSafeHwnd()->Raise();
    return true;
}

void CDialog::OnOK() {
    if (UpdateData(true))
        EndDialog(IDOK);
}

void CDialog::OnCancel() {
    EndDialog(IDCANCEL);
}

// Ending happens inside one of the dialog's own handlers: the dialog leaves the screen now
// and is destroyed, and its caller told, once that handler has returned.
void CDialog::EndDialog(int result) {
    if (m_ended)
        return;
    m_ended = true;
    m_result = result;
    ShowWindow(SW_HIDE);
    AfxCallLater(this, [this] { FinishModal(); });
}

std::vector<CWnd*> CDialog::TabStops() const {
    std::vector<CWnd*> stops;
    for (CWnd* child : GetChildren()) {
        if ((child->GetStyle() & WS_TABSTOP) && child->IsWindowVisible() &&
            child->IsWindowEnabled())
            stops.push_back(child);
    }
    return stops;
}

void CDialog::GotoDlgCtrl(CWnd* control) {
    if (!control)
        return;
    control->SetFocus();
    if (auto* edit = dynamic_cast<CEdit*>(control))
        edit->SetSel(0, -1);
}

void CDialog::NextDlgCtrl() {
    const std::vector<CWnd*> stops = TabStops();
    if (stops.empty())
        return;
    const auto at = std::find(stops.begin(), stops.end(), GetFocus());
    GotoDlgCtrl(at == stops.end() || at + 1 == stops.end() ? stops.front() : *(at + 1));
}

void CDialog::PrevDlgCtrl() {
    const std::vector<CWnd*> stops = TabStops();
    if (stops.empty())
        return;
    const auto at = std::find(stops.begin(), stops.end(), GetFocus());
    GotoDlgCtrl(at == stops.end() || at == stops.begin() ? stops.back() : *(at - 1));
}

bool CDialog::PreTranslateMessage(MSG* msg) {
    if (msg->message != WM_KEYDOWN)
        return false;
    switch (msg->wParam) {
    case kKeyTab:
        if (GetKeyState(16) & 0x8000)
            PrevDlgCtrl();
        else
            NextDlgCtrl();
        return true;
    case kKeyReturn:
    case kKeyEnter:
        if (auto* button = dynamic_cast<CButton*>(GetFocus())) {
            if (button->GetParent() == this) {
                button->Click();
                return true;
            }
        }
        SendMessage(WM_COMMAND, IDOK, 0);
        return true;
    case kKeyEscape:
        SendMessage(WM_COMMAND, IDCANCEL, 0);
        return true;
    default:
        return false;
    }
}

CRect CDialog::CloseBox() const {
    CRect client;
    GetClientRect(&client);
    const int top = (theme::kCaptionHeight - kCloseBoxSize) / 2;
    return CRect(client.right - kCloseBoxSize - top, top, client.right - top, top + kCloseBoxSize);
}

void CDialog::OnPaint() {
    CPaintDC dc(this);
    CRect client;
    GetClientRect(&client);
    dc.FillSolidRect(client, theme::kWindow);
    dc.FillSolidRect(CRect(0, 0, client.right, theme::kCaptionHeight), theme::kCaption);
    dc.DrawLine(0, theme::kCaptionHeight - 0.5, client.right, theme::kCaptionHeight - 0.5,
                theme::kBorder);
    dc.FrameRoundRect(client, 0, theme::kBorder);
    dc.SelectObject(GetFont());
    dc.SetTextColor(theme::kText);
    CString title;
    GetWindowText(title);
    dc.DrawText(title, CRect(12, 0, CloseBox().left - 4, theme::kCaptionHeight),
                DT_LEFT | DT_VCENTER | DT_SINGLELINE);
    const CRect close = CloseBox();
    const CPoint centre = close.CenterPoint();
    dc.DrawLine(centre.x - 4, centre.y - 4, centre.x + 4, centre.y + 4, theme::kTextDim, 1.5);
    dc.DrawLine(centre.x - 4, centre.y + 4, centre.x + 4, centre.y - 4, theme::kTextDim, 1.5);
}

void CDialog::OnLButtonDown(UINT, CPoint point) {
    if (point.y >= theme::kCaptionHeight)
        return;
    if (CloseBox().PtInRect(point)) {
        OnCancel();
        return;
    }
    m_dragging = true;
    m_dragOffset = point;
    SetCapture();
}

void CDialog::OnMouseMove(UINT flags, CPoint point) {
    if (m_dragging) {
        CPoint screen(point);
        ClientToScreen(&screen);
        CRect window;
        GetWindowRect(&window);
        MoveWindow(screen.x - m_dragOffset.x, screen.y - m_dragOffset.y, window.Width(),
                   window.Height(), false);
    }
    CWnd::OnMouseMove(flags, point);
}

void CDialog::OnLButtonUp(UINT, CPoint) {
    if (!m_dragging)
        return;
    m_dragging = false;
    if (GetCapture() == this)
        ReleaseCapture();
}

LRESULT CDialog::OnSysCommand(WPARAM wParam, LPARAM) {
    if (wParam == SC_CLOSE)
        OnCancel();
    return 0;
}

bool AfxRunKeptDialog(const CWnd* owner, std::unique_ptr<CDialog> dialog, CDialog::Ended onEnded) {
    CDialog* running = dialog.get();
    const auto ended = [running, onEnded = std::move(onEnded)](int result) {
        if (onEnded)
            onEnded(result);
        AfxReleaseOwnedWindow(running);
    };
    if (running->DoModal(ended) != 0)
        return false;
    AfxKeepOwnedWindow(owner, std::move(dialog));
    return true;
}

void DDX_Control(CDataExchange* exchange, int id, CWnd& control) {
    if (!exchange || control.GetSafeHwnd())
        return;
    auto* dialog = dynamic_cast<CDialog*>(exchange->m_pDlgWnd);
    if (!dialog || !dialog->SubclassDlgItem(id, control))
        exchange->Fail();
}
