// The context of one data exchange between a dialog's controls and its members: the
// direction, and whether a step failed.
#pragma once

class CWnd;

class CDataExchange {
public:
    CDataExchange(CWnd* dialog, bool saveAndValidate)
        : m_bSaveAndValidate(saveAndValidate), m_pDlgWnd(dialog) {}

    void Fail() { m_failed = true; }
    bool Failed() const { return m_failed; }

    const bool m_bSaveAndValidate; // true: controls to members; false: members to controls
    CWnd* const m_pDlgWnd;

private:
    bool m_failed = false;
};
