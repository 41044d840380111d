// The narrow interface through which the effect reaches its editor without depending on
// it: the module wires a factory in, and the effect asks the editor for its main panel
// only to tell it about changed values and programs.
#pragma once

#include "AEffEditor.h"

class AZephyra;

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
