// A list that pops up above everything, for menus and drop-down lists: drawn by the
// toolkit, driven by mouse and keyboard, open until an item is chosen or the list is
// dismissed (a click outside it, Escape). A list too long for the screen is laid out in
// columns or scrolls. Opening returns at once; the toolkit keeps the list for its owner
// window and reports how it ended from a later pump.
#pragma once

#include "toolkit/CFont.h"
#include "toolkit/CWnd.h"

#include <functional>
#include <vector>

struct PopupListItem {
    CString text;
    bool enabled = true;
    bool checked = false;
    bool separator = false;
};

class PopupListWnd : public CWnd {
public:
    enum class Layout { Columns, Scrolling };
    static constexpr int kMaxScrollingRows = 12;

    // Told the chosen index, or -1 when the list was dismissed.
    using Closed = std::function<void(int chosen)>;

    // Shows the list with its top-left corner at the screen point (moved to stay on the
    // screen), the item alignItem at that point when it is not -1, at least minWidth wide,
    // and returns: false when it cannot be shown. Once the list has closed, onClosed runs
    // from the pump, unless the owner was destroyed first, which takes the list with it.
    static bool Open(std::vector<PopupListItem> items, Layout layout, CWnd* owner,
                     CPoint screenPoint, int minWidth, int alignItem, int highlighted,
                     Closed onClosed);
    // The list opened last of those open now, if any.
    static PopupListWnd* Active();
    ~PopupListWnd() override;

    int GetHighlighted() const { return m_hot; }
    // Client rectangle of an item (visible or not, in scrolled coordinates).
    CRect ItemRect(int index) const;
    int GetFirstVisible() const { return m_firstVisible; }
    int GetColumnCount() const { return m_columns; }

protected:
    void OnPaint();
    void OnMouseMove(UINT flags, CPoint point);
    void OnLButtonDown(UINT flags, CPoint point);
    void OnLButtonUp(UINT flags, CPoint point);
    void OnKeyDown(UINT key, UINT repeat, UINT flags);
    LRESULT OnMouseWheel(WPARAM wParam, LPARAM lParam);
    bool TakesKeyboard() const override { return true; }

    DECLARE_MESSAGE_MAP()

private:
    PopupListWnd(std::vector<PopupListItem> items, Layout layout, Closed onClosed);
    bool Show(CWnd* owner, CPoint screenPoint, int minWidth, int alignItem, int highlighted);
    void Close();
    void Measure(const RECT& screen, int minWidth);
    int HitTest(CPoint point) const;
    bool Selectable(int index) const;
    void MoveHighlight(int step);
    void SetHighlight(int index);
    void ScrollTo(int firstVisible);
    void EnsureVisible(int index);
    void Finish(int result);
    bool HasScrollBar() const;
    CRect ScrollBarRect() const;
    CRect ThumbRect() const;

    std::vector<PopupListItem> m_items;
    Layout m_layout;
    CFont m_listFont;
    int m_rowHeight = 22;
    int m_columnWidth = 0;
    int m_rowsPerColumn = 1;
    int m_columns = 1;
    int m_visibleRows = 1;
    int m_firstVisible = 0;
    int m_hot = -1;
    int m_result = -1;
    bool m_done = false;
    Closed m_onClosed;
    bool m_armed = false;
    bool m_draggingThumb = false;
    int m_thumbGrab = 0;
};
