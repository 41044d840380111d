// The plug-in with its editor, opened in a host window on the in-memory screen and driven
// the way a host drives it: through the dispatcher, with idle calls, and with the mouse.
#pragma once

#include "editor/CUIWindow.h"
#include "editor/CZephyraEditor.h"
#include "effect/AZephyra.h"
#include "tests/support/RecordingHost.h"
#include "tests/support/TempFolder.h"
#include "toolkit/driver/CHeadlessDriver.h"

#include <gtest/gtest.h>
#include <memory>
#include <vector>

class EditorHost : public ::testing::Test {
protected:
    static constexpr int kHostLeft = 120;
    static constexpr int kHostTop = 90;

    void SetUp() override {
        hostWindow =
            driver.CreateHostWindow(CRect(kHostLeft, kHostTop, kHostLeft + 640, kHostTop + 360));
    }

    void TearDown() override { Dispatch(effEditClose); }

    intptr_t Dispatch(int32_t opcode, int32_t index = 0, intptr_t value = 0, void* ptr = nullptr) {
        AEffect* record = effect.getAeffect();
        return record->dispatcher(record, opcode, index, value, ptr, 0.0f);
    }

    // Opens the editor as a host does and idles it once, which paints it.
    void Open() {
        Dispatch(effEditOpen, 0, 0, hostWindow);
        Idle();
    }
    void Idle() { Dispatch(effEditIdle); }

    CZephyraEditor& Editor() { return *static_cast<CZephyraEditor*>(effect.getEditor()); }
    CUIWindow& Panel() { return *Editor().GetUIWindow(); }
    // 0xRRGGBB of the panel as the screen shows it.
    std::uint32_t Pixel(int x, int y) { return driver.PixelAt(&Panel(), x, y); }

    // Pixels of the panel inside the rectangle that differ from the bitmap's block at
    // (sourceX, sourceY), counting only the pixels that the bitmap covers fully.
    int Differences(const RECT& rect, const CQMTBitmap& bitmap, int sourceX = 0, int sourceY = 0);
    // One of the module's bitmaps, loaded afresh for the test.
    CQMTBitmap& Load(int resource);

    TempFolder preferences;
    ScopedEnv preferencesFolder{"XDG_CONFIG_HOME", preferences.Path()};
    RecordingHost host;
    CHeadlessDriver driver;
    AZephyra effect{RecordingHost::Callback, CZephyraEditor::Make};
    void* hostWindow = nullptr;
    std::vector<std::unique_ptr<CQMTBitmap>> resources;
};
