// A single-line text field drawn by the toolkit: caret, selection, text limit, left, centred
// or right-aligned text that scrolls to keep the caret in view, mouse and keyboard editing.
// Positions count characters. The user's edits tell the parent with WM_COMMAND (EN_CHANGE);
// a spin button may name the field as its buddy.
#pragma once

#include "toolkit/CWnd.h"

class CDC;
class CSpinButtonCtrl;

class CEdit : public CWnd {
public:
    static constexpr int kDefaultLimit = 30000;

    virtual bool Create(DWORD style, const RECT& rect, CWnd* parent, UINT id);

    void SetLimitText(UINT maxCharacters);
    UINT GetLimitText() const { return static_cast<UINT>(m_limit); }
    // (0, -1) selects everything; a start of -1 removes the selection. The no-scroll flag
    // is not used.
    void SetSel(int start, int end, bool noScroll = false);
    void GetSel(int& start, int& end) const;
    // Sets the text with the caret at its end and tells the parent (EN_CHANGE).
    void SetWindowText(const char* text) override;
    // Sets the text without telling anyone (a spin button writing its position).
    void SetTextForSpin(const char* text);
    // Tells the buddy spin button the value the field now shows.
    void NotifySpinButton();
    void AttachSpinButton(CSpinButtonCtrl* spin) { m_spin = spin; }

    // The ordinary key handling: WM_KEYDOWN moves the caret (Home, End), deletes forward and
    // steps a buddy spin with the up and down keys; WM_CHAR inserts, erases backwards and
    // moves the caret with the arrow characters.
    bool PreTranslateMessage(MSG* msg) override;
    void OnKeyDown(UINT key, UINT repeat, UINT flags);
    void OnChar(UINT character, UINT repeat, UINT flags);

protected:
    bool TakesKeyboard() const override { return true; }
    void OnPaint();
    void OnLButtonDown(UINT flags, CPoint point);
    void OnLButtonDblClk(UINT flags, CPoint point);
    void OnMouseMove(UINT flags, CPoint point);
    void OnLButtonUp(UINT flags, CPoint point);
    void OnSetFocus(CWnd* oldWnd);
    void OnKillFocus(CWnd* newWnd);

    DECLARE_MESSAGE_MAP()

private:
    int Length() const;
    void MoveCaret(int position, bool extend);
    void ReplaceSelection(const std::string& replacement);
    void NotifyParent(UINT code);
    int TextX(CDC& dc, int position) const;
    int PositionAt(int x);
    CRect TextBox() const;

    int m_limit = kDefaultLimit;
    int m_anchor = 0; // the fixed end of the selection
    int m_caret = 0;  // the moving end, where the caret stands
    int m_scroll = 0; // pixels of text scrolled out at the left
    bool m_selecting = false;
    unsigned m_lastKey = 0;
    CSpinButtonCtrl* m_spin = nullptr;
};
