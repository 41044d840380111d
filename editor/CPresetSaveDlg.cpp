#include "editor/CPresetSaveDlg.h"

#include "base/SJIS.h"
#include "effect/AZephyraProgram.h"
#include "toolkit/WinControlIds.h"
#include "toolkit/WinStyles.h"

namespace {

DialogTemplate SaveDialogLayout() {
    DialogTemplate layout;
    layout.title = "Save Program";
    layout.width = 300;
    layout.height = 132;
    layout.items = {
        {DialogItemKind::Static, -1, {16, 18, 76, 38}, "Program", 0},
        {DialogItemKind::ComboBox,
         CPresetSaveDlg::kProgramListId,
         {84, 14, 284, 40},
         "",
         CBS_DROPDOWNLIST},
        {DialogItemKind::Static, -1, {16, 58, 76, 78}, "Name", 0},
        {DialogItemKind::Edit, CPresetSaveDlg::kNameFieldId, {84, 54, 284, 80}, "", ES_AUTOHSCROLL},
        {DialogItemKind::Button, IDCANCEL, {112, 94, 192, 120}, "Cancel", 0},
        {DialogItemKind::DefaultButton, IDOK, {204, 94, 284, 120}, "OK", 0},
    };
    return layout;
}

} // namespace

BEGIN_MESSAGE_MAP(CPresetSaveDlg, CDialog)
ON_CBN_SELCHANGE(CPresetSaveDlg::kProgramListId, OnSelPGMCombo)
END_MESSAGE_MAP()

CPresetSaveDlg::CPresetSaveDlg(CWnd* parent, ZephyraEditorEffect* effect)
    : CDialog(SaveDialogLayout(), parent, kTemplateId), m_pEffect(effect) {}

void CPresetSaveDlg::DoDataExchange(CDataExchange* exchange) {
    CDialog::DoDataExchange(exchange);
    DDX_Control(exchange, kProgramListId, m_programList);
}

CString CPresetSaveDlg::ProgramName(int program) const {
    CString name;
    CheckSJISAndToUFT8(m_pEffect->GetProgramNameBytes(program), name);
    return name;
}

bool CPresetSaveDlg::OnInitDialog() {
    if (!CDialog::OnInitDialog())
        return false;
    for (int program = 0; program < kNumPrograms; ++program) {
        CString entry;
        entry.Format("%d:%s", program + 1, ProgramName(program).GetString());
        m_programList.AddString(entry);
    }
    const int current = m_pEffect->getProgram();
    m_programList.SetCurSel(current);
    SetDlgItemText(kNameFieldId, ProgramName(current));
    return true;
}

// Picking a program offers its name, replacing what was typed.
void CPresetSaveDlg::OnSelPGMCombo() {
    const int program = m_programList.GetCurSel();
    if (program >= 0)
        SetDlgItemText(kNameFieldId, ProgramName(program));
}

void CPresetSaveDlg::OnOK() {
    m_chosenProgram = m_programList.GetCurSel();
    CString typed;
    GetDlgItemText(kNameFieldId, typed);
    m_chosenName = CutProgramName(UTF8ToSJSINS(typed));
    CDialog::OnOK();
}

// Deliberately crude, as the lead-byte test is: a single-byte character of 0x80 or above in
// the last place goes as well.
CString CutProgramName(const CString& shiftJis) {
    if (shiftJis.GetLength() < CPresetSaveDlg::kNameBytes)
        return shiftJis;
    const int lastByte = CPresetSaveDlg::kNameBytes - 1;
    const bool endsInLeadByte = IsDBCSLeadByte(static_cast<unsigned char>(shiftJis[lastByte]));
    return shiftJis.Left(endsInLeadByte ? lastByte : CPresetSaveDlg::kNameBytes);
}
