// A drop-down list (CBS_DROPDOWNLIST): shows the selected entry and a chevron; a click or
// the keyboard opens the list below it. A choice by the user tells the parent with
// WM_COMMAND (CBN_SELCHANGE, the list's id, its handle); selections made in code do not.
// Entries are UTF-8 text.
#pragma once

#include "toolkit/CWnd.h"

#include <vector>

constexpr int CB_ERR = -1;

class CComboBox : public CWnd {
public:
    virtual bool Create(DWORD style, const RECT& rect, CWnd* parent, UINT id);

    int AddString(const char* text);
    int GetCount() const { return static_cast<int>(m_entries.size()); }
    // The selected index (from 0), or CB_ERR when nothing is selected.
    int GetCurSel() const { return m_selected; }
    // Selects an entry (-1 for none); CB_ERR for an index outside the list.
    int SetCurSel(int index);
    int GetLBText(int index, CString& text) const;
    // Opens the list and returns; a choice from it reaches the parent once the list closes.
    void ShowDropDown(bool show = true);

protected:
    bool TakesKeyboard() const override { return true; }
    void OnPaint();
    void OnLButtonDown(UINT flags, CPoint point);
    void OnKeyDown(UINT key, UINT repeat, UINT flags);
    LRESULT OnMouseWheel(WPARAM wParam, LPARAM lParam);
    void OnSetFocus(CWnd* oldWnd);
    void OnKillFocus(CWnd* newWnd);

    DECLARE_MESSAGE_MAP()

private:
    void ChooseByUser(int index);
    void ShowSelection();

    std::vector<CString> m_entries;
    int m_selected = CB_ERR;
    bool m_dropped = false;
};
