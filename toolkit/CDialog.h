// A modal dialog built from a layout given in code: a title strip drawn
// by the toolkit (drag it to move the dialog, × to cancel), the layout's controls, keyboard
// handling (Tab and Shift+Tab between controls, Return for OK or the focused button, Escape
// for Cancel), with its owner disabled while it runs. It runs no loop of its own: DoModal
// returns at once and the end is reported later, so its caller keeps the object (not on
// the stack) until then; the controls that the layout made are its own.
#pragma once

#include "toolkit/CDataExchange.h"
#include "toolkit/CWnd.h"
#include "toolkit/DialogTemplate.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <vector>

class CDialog : public CWnd {
public:
    // Told IDOK after OnOK, IDCANCEL after Cancel.
    using Ended = std::function<void(int result)>;

    // A dialog known only by its template id has no layout: DoModal fails.
    explicit CDialog(UINT templateId, CWnd* parent = nullptr);
    // A dialog destroyed while it runs is not told; its owner is enabled again.
    ~CDialog() override;

    // Shows the dialog and returns at once: 0 while it runs, -1 when it cannot be made or
    // its initialisation fails. Unlike the Win32 call it does not wait for the end, as no
    // nested loop may run inside a Linux host's call. Once the dialog has ended (hidden at
    // once, destroyed at the next pump), onEnded is told the result; it may destroy this
    // object. A dialog that is not running has no end to report.
    virtual int DoModal(Ended onEnded);
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
    // A dialog with its layout, under the template id its callers know it by (if any).
    CDialog(const DialogTemplate& layout, CWnd* parent, UINT templateId = 0);
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
    void FinishModal();
    void EnableOwnerAgain();
    std::unique_ptr<CWnd> MakeControl(const DialogItemTemplate& item);
    std::vector<CWnd*> TabStops() const;
    CRect CloseBox() const;

    UINT m_nIDTemplate;
    CWnd* m_pOwner;
    std::unique_ptr<DialogTemplate> m_layout;
    std::vector<LayoutControl> m_layoutControls;
    bool m_ended = false;
    int m_result = -1;
    Ended m_onEnded;
    // The owner this dialog disabled, known by its view so that a destroyed one is left alone.
    CWnd* m_disabledOwner = nullptr;
    std::uint64_t m_disabledOwnerView = 0;
    bool m_dragging = false;
    CPoint m_dragOffset;
};

// Runs a dialog that the toolkit keeps for the owner window: once it has ended, onEnded is
// told the result and the dialog goes. If the owner is destroyed first, the dialog goes
// with it, untold. False when the dialog cannot run.
bool AfxRunKeptDialog(const CWnd* owner, std::unique_ptr<CDialog> dialog, CDialog::Ended onEnded);

// Binds the dialog's control with the id to the object, so that the object's operations act
// on it (the dialog builds the control as that object).
void DDX_Control(CDataExchange* exchange, int id, CWnd& control);
