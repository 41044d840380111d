// The editor in a real X window, opened by the command-line host: its screenshot must show
// exactly what the panel paints headless for the same plug-in state (the Windows edition's,
// under wine, the same but for its text's glyph edges).
#include "editor/CUIWindow.h"
#include "editor/CZephyraEditor.h"
#include "effect/AZephyra.h"
#include "tests/editor/EditionUnderTest.h"
#include "tests/support/RecordingHost.h"
#include "tests/toolkit/TestImages.h"
#include "toolkit/driver/CHeadlessDriver.h"

#include <cairo.h>
#include <cstdlib>
#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace {

constexpr int kAudioMasterGetDirectory = 41, kBlockSize = 512;
constexpr float kSampleRate = 48000.0f;

// A state away from the factory program: a knob, a band type, a slider, and the lamp lit.
const struct Setting {
    const char* name;
    int index;
    float normalised;
} kSettings[] = {{"Gain1", kParamGain1, 0.8f},
                 {"Type2", kParamType2, 0.5f},
                 {"Input", kParamInput, 0.3f},
                 {"Q2", kParamQ2, 0.6f}};

// The panel painted in memory after the same calls that the command-line host makes.
cairo_surface_t* HeadlessPicture() {
    RecordingHost host;
    const std::string module = ZEPHYRA_MODULE;
    const std::string folder = module.substr(0, module.rfind('/') + 1);
    host.answers[kAudioMasterGetDirectory] = reinterpret_cast<intptr_t>(folder.c_str());
    CHeadlessDriver driver;
    AZephyra effect(RecordingHost::Callback, CZephyraEditor::Make);
    AEffect* record = effect.getAeffect();
    const auto dispatch = [record](int32_t opcode, intptr_t value = 0, void* ptr = nullptr,
                                   float opt = 0.0f) {
        return record->dispatcher(record, opcode, 0, value, ptr, opt);
    };
    dispatch(effOpen);
    dispatch(effSetSampleRate, 0, nullptr, kSampleRate);
    dispatch(effSetBlockSize, kBlockSize);
    dispatch(effMainsChanged, 1);
    for (const Setting& setting : kSettings)
        effect.setParameter(setting.index, setting.normalised);
    void* window = driver.CreateHostWindow(CRect(0, 0, 600, 400));
    dispatch(effEditOpen, 0, window);
    dispatch(effEditIdle);
    auto* editor = static_cast<CZephyraEditor*>(effect.getEditor());
    cairo_surface_t* picture = driver.Snapshot(editor->GetUIWindow());
    dispatch(effEditClose);
    return picture;
}

// The command-line host's screenshot of the editor at the scale against the panel painted
// in memory at the same scale.
void ExpectTheScreenToShowThePanel(const char* scale) {
    TempFolder scratch;
    const IsolatedUserBank userBank;
    std::vector<std::string> arguments{"--plugin",
                                       HostPath(Edition().moduleFile),
                                       "editor",
                                       "--seconds",
                                       "2",
                                       "--scale",
                                       scale,
                                       "--screenshot",
                                       HostPath(scratch / "editor.png")};
    for (const Setting& setting : kSettings) {
        arguments.push_back("--set");
        arguments.push_back(std::string(setting.name) + "=" + std::to_string(setting.normalised) +
                            "n");
    }
    const ToolRun run = RunEditionHost(arguments);
    ASSERT_EQ(run.exitCode, 0) << run.err;

    cairo_surface_t* screen = cairo_image_surface_create_from_png((scratch / "editor.png").c_str());
    ASSERT_EQ(cairo_surface_status(screen), CAIRO_STATUS_SUCCESS);
    ScopedEnv panelScale("ZEPHYRA_SCALE", scale);
    cairo_surface_t* panel = HeadlessPicture();
    const int width = cairo_image_surface_get_width(panel);
    const int height = cairo_image_surface_get_height(panel);
    EXPECT_EQ(width, static_cast<int>(456 * std::stod(scale))) << "the panel drawn at the scale";
    ASSERT_EQ(cairo_image_surface_get_width(screen), width) << "the window took the editor's size";
    ASSERT_EQ(cairo_image_surface_get_height(screen), height);

    int differences = 0;
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x)
            differences += PixelOf(screen, x, y) != PixelOf(panel, x, y);
    }
    // Under wine the read-outs' text is rasterised by Windows' font engine instead of
    // FreeType: the same strings in the same places, different edge pixels (0.4 to 0.6 % of
    // the panel measured). Everything else, the artwork and its placement, is the same.
    const int allowed = Edition().underWine ? width * height / 100 : 0;
    EXPECT_LE(differences, allowed);
    cairo_surface_destroy(panel);
    cairo_surface_destroy(screen);
}

TEST(EditorOnX11, AtEachScaleTheScreenShowsWhatThePanelPaintsForIt) {
    if (std::getenv("DISPLAY") == nullptr)
        GTEST_SKIP() << "no X display; run under xvfb-run";
    for (const char* scale : {"1", "1.5", "2"}) {
        SCOPED_TRACE(std::string("scale ") + scale);
        ExpectTheScreenToShowThePanel(scale);
    }
}

} // namespace
