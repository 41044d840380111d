// Up and down arrows beside a field (its buddy): a click steps the position by one within
// the range (held down, it repeats), and the new position is written into the buddy as text
// in the spin button's number base. Drawn by the toolkit.
#pragma once

#include "toolkit/CWnd.h"

class CSpinButtonCtrl : public CWnd {
public:
    static constexpr UINT kRepeatTimerMs = 60;
    static constexpr int kRepeatDelayTicks = 6; // before repeating starts

    virtual bool Create(DWORD style, const RECT& rect, CWnd* parent, UINT id);

    int SetBase(int base);
    int GetBase() const { return m_base; }
    // A buddy that is an edit field also learns of the spin button (its arrow keys step it).
    CWnd* SetBuddy(CWnd* buddy);
    CWnd* GetBuddy() const { return m_buddy; }
    void SetRange(short lower, short upper) { SetRange32(lower, upper); }
    void SetRange32(int lower, int upper);
    // Sets the position (kept inside the range) and writes it into the buddy; returns the
    // previous position.
    int SetPos(int position);
    int GetPos() const { return m_position; }
    // Sets the position only.
    void SetPosForSpin(int position);
    // What a click on an arrow does: up (+1) or down (-1), stopping at the ends, and the
    // buddy shows the new position when the style has UDS_SETBUDDYINT.
    void Step(int direction);

protected:
    void OnPaint();
    void OnLButtonDown(UINT flags, CPoint point);
    void OnLButtonUp(UINT flags, CPoint point);
    void OnTimer(UINT id);

    DECLARE_MESSAGE_MAP()

private:
    void WriteBuddy();
    int Clamp(int position) const;

    int m_base = 10;
    CWnd* m_buddy = nullptr;
    int m_lower = 0;
    int m_upper = 100;
    int m_position = 0;
    int m_heldDirection = 0;
    int m_heldTicks = 0;
};
