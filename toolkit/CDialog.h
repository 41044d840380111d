// A modal dialog built from a registered layout (or one given in code): a title strip drawn
// by the toolkit (drag it to move the dialog, × to cancel), the layout's controls, keyboard
// handling (Tab and Shift+Tab between controls, Return for OK or the focused button, Escape
// for Cancel) and a nested loop while it runs, with its owner disabled. The object lives on
// its caller's stack for one DoModal; the controls that the layout made are its own.
#pragma once

#include "CDataExchange.h"
#include "CWnd.h"
#include "DialogTemplate.h"

#include <memory>
#include <vector>

class CDialog : public CWnd {
public:
    explicit CDialog(UINT templateId, CWnd* parent = nullptr);
    ~CDialog() override;

    // IDOK after OnOK, IDCANCEL after Cancel, -1 when the dialog cannot be made.
    virtual int DoModal();
    bool OnInitDialog() override;
    virtual void OnOK();
    virtual void OnCancel();
    void EndDialog(int result);
    UINT GetTemplateId() const { return m_nIDTemplate; }

    bool PreTranslateMessage(MSG* msg) override;
    // Moves the focus to the next (or previous) control that takes Tab.
    void NextDlgCtrl();
    void PrevDlgCtrl();
    void GotoDlgCtrl(CWnd* control);
    // Makes the control object take the place of the layout's control with the id; false
    // when the layout has none.
    bool SubclassDlgItem(int id, CWnd& control);

protected:
    // A dialog whose layout is given here rather than registered.
    CDialog(const DialogTemplate& layout, CWnd* parent);
    bool TakesKeyboard() const override { return true; }

    void OnPaint();
    void OnLButtonDown(UINT flags, CPoint point);
    void OnMouseMove(UINT flags, CPoint point);
    void OnLButtonUp(UINT flags, CPoint point);
    LRESULT OnSysCommand(WPARAM wParam, LPARAM lParam);

    DECLARE_MESSAGE_MAP()

private:
    struct LayoutControl {
        DialogItemTemplate item;
        std::unique_ptr<CWnd> window; // null once a member object took its place
    };

    bool CreateFromLayout(const DialogTemplate& layout, CWnd* owner);
    std::unique_ptr<CWnd> MakeControl(const DialogItemTemplate& item);
    std::vector<CWnd*> TabStops() const;
    CRect CloseBox() const;

    UINT m_nIDTemplate;
    CWnd* m_pOwner;
    std::unique_ptr<DialogTemplate> m_layout;
    std::vector<LayoutControl> m_layoutControls;
    bool m_ended = false;
    int m_result = -1;
    bool m_dragging = false;
    CPoint m_dragOffset;
};

// Binds the dialog's control with the id to the object, so that the object's operations act
// on it (the dialog builds the control as that object).
void DDX_Control(CDataExchange* exchange, int id, CWnd& control);
