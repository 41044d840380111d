// The host's side of a plug-in editor: a top-level window of the system's own (X11 on
// Linux, Win32 on Windows) that the editor is embedded in, its events, and a picture of what
// it shows. One implementation per system.
#pragma once

#include "tools/CairoSurface.h"

#include <memory>
#include <string>

class EditorWindow {
public:
    // Throws ToolError when there is no window system to open the window on.
    EditorWindow(int width, int height, const std::string& title);
    ~EditorWindow();
    EditorWindow(EditorWindow&&) noexcept;
    EditorWindow(const EditorWindow&) = delete;
    EditorWindow& operator=(const EditorWindow&) = delete;

    // What effEditOpen takes: the X window id, or the HWND.
    void* parentForEditor() const;
    void resize(int width, int height);
    // Handles pending events (on Windows, every window of the thread: the host's message
    // loop); false once the user has asked to close the window.
    bool handleEvents();
    // The window's pixels, children included. Throws ToolError when they cannot be read.
    CairoSurface capture();

private:
    struct System;
    std::unique_ptr<System> system;
};
