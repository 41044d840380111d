// The editor in a real X window, opened by the command-line host: its screenshot must show
// exactly what the panel paints headless for the same plug-in state (the Windows edition's,
// under wine, the same but for its text's glyph edges).
#include "editor/CUIWindow.h"
#include "editor/CZephyraEditor.h"
#include "editor/PanelGeometry.h"
#include "effect/AZephyra.h"
#include "tests/editor/EditionUnderTest.h"
#include "tests/support/RecordingHost.h"
#include "tests/toolkit/TestImages.h"
#include "toolkit/DisplayScale.h"
#include "toolkit/driver/CHeadlessDriver.h"

#include <array>
#include <cairo.h>
#include <cstdint>
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

using Wells = std::array<CRect, layout::kReadouts.size()>;

// The read-out wells in device pixels at the scale.
Wells ReadoutsOnDevice(double scale) {
    Wells wells;
    for (std::size_t well = 0; well < wells.size(); ++well) {
        const PixelRect& rect = layout::kReadouts[well];
        wells[well] = CRect(ToDevice(rect.left, scale), ToDevice(rect.top, scale),
                            ToDevice(rect.right, scale), ToDevice(rect.bottom, scale));
    }
    return wells;
}

// The well holding a device pixel, or -1.
int WellAt(const Wells& wells, int x, int y) {
    for (std::size_t well = 0; well < wells.size(); ++well) {
        if (wells[well].PtInRect(CPoint(x, y)))
            return static_cast<int>(well);
    }
    return -1;
}

// The digits' dark pixels, against the light wells.
bool IsInk(std::uint32_t pixel) {
    return ((pixel >> 16) & 0xFF) < 0x80 && ((pixel >> 8) & 0xFF) < 0x80 && (pixel & 0xFF) < 0x80;
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
    const double factor = std::stod(scale);
    cairo_surface_t* panel = HeadlessPicture();
    const int width = cairo_image_surface_get_width(panel);
    const int height = cairo_image_surface_get_height(panel);
    EXPECT_EQ(width, static_cast<int>(456 * factor)) << "the panel drawn at the scale";
    ASSERT_EQ(cairo_image_surface_get_width(screen), width) << "the window took the editor's size";
    ASSERT_EQ(cairo_image_surface_get_height(screen), height);

    // Under wine the read-outs' text is rasterised by Windows' font engine instead of
    // FreeType: the same strings in the same places, other edge pixels and stroke widths
    // (half to one and a half times the dark pixels, measured). So there each well must hold
    // ink of the same order as the panel's; every other pixel is the panel's exactly.
    const Wells wells = ReadoutsOnDevice(factor);
    std::array<int, layout::kReadouts.size()> screenInk{}, panelInk{};
    int differences = 0;
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x) {
            const std::uint32_t shown = PixelOf(screen, x, y), painted = PixelOf(panel, x, y);
            const int well = WellAt(wells, x, y);
            if (well >= 0) {
                screenInk[well] += IsInk(shown);
                panelInk[well] += IsInk(painted);
            }
            if (well < 0 || !Edition().underWine)
                differences += shown != painted;
        }
    }
    EXPECT_EQ(differences, 0);
    for (std::size_t well = 0; well < panelInk.size(); ++well) {
        EXPECT_GT(panelInk[well], 0) << "read-out " << well;
        EXPECT_GE(screenInk[well] * 3, panelInk[well]) << "read-out " << well;
        EXPECT_LE(screenInk[well], panelInk[well] * 2) << "read-out " << well;
    }
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
