// Dialog layouts built in code: a title, a client size and the controls with their ids,
// places (client coordinates below the title strip), texts and styles. A dialog class
// hands its layout to CDialog, which builds the dialog from it.
#pragma once

#include "base/CString.h"
#include "base/WinTypes.h"

#include <vector>

enum class DialogItemKind { Button, DefaultButton, Edit, ComboBox, Static };

struct DialogItemTemplate {
    DialogItemKind kind;
    int id;
    RECT rect;
    CString text;
    DWORD style; // added to the kind's own styles (child, visible, tab stop)
};

struct DialogTemplate {
    CString title;
    int width;
    int height;
    std::vector<DialogItemTemplate> items;
};
