// One test window and one script of user actions, played against a backend: the headless
// driver or a real X server. Both must give the same messages and the same pixels.
#pragma once

#include "tests/toolkit/RecordingWnd.h"
#include "toolkit/CFrameWnd.h"

#include <functional>
#include <string>
#include <vector>

// Paints a known picture and records what the user does to it.
class ScenarioWnd : public RecordingWnd {
public:
    static constexpr COLORREF kBackground = 0x302820; // red 0x20, green 0x28, blue 0x30
    static constexpr COLORREF kSquare = 0x00C0FF;     // amber
    static const CRect kSquareRect;

    std::string typed;
    std::vector<UINT> commands;
    bool TakesKeyboard() const override { return true; }
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override;
};

// What a backend must offer the script: input in the window's client coordinates, a way to
// let the toolkit run until something happened, and what is on the screen.
class ScenarioBackend {
public:
    virtual ~ScenarioBackend() = default;
    virtual void Click(CWnd* wnd, int x, int y) = 0;
    virtual void DoubleClick(CWnd* wnd, int x, int y) = 0;
    virtual void Type(const char* text) = 0;
    virtual void PressReturn() = 0;
    // Sends the keys (xdotool key names, space separated) once the pop-up or dialog that
    // the caller has opened is on screen; RunUntil lets them arrive.
    virtual void KeysIntoOpenWindow(const char* keys, bool dialog) = 0;
    // Runs the toolkit until the condition holds or a second has passed.
    virtual bool RunUntil(const std::function<bool()>& condition) = 0;
    // 0xRRGGBB of the window's pixel as the screen shows it.
    virtual std::uint32_t ScreenPixel(CWnd* wnd, int x, int y) = 0;
};

// Creates the window in the frame, plays the script and checks every step with gtest.
void PlayScenario(CFrameWnd& frame, ScenarioBackend& backend);
