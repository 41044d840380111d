// The editor in a real X window, worked through xdotool (copy a program, drag a knob, type a
// value, save); the bank file the save wrote then shows all of it.
#include "effect/ZephyraParameters.h"
#include "tests/editor/BankRecords.h"
#include "tests/editor/DesktopDriver.h"
#include "tests/editor/EditionUnderTest.h"

#include <gtest/gtest.h>

#include <X11/Xlib.h>

#include <chrono>
#include <future>
#include <string>
#include <thread>

namespace {

// The window manager's close button, as the host's window receives it.
void CloseWindow(unsigned long window) {
    Display* display = XOpenDisplay(nullptr);
    XEvent event{};
    event.xclient.type = ClientMessage;
    event.xclient.window = window;
    event.xclient.message_type = XInternAtom(display, "WM_PROTOCOLS", False);
    event.xclient.format = 32;
    event.xclient.data.l[0] = static_cast<long>(XInternAtom(display, "WM_DELETE_WINDOW", False));
    XSendEvent(display, window, False, NoEventMask, &event);
    XCloseDisplay(display);
}

// The same user's work on the editor drawn at the scale: every position is the panel's
// layout position times the scale.
void CopyEditAndSaveAProgram(int scale) {
    const IsolatedUserBank userBank;
    // The command-line host shows the editor until its window is closed (a minute at most).
    auto editor = std::async(std::launch::async, [scale] {
        return RunEditionHost({"--plugin", HostPath(Edition().moduleFile), "editor", "--seconds",
                               "60", "--scale", std::to_string(scale)});
    });
    const std::string window = FindWindowTitled("Zephyra");
    ASSERT_FALSE(window.empty()) << "the editor's window came";
    std::this_thread::sleep_for(std::chrono::milliseconds(500));

    // One xdotool run per step ("type" takes the rest of its command line as text), each
    // followed by time for the editor to take it in.
    const auto step = [](const std::string& arguments) {
        const bool done = RunCommand("xdotool " + arguments);
        std::this_thread::sleep_for(std::chrono::milliseconds(800));
        return done;
    };
    const auto at = [&window, scale](int x, int y) {
        return "mousemove --window " + window + " " + std::to_string(x * scale) + " " +
               std::to_string(y * scale) + " ";
    };
    // Copy: the button opens the menu; from its top, the keys pass the current program.
    ASSERT_TRUE(step(at(73, 19) + "click 1"));
    ASSERT_TRUE(step("key Home Down Return"));
    // Band 2's gain knob: pressed at its left, turned over the top to its right.
    ASSERT_TRUE(step(at(172, 155) + "mousedown 1 sleep 0.1 " + at(189, 138) + "sleep 0.1 " +
                     at(205, 155) + "sleep 0.1 mouseup 1"));
    // Band 1's Q typed over its read-out.
    ASSERT_TRUE(step(at(331, 99) + "click 1"));
    ASSERT_TRUE(step("type 2.5"));
    ASSERT_TRUE(step("key Return"));
    // Save into the sixth slot under a new name.
    ASSERT_TRUE(step(at(286, 19) + "click 1"));
    ASSERT_FALSE(FindWindowTitled("Save Program").empty()) << "the save button opened the dialog";
    ASSERT_TRUE(step("key Down Down Down Down Down Tab"));
    ASSERT_TRUE(step("type 'X11 Saved'"));
    ASSERT_TRUE(step("key Return"));
    CloseWindow(std::stoul(window));
    ASSERT_EQ(editor.wait_for(std::chrono::seconds(10)), std::future_status::ready);
    const ToolRun run = editor.get();
    ASSERT_EQ(run.exitCode, 0) << run.err;

    const std::string saved = ReadWholeFile(userBank.BankFile());
    ASSERT_FALSE(saved.empty()) << "the save wrote the user's bank file";
    const ZephyraProgramRecord record = RecordIn(saved, kSavedSlot);
    EXPECT_STREQ(record.name, "X11 Saved");
    const ZephyraProgramRecord copied =
        RecordIn(ReadWholeFile(FactoryBankBeside(Edition().moduleFile)), kCopiedProgram);
    for (int index = 0; index < kNumParams; ++index) {
        if (index == kParamGain2)
            EXPECT_NEAR(record.param[index], 0.8f, 0.05f) << "dragged round to the right";
        else if (index == kParamQ1)
            EXPECT_FLOAT_EQ(record.param[index], ValToNormalizeValue(kParamQ1, 2.505f));
        else
            EXPECT_FLOAT_EQ(record.param[index], copied.param[index]) << "copied: " << index;
    }
}

// At scale two the same work, at twice the positions, does the same.
TEST(EditorOnX11, MouseAndKeyboardCopyEditAndSaveAProgramAtScalesOneAndTwo) {
    if (const char* missing = MissingDesktop())
        GTEST_SKIP() << missing;
    for (const int scale : {1, 2}) {
        SCOPED_TRACE("scale " + std::to_string(scale));
        CopyEditAndSaveAProgram(scale);
    }
}

} // namespace
