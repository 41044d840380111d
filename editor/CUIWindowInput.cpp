// What the panel does with the mouse: typed entry over the read-outs, knobs and sliders
// dragged, switches clicked, the copy-program menu, the save dialog and the program lamp.
#include "base/SJIS.h"
#include "editor/CPresetSaveDlg.h"
#include "editor/CUIWindow.h"
#include "editor/CZephyraEditor.h"
#include "effect/AZephyraProgram.h"
#include "effect/StringTable.h"
#include "toolkit/AfxMessageBox.h"
#include "toolkit/CClientDC.h"
#include "toolkit/CMenu.h"
#include "toolkit/WinControlIds.h"
#include "toolkit/WinStyles.h"

#include <cstdlib>
#include <memory>

namespace {

// The current program's entry in the copy menu: checked and not to be chosen.
constexpr UINT kCurrentProgramItem = MF_CHECKED | MF_GRAYED | MF_DISABLED;
constexpr UINT kCopyMenuFlags = 2;
// The entry's text as the panel reads it: at most this many characters.
constexpr int kEntryReadLength = 50;

int Tenths(float value) {
    return static_cast<int>(value * 10);
}

} // namespace

void CUIWindow::OnLButtonDown(UINT, CPoint point) {
    CClientDC dc(this);
    HideEdit();
    // The first hit takes the press.
    if (!StartEntry(point) && !PressDragControl(point, &dc))
        PressSwitch(point, &dc);
    DeliverPendingUpdates();
}

// A double click does what a single press does.
void CUIWindow::OnLButtonDblClk(UINT flags, CPoint point) {
    OnLButtonDown(flags, point);
}

bool CUIWindow::StartEntry(CPoint point) {
    for (const EntryLayout& entry : kEntryLayout) {
        const CRect readout(entry.readout);
        if (!readout.PtInRect(point))
            continue;
        float minimum = 0.0f;
        float maximum = 0.0f;
        GetParamMinMax(entry.parameter, &minimum, &maximum);
        const float value = Effect()->getParameterDisplayVal(entry.parameter);
        ShowEdit(Tenths(value), Tenths(minimum), Tenths(maximum), entry.sign, entry.digits, readout,
                 entry.target);
        return true;
    }
    return false;
}

// A pressed knob or slider jumps to the pointer at once and follows it until the release.
bool CUIWindow::PressDragControl(CPoint point, CDC* dc) {
    for (CQMTDragControl* control : DragControls()) {
        if (control->PressAt(point, dc))
            return true;
    }
    return false;
}

CQMTDragControl* CUIWindow::DraggedControl() {
    for (CQMTDragControl* control : DragControls()) {
        if (control->IsDragging())
            return control;
    }
    return nullptr;
}

// Knobs first, then sliders: the order in which the panel hit-tests them.
std::array<CQMTDragControl*, kKnobCount + kSliderCount> CUIWindow::DragControls() {
    std::array<CQMTDragControl*, kKnobCount + kSliderCount> controls{};
    for (int slot = 0; slot < kKnobCount; ++slot)
        controls[slot] = &m_knobs[slot];
    for (int slot = 0; slot < kSliderCount; ++slot)
        controls[kKnobCount + slot] = &m_sliders[slot];
    return controls;
}

bool CUIWindow::PressSwitch(CPoint point, CDC* dc) {
    if (m_onOffSwitch.PtInSwitch(point)) {
        m_onOffSwitch.SetValue(m_onOffSwitch.GetValue() ? 0 : 1, true);
        m_onOffSwitch.DrawSwitch(dc);
        return true;
    }
    for (int slot = 0; slot < kTypeSwitchCount; ++slot) {
        if (m_typeSwitches[slot].PtInSwitch(point)) {
            SelectTypeByUser(slot, dc);
            return true;
        }
    }
    if (m_copyButton.PtInSwitch(point)) {
        ShowCopyMenu();
        return true;
    }
    return false;
}

// The three type switches of a band are radio buttons: the clicked one tells the effect,
// the other two go off quietly.
void CUIWindow::SelectTypeByUser(int slot, CDC* dc) {
    m_typeSwitches[slot].SetValue(1, true);
    m_typeSwitches[slot].DrawSwitch(dc);
    const int band = slot / kTypesPerBand;
    for (int other = band * kTypesPerBand; other < (band + 1) * kTypesPerBand; ++other) {
        if (other == slot)
            continue;
        m_typeSwitches[other].SetValue(0, false);
        m_typeSwitches[other].DrawSwitch(dc);
    }
}

// The button shows pressed while the menu is open, and is released once the menu has
// closed, after a chosen program has been copied. Program names are stored in Shift-JIS.
void CUIWindow::ShowCopyMenu() {
    {
        CClientDC dc(this);
        m_copyButton.SetValue(m_copyButton.GetValue() ? 0 : 1, false);
        m_copyButton.DrawSwitch(&dc);
    }
    ZephyraEditorEffect* effect = Effect();
    CMenu menu;
    menu.CreatePopupMenu();
    const int current = effect->getProgram();
    for (int program = 0; program < kNumPrograms; ++program) {
        CString name;
        CheckSJISAndToUFT8(effect->GetProgramNameBytes(program), name);
        menu.AppendMenu(program == current ? kCurrentProgramItem : MF_STRING,
                        kCopyProgramFirstCommand + static_cast<UINT>(program), name);
    }
    if (!menu.TrackPopupMenu(kCopyMenuFlags, kCopyMenuLeft, kCopyMenuTop, this, nullptr,
                             [this](bool) { ReleaseCopyButton(); }))
        ReleaseCopyButton();
}

void CUIWindow::ReleaseCopyButton() {
    CClientDC dc(this);
    m_copyButton.SetValue(0, false);
    m_copyButton.DrawSwitch(&dc);
}

// A menu enables all its items as it opens: the current program goes grey again, so that
// it cannot be chosen.
LRESULT CUIWindow::OnInitMenuPopup(WPARAM menu, LPARAM) {
    if (CMenu* opened = CMenu::FromHandle(reinterpret_cast<HMENU>(menu))) {
        const UINT current = kCopyProgramFirstCommand + static_cast<UINT>(Effect()->getProgram());
        opened->EnableMenuItem(current, MF_BYCOMMAND | MF_GRAYED | MF_DISABLED);
    }
    return 0;
}

void CUIWindow::OnSelCopyPg(UINT command) {
    Effect()->CopyPgFrom(static_cast<int>(command - kCopyProgramFirstCommand));
    InvalidateProgramLamp();
    DeliverPendingUpdates();
}

void CUIWindow::OnMouseMove(UINT flags, CPoint point) {
    CWnd::OnMouseMove(flags, point);
    if (CQMTDragControl* dragged = DraggedControl()) {
        CClientDC dc(this);
        dragged->OnMouseMove(point, &dc);
    }
}

// A release ends a drag; without one, it is a click on the save button or the lamp.
void CUIWindow::OnLButtonUp(UINT, CPoint point) {
    if (CQMTDragControl* dragged = DraggedControl()) {
        CClientDC dc(this);
        dragged->OnLButtonUp(point, &dc);
    } else if (CRect(kSaveButtonRect).PtInRect(point)) {
        SaveWithDialog();
    } else if (CRect(kProgramLampRect).PtInRect(point)) {
        Effect()->ProgramToInitial();
        DeliverPendingUpdates();
    }
}

// The dialog outlives this call: the host goes on while it is open. The toolkit keeps it
// for the panel, and closing the editor first takes it away unsaved.
void CUIWindow::SaveWithDialog() {
    auto dialog = std::make_unique<CPresetSaveDlg>(nullptr, Effect());
    const CPresetSaveDlg& chosen = *dialog;
    AfxRunKeptDialog(this, std::move(dialog), [this, &chosen](int result) {
        if (result == IDOK &&
            !Effect()->SaveProgram(chosen.GetChosenProgram(), chosen.GetChosenName()))
            AfxMessageBox(LoadStringResource(kStringBankSaveFailed));
        DeliverPendingUpdates();
    });
}

void CUIWindow::ShowEdit(int value, int minimum, int maximum, bool sign, int width, CRect rect,
                         int target) {
    m_entry.SetNewValue(value, minimum, maximum);
    m_entry.SetSingnFlag(sign);
    m_entry.ChangeSize(width, sign);
    m_entry.SetWindowPos(nullptr, rect.left + 1, rect.top, 0, 0, SWP_NOSIZE | SWP_NOZORDER);
    m_entry.GetEdit().SetSel(0, -1);
    m_entry.ShowWindow(SW_SHOW);
    m_entry.GetEdit().SetFocus();
    m_editTarget = target;
}

// An entry left open is abandoned, and the keyboard goes back with it.
void CUIWindow::HideEdit() {
    m_editTarget = kNoEntry;
    if (!m_entry.IsWindowVisible())
        return;
    m_entry.ShowWindow(SW_HIDE);
    SetFocus();
}

// The entry reports tenths; the value is nudged by half a hundredth away from zero so that
// a cut to one decimal further on cannot lose the last digit.
LRESULT CUIWindow::OnInputValReturn(WPARAM, LPARAM) {
    char text[kEntryReadLength + 1] = {};
    m_entry.GetEdit().GetWindowText(text, kEntryReadLength);
    const int tenths = std::atoi(text);
    for (const EntryLayout& entry : kEntryLayout) {
        if (entry.target != m_editTarget)
            continue;
        float value = static_cast<float>(tenths / 10.0);
        value = static_cast<float>(tenths < 0 ? value - 0.005 : value + 0.005);
        float minimum = 0.0f;
        float maximum = 0.0f;
        GetParamMinMax(entry.parameter, &minimum, &maximum);
        value = value < minimum ? minimum : (value > maximum ? maximum : value);
        Effect()->setParameterFromDiaplay(entry.parameter, value);
    }
    m_editTarget = kNoEntry;
    InvalidateProgramLamp();
    DeliverPendingUpdates();
    Invalidate(true);
    UpdateWindow();
    return 0;
}
