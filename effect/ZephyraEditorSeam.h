// The two narrow interfaces between the effect and its editor. The effect reaches the
// editor without depending on it: the module wires a factory in, and the effect asks the
// editor for its main panel only to tell it about changed values and programs. The editor
// reaches the effect only through what it needs of it (ZephyraEditorEffect), so the panel
// does not depend on how the effect is hosted.
#pragma once

#include "base/CString.h"
#include "host/AEffEditor.h"

#include <cstdint>

class AZephyra;

// What the editor asks of the effect. All on the user-interface thread.
class ZephyraEditorEffect {
public:
    // Parameters: normalised values, what the read-outs and the host show, and the two ways
    // the panel changes a value (a control moved; a number typed in display units).
    virtual float getParameter(int32_t index) = 0;
    virtual void getParameterDisplay(int32_t index, char* text) = 0;
    virtual float getParameterDisplayVal(int index) = 0;
    virtual void setParameterFormUI(int index, float value) = 0;
    virtual void setParameterFromDiaplay(int index, float displayValue) = 0;

    // Meters: the four peaks, and a counter that moves when there are new ones.
    virtual uint16_t GetProcessCounter() const = 0;
    virtual void GetVU(float* inL, float* inR, float* outL, float* outR) = 0;

    // Programs: the current one, names as stored (Shift-JIS), whether it was edited, and
    // what the panel does with programs (revert, restore factory values, copy, save). A save
    // says whether the default bank file was written; the panel tells the user when not.
    virtual int32_t getProgram() = 0;
    virtual const char* GetProgramNameBytes(int program) const = 0;
    virtual bool IsProgramChanged() = 0;
    virtual void ProgramToInitial() = 0;
    virtual void ProgramToFactory() = 0;
    virtual void ProgramToAllFactory() = 0;
    virtual void CopyPgFrom(int source) = 0;
    virtual bool SaveProgram(int destination, CString name) = 0;

protected:
    ~ZephyraEditorEffect() = default;
};

// What the effect tells the editor's main panel.
class ZephyraPanel {
public:
    // A parameter changed from outside the panel (automation, a program load).
    virtual void UpdateControl(int index, float value) = 0;
    // The current program, or whether it differs from its initial state, may have changed.
    virtual void UpdateModify() = 0;

protected:
    ~ZephyraPanel() = default;
};

class ZephyraEditorBase : public AEffEditor {
public:
    using AEffEditor::AEffEditor;
    // The main panel while the editor is open, else null.
    virtual ZephyraPanel* GetPanel() = 0;
};

// Makes the effect's editor; the editor registers itself with the effect.
using ZephyraEditorFactory = ZephyraEditorBase* (*)(AZephyra* effect);
