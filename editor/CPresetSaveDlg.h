// The dialog that stores the current settings as one of the effect's 64 programs under a
// name: a list of the programs ("1:" to "64:" with their names) and a field for the name.
// Made by the panel for one save; the panel saves when the dialog ends with IDOK.
#pragma once

#include "base/CString.h"
#include "effect/ZephyraEditorSeam.h"
#include "toolkit/CComboBox.h"
#include "toolkit/CDialog.h"
#include "toolkit/MessageMap.h"

class CPresetSaveDlg : public CDialog {
public:
    static constexpr UINT kTemplateId = 5040;
    static constexpr int kProgramListId = 1120;
    static constexpr int kNameFieldId = 5000;
    // The longest name stored, in Shift-JIS bytes.
    static constexpr int kNameBytes = 23;

    CPresetSaveDlg(CWnd* parent, ZephyraEditorEffect* effect);

    // What OnOK chose: the program (from 0) and its name in Shift-JIS.
    int GetChosenProgram() const { return m_chosenProgram; }
    const CString& GetChosenName() const { return m_chosenName; }

    void DoDataExchange(CDataExchange* exchange) override;
    bool OnInitDialog() override;
    void OnOK() override;

protected:
    void OnSelPGMCombo();

    DECLARE_MESSAGE_MAP()

private:
    CString ProgramName(int program) const;

    CComboBox m_programList;
    int m_chosenProgram = 0;
    CString m_chosenName;
    ZephyraEditorEffect* m_pEffect;
};

// A Shift-JIS name cut to what a program keeps, without half of a two-byte character at
// its end.
CString CutProgramName(const CString& shiftJis);
