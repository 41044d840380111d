// The floating entry window over a read-out: a right-aligned numeric field with a spin
// button beside it, sized from its font for the digits asked for. Made once, hidden, by the
// panel, which shows and fills it for each entry; Return and Escape end the entry and are
// told to the panel (WM_ENTRY_RETURN, WM_ENTRY_ESCAPE). Owned by the panel.
#pragma once

#include "editor/CNormalFloatEdit.h"
#include "toolkit/CSpinButtonCtrl.h"
#include "toolkit/CWnd.h"
#include "toolkit/MessageMap.h"

class CFont;

class CQMTFloatEditWnd : public CWnd {
public:
    static constexpr UINT kSpinId = 18000;
    static constexpr UINT kEditId = 18001;

    // Creates the window hidden inside parent; target receives the entry's end.
    bool MakeWindow(CWnd* parent, CWnd* target, const char* name, const RECT& rect, int digits,
                    CFont* font, bool sign);

    // The spin range and position, the value in the field and the focus on it.
    void SetNewValue(int value, int minimum, int maximum);
    void SetSingnFlag(bool sign);
    // Room for this many digits (and a sign).
    void ChangeSize(int digits, bool sign);

    CNormalFloatEdit& GetEdit() { return m_edit; }
    CSpinButtonCtrl& GetSpin() { return m_spin; }

protected:
    int OnCreate(CREATESTRUCT* create);
    void OnPaint();
    LRESULT OnReturn(WPARAM wParam, LPARAM lParam);
    LRESULT OnEscape(WPARAM wParam, LPARAM lParam);

    DECLARE_MESSAGE_MAP()

private:
    void ComputeSize();

    CSpinButtonCtrl m_spin;
    CNormalFloatEdit m_edit;
    CWnd* m_pTarget = nullptr;
    int m_length = 0; // characters: the digits and one more
    bool m_sign = false;
    CFont* m_pFont = nullptr;
    int m_charWidth = 0;
    int m_charHeight = 0;
    int m_spinWidth = 0;
    int m_width = 0;
    int m_height = 0;
};
