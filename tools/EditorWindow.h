// The host's side of a plug-in editor on X11: a top-level window the editor is embedded
// in, its events, and a picture of what it shows.
#pragma once

#include "tools/CairoSurface.h"

#include <X11/Xlib.h>
#include <string>

class EditorWindow {
public:
    // Throws ToolError when there is no X display.
    EditorWindow(int width, int height, const std::string& title);
    ~EditorWindow();
    EditorWindow(const EditorWindow&) = delete;
    EditorWindow& operator=(const EditorWindow&) = delete;

    Window id() const { return window; }
    void resize(int width, int height);
    // Handles pending events; false once the user has asked to close the window.
    bool handleEvents();
    // The window's pixels, children included. Throws ToolError when they cannot be read.
    CairoSurface capture();

private:
    Display* display = nullptr;
    Window window = 0;
    Atom deleteMessage = 0;
    int width;
    int height;
};
