#include "toolkit/PopupListWnd.h"

#include "toolkit/CPaintDC.h"
#include "toolkit/MFCView0.h"
#include "toolkit/MessagePump.h"
#include "toolkit/OwnedWindows.h"
#include "toolkit/ToolkitTheme.h"
#include "toolkit/WinStyles.h"
#include "toolkit/platform/KeyCodes.h"

#include <algorithm>

namespace {

constexpr int kRowPadding = 8;   // above and below the text of a row
constexpr int kCheckColumn = 22; // room for the check mark at the left
constexpr int kTextRight = 18;   // room after the text
constexpr int kScrollBarWidth = 8;
constexpr int kScreenMargin = 4;
constexpr int kBorder = 1;

// Open lists, in the order they opened.
std::vector<PopupListWnd*> g_openLists;

} // namespace

BEGIN_MESSAGE_MAP(PopupListWnd, CWnd)
ON_WM_PAINT()
ON_WM_MOUSEMOVE()
ON_WM_LBUTTONDOWN()
ON_WM_LBUTTONUP()
ON_WM_KEYDOWN()
ON_MESSAGE(WM_MOUSEWHEEL, OnMouseWheel)
END_MESSAGE_MAP()

PopupListWnd::PopupListWnd(std::vector<PopupListItem> items, Layout layout, Closed onClosed)
    : m_items(std::move(items)), m_layout(layout), m_onClosed(std::move(onClosed)) {
    SetBackgroundColor(theme::kWindow);
}

PopupListWnd::~PopupListWnd() {
    g_openLists.erase(std::remove(g_openLists.begin(), g_openLists.end(), this), g_openLists.end());
    DestroyWindow();
}

PopupListWnd* PopupListWnd::Active() {
    return g_openLists.empty() ? nullptr : g_openLists.back();
}

bool PopupListWnd::Open(std::vector<PopupListItem> items, Layout layout, CWnd* owner,
                        CPoint screenPoint, int minWidth, int alignItem, int highlighted,
                        Closed onClosed) {
    std::unique_ptr<PopupListWnd> list(
        new PopupListWnd(std::move(items), layout, std::move(onClosed)));
    if (!list->Show(owner, screenPoint, minWidth, alignItem, highlighted))
        return false;
    g_openLists.push_back(list.get());
    AfxKeepOwnedWindow(owner, std::move(list));
    return true;
}

void PopupListWnd::Measure(const RECT& screen, int minWidth) {
    CDC measure;
    measure.SelectObject(&m_listFont);
    int widest = 0;
    for (const PopupListItem& item : m_items)
        widest = std::max(widest, static_cast<int>(measure.GetTextExtent(item.text).cx));
    m_rowHeight = measure.GetTextExtent("Ag", 2).cy + kRowPadding;
    const int contentWidth = kCheckColumn + widest + kTextRight;

    const int count = std::max(1, static_cast<int>(m_items.size()));
    const int screenRows = std::max(
        1, (static_cast<int>(screen.bottom - screen.top) - 2 * kScreenMargin) / m_rowHeight);
    if (m_layout == Layout::Columns) {
        m_rowsPerColumn = std::min(count, screenRows);
        m_columns = (count + m_rowsPerColumn - 1) / m_rowsPerColumn;
        m_visibleRows = m_rowsPerColumn;
    } else {
        m_rowsPerColumn = count;
        m_columns = 1;
        m_visibleRows = std::min({count, kMaxScrollingRows, screenRows});
    }
    m_columnWidth =
        std::max(minWidth - 2 * kBorder, contentWidth + (HasScrollBar() ? kScrollBarWidth : 0));
}

bool PopupListWnd::HasScrollBar() const {
    return m_layout == Layout::Scrolling && m_visibleRows < static_cast<int>(m_items.size());
}

bool PopupListWnd::Show(CWnd* owner, CPoint screenPoint, int minWidth, int alignItem,
                        int highlighted) {
    if (!owner || !owner->GetSafeHwnd())
        return false;
    m_listFont.CopyFrom(*owner->GetFont());
    const RECT screen = MFCView0::ScreenBounds(*owner->GetSafeHwnd()->Platform());
    Measure(screen, minWidth);
    const int width = m_columns * m_columnWidth + 2 * kBorder;
    const int height = m_visibleRows * m_rowHeight + 2 * kBorder;

    if (alignItem >= 0 && alignItem < static_cast<int>(m_items.size()))
        screenPoint.y -= (alignItem % m_rowsPerColumn) * m_rowHeight + kBorder;
    CPoint at = screenPoint;
    if (at.x + width > screen.right - kScreenMargin)
        at.x = screen.right - kScreenMargin - width;
    if (at.y + height > screen.bottom - kScreenMargin)
        at.y = screen.bottom - kScreenMargin - height;
    at.x = std::max(at.x, static_cast<int>(screen.left) + kScreenMargin);
    at.y = std::max(at.y, static_cast<int>(screen.top) + kScreenMargin);

    if (!CreateEx(0, nullptr, "", WS_POPUP, at.x, at.y, width, height, owner->GetSafeHwnd(), 0))
        return false;
    m_hot = Selectable(highlighted) ? highlighted : -1;
    if (m_hot >= 0)
        EnsureVisible(m_hot);
    ShowWindow(SW_SHOW);
    GetSafeHwnd()->GrabInput();
    return true;
}

CRect PopupListWnd::ItemRect(int index) const {
    const int column = index / m_rowsPerColumn;
    const int row = index % m_rowsPerColumn - m_firstVisible;
    const int left = kBorder + column * m_columnWidth;
    const int top = kBorder + row * m_rowHeight;
    const int scrollBar = HasScrollBar() ? kScrollBarWidth : 0;
    return CRect(left, top, left + m_columnWidth - scrollBar, top + m_rowHeight);
}

CRect PopupListWnd::ScrollBarRect() const {
    CRect client;
    GetClientRect(&client);
    return CRect(client.right - kBorder - kScrollBarWidth, kBorder, client.right - kBorder,
                 client.bottom - kBorder);
}

CRect PopupListWnd::ThumbRect() const {
    const CRect track = ScrollBarRect();
    const int count = static_cast<int>(m_items.size());
    const int thumbHeight = std::max(16, track.Height() * m_visibleRows / count);
    const int travel = track.Height() - thumbHeight;
    const int maxFirst = count - m_visibleRows;
    const int top = track.top + (maxFirst > 0 ? travel * m_firstVisible / maxFirst : 0);
    return CRect(track.left + 2, top, track.right - 2, top + thumbHeight);
}

int PopupListWnd::HitTest(CPoint point) const {
    CRect client;
    GetClientRect(&client);
    if (!client.PtInRect(point) || (HasScrollBar() && ScrollBarRect().PtInRect(point)))
        return -1;
    for (int column = 0; column < m_columns; ++column) {
        for (int row = 0; row < m_visibleRows; ++row) {
            const int index = column * m_rowsPerColumn + row + m_firstVisible;
            if (index < static_cast<int>(m_items.size()) && ItemRect(index).PtInRect(point))
                return index;
        }
    }
    return -1;
}

bool PopupListWnd::Selectable(int index) const {
    return index >= 0 && index < static_cast<int>(m_items.size()) && m_items[index].enabled &&
           !m_items[index].separator;
}

void PopupListWnd::SetHighlight(int index) {
    if (index == m_hot)
        return;
    m_hot = index;
    Invalidate();
}

void PopupListWnd::MoveHighlight(int step) {
    const int count = static_cast<int>(m_items.size());
    int index = m_hot;
    for (int tries = 0; tries < count; ++tries) {
        index = index < 0 ? (step > 0 ? 0 : count - 1) : index + step;
        if (index < 0 || index >= count) {
            index = std::clamp(index, 0, count - 1);
            if (!Selectable(index))
                return;
        }
        if (Selectable(index))
            break;
    }
    if (Selectable(index)) {
        SetHighlight(index);
        EnsureVisible(index);
    }
}

void PopupListWnd::ScrollTo(int firstVisible) {
    const int maxFirst = std::max(0, static_cast<int>(m_items.size()) - m_visibleRows);
    firstVisible = std::clamp(firstVisible, 0, maxFirst);
    if (m_layout != Layout::Scrolling || firstVisible == m_firstVisible)
        return;
    m_firstVisible = firstVisible;
    Invalidate();
}

void PopupListWnd::EnsureVisible(int index) {
    if (index < m_firstVisible)
        ScrollTo(index);
    else if (index >= m_firstVisible + m_visibleRows)
        ScrollTo(index - m_visibleRows + 1);
}

// The list leaves the screen and lets go of the pointer at once; it is told and destroyed
// once the handler that ended it has returned.
void PopupListWnd::Finish(int result) {
    if (m_done)
        return;
    m_result = result;
    m_done = true;
    if (GetSafeHwnd())
        GetSafeHwnd()->ReleaseInput();
    ShowWindow(SW_HIDE);
    g_openLists.erase(std::remove(g_openLists.begin(), g_openLists.end(), this), g_openLists.end());
    AfxCallLater(this, [this] { Close(); });
}

void PopupListWnd::Close() {
    const Closed onClosed = std::move(m_onClosed);
    const int result = m_result;
    AfxReleaseOwnedWindow(this);
    if (onClosed)
        onClosed(result);
}

void PopupListWnd::OnPaint() {
    CPaintDC dc(this);
    CRect client;
    GetClientRect(&client);
    dc.FillSolidRect(client, theme::kWindow);
    dc.FrameRoundRect(client, 0, theme::kBorder);
    dc.SelectObject(&m_listFont);
    for (int column = 0; column < m_columns; ++column) {
        for (int row = 0; row < m_visibleRows; ++row) {
            const int index = column * m_rowsPerColumn + row + m_firstVisible;
            if (index >= static_cast<int>(m_items.size()))
                break;
            const PopupListItem& item = m_items[index];
            const CRect box = ItemRect(index);
            if (item.separator) {
                const double y = box.top + box.Height() / 2 + 0.5;
                dc.DrawLine(box.left + 6, y, box.right - 6, y, theme::kBorder);
                continue;
            }
            const bool hot = index == m_hot;
            if (hot) {
                CRect highlight(box);
                highlight.DeflateRect(3, 1);
                dc.FillRoundRect(highlight, theme::kCornerRadius, theme::kAccent);
            }
            const COLORREF ink = !item.enabled ? theme::kTextDim
                                 : hot         ? theme::kAccentText
                                               : theme::kText;
            if (item.checked) {
                const double cx = box.left + kCheckColumn / 2.0;
                const double cy = box.top + box.Height() / 2.0;
                dc.DrawLine(cx - 4, cy, cx - 1, cy + 3, ink, 1.6);
                dc.DrawLine(cx - 1, cy + 3, cx + 5, cy - 4, ink, 1.6);
            }
            dc.SetTextColor(ink);
            CRect text(box);
            text.left += kCheckColumn;
            dc.DrawText(item.text, text, DT_LEFT | DT_VCENTER | DT_SINGLELINE);
        }
    }
    if (HasScrollBar()) {
        CRect track = ScrollBarRect();
        track.DeflateRect(1, 2);
        dc.FillRoundRect(track, 3, theme::kField);
        dc.FillRoundRect(ThumbRect(), 2, m_draggingThumb ? theme::kText : theme::kTextDim);
    }
}

void PopupListWnd::OnMouseMove(UINT, CPoint point) {
    if (m_draggingThumb) {
        const CRect track = ScrollBarRect();
        const int count = static_cast<int>(m_items.size());
        const int travel = std::max(1, track.Height() - ThumbRect().Height());
        ScrollTo((point.y - m_thumbGrab - track.top) * (count - m_visibleRows) / travel);
        return;
    }
    const int index = HitTest(point);
    if (Selectable(index)) {
        m_armed = true;
        SetHighlight(index);
    }
}

void PopupListWnd::OnLButtonDown(UINT, CPoint point) {
    CRect client;
    GetClientRect(&client);
    if (!client.PtInRect(point)) {
        Finish(-1);
        return;
    }
    m_armed = true;
    if (HasScrollBar() && ScrollBarRect().PtInRect(point)) {
        const CRect thumb = ThumbRect();
        if (thumb.PtInRect(point)) {
            m_draggingThumb = true;
            m_thumbGrab = point.y - thumb.top;
        } else {
            ScrollTo(m_firstVisible + (point.y < thumb.top ? -m_visibleRows : m_visibleRows));
        }
    }
}

// The release of the press that opened the list chooses nothing unless the pointer went
// over an item first (press, drag to the item, release).
void PopupListWnd::OnLButtonUp(UINT, CPoint point) {
    if (m_draggingThumb) {
        m_draggingThumb = false;
        Invalidate();
        return;
    }
    const int index = HitTest(point);
    if (m_armed && Selectable(index))
        Finish(index);
}

void PopupListWnd::OnKeyDown(UINT key, UINT, UINT) {
    switch (key) {
    case kKeyUp:
        MoveHighlight(-1);
        break;
    case kKeyDown:
        MoveHighlight(1);
        break;
    case kKeyLeft:
        if (m_columns > 1 && m_hot >= m_rowsPerColumn)
            SetHighlight(m_hot - m_rowsPerColumn);
        break;
    case kKeyRight:
        if (m_columns > 1 && Selectable(m_hot + m_rowsPerColumn))
            SetHighlight(m_hot + m_rowsPerColumn);
        break;
    case kKeyPageUp:
        MoveHighlight(-std::min(m_hot, m_visibleRows));
        break;
    case kKeyPageDown:
        MoveHighlight(m_visibleRows);
        break;
    case kKeyHome:
        m_hot = -1;
        MoveHighlight(1);
        break;
    case kKeyEnd:
        m_hot = -1;
        MoveHighlight(-1);
        break;
    case kKeyReturn:
    case kKeyEnter:
    case kKeySpace:
        if (Selectable(m_hot))
            Finish(m_hot);
        break;
    case kKeyEscape:
    case kKeyTab:
        Finish(-1);
        break;
    default:
        break;
    }
}

LRESULT PopupListWnd::OnMouseWheel(WPARAM wParam, LPARAM) {
    const auto turn = static_cast<short>(HIWORD(wParam));
    ScrollTo(m_firstVisible + (turn > 0 ? -3 : 3));
    return 0;
}
