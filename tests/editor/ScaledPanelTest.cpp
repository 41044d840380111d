// The panel at the scales of high-density screens: its colours in their places and a picture
// drawn anew rather than stretched (its size and clicks at scaled places: the X11 tests' part).
#include "tests/editor/EditorHost.h"
#include "tests/toolkit/TestImages.h"
#include "toolkit/DisplayScale.h"

#include <cmath>
#include <memory>
#include <string>

namespace {

// What the screen shows of a window, released when it goes.
using Picture = std::unique_ptr<cairo_surface_t, void (*)(cairo_surface_t*)>;
Picture Shown(CHeadlessDriver& driver, const CWnd* window) {
    return Picture(driver.Snapshot(window), cairo_surface_destroy);
}

int ChannelDistance(std::uint32_t a, std::uint32_t b) {
    int largest = 0;
    for (int shift = 0; shift < 24; shift += 8) {
        const int difference = static_cast<int>((a >> shift) & 0xFF) - ((b >> shift) & 0xFF);
        largest = std::max(largest, std::abs(difference));
    }
    return largest;
}

class ScaledPanel : public EditorHost, public ::testing::WithParamInterface<double> {
protected:
    // A host window that holds the panel at every scale, as a host sizes it after asking.
    void SetUp() override {
        EditorHost::SetUp();
        driver.DestroyHostWindow(hostWindow);
        hostWindow =
            driver.CreateHostWindow(CRect(kHostLeft, kHostTop, kHostLeft + 1000, kHostTop + 500));
    }

    void TearDown() override {
        EditorHost::TearDown();
        m_scale.reset();
        FixDeviceScale(0.0); // later tests draw at scale 1 again
    }

    void UseScale(double scale) {
        m_scale = std::make_unique<ScopedEnv>("ZEPHYRA_SCALE", std::to_string(scale));
    }

    // The same panel state for every picture: a signal on the meters, an edited program.
    void OpenWithMetersAndLamp() {
        Open();
        effect.setParameter(kParamGain1, 0.8f);
        std::vector<float> left(256, 0.25f), right(256, -0.5f), out(256);
        float* inputs[] = {left.data(), right.data()};
        float* outputs[] = {out.data(), out.data()};
        effect.processReplacing(inputs, outputs, 256);
        Idle();
    }

private:
    std::unique_ptr<ScopedEnv> m_scale;
};

// Wherever the panel at scale 1 shows a flat colour, the scaled panel shows the same colour
// at the same layout place: the meters, the lamp and every picture sit where they belong.
TEST_P(ScaledPanel, ShowsWhatScaleOneShowsAtEveryFlatPlace) {
    OpenWithMetersAndLamp();
    const Picture plain = Shown(driver, &Panel());
    Dispatch(effEditClose);

    UseScale(GetParam());
    OpenWithMetersAndLamp();
    const Picture scaled = Shown(driver, &Panel());
    const double scale = GetParam();
    int compared = 0;
    int mismatched = 0;
    for (int y = 1; y < 209; ++y) {
        for (int x = 1; x < 455; ++x) {
            const std::uint32_t colour = PixelOf(plain.get(), x, y);
            bool flat = true;
            for (int dy = -1; dy <= 1 && flat; ++dy)
                for (int dx = -1; dx <= 1 && flat; ++dx)
                    flat = PixelOf(plain.get(), x + dx, y + dy) == colour;
            if (!flat)
                continue;
            ++compared;
            const int deviceX = static_cast<int>((x + 0.5) * scale);
            const int deviceY = static_cast<int>((y + 0.5) * scale);
            if (ChannelDistance(PixelOf(scaled.get(), deviceX, deviceY), colour) > 8)
                ++mismatched;
        }
    }
    EXPECT_GT(compared, 456 * 210 / 3);
    EXPECT_LE(mismatched, compared / 200) << "of " << compared << " places";
}

INSTANTIATE_TEST_SUITE_P(Scales, ScaledPanel, ::testing::Values(1.5, 2.0));

// Counts of what tells a drawn picture from a stretched one. Sharp steps: neighbours far
// apart in colour, which a filtered stretch blurs into two smaller steps. Detailed blocks:
// aligned 2 x 2 blocks whose pixels differ, which a pixel-doubled picture has none of.
int SharpSteps(cairo_surface_t* image) {
    int steps = 0;
    const int width = cairo_image_surface_get_width(image);
    const int height = cairo_image_surface_get_height(image);
    for (int y = 0; y < height; ++y) {
        for (int x = 1; x < width; ++x) {
            if (ChannelDistance(PixelOf(image, x - 1, y), PixelOf(image, x, y)) > 100)
                ++steps;
        }
    }
    return steps;
}

int DetailedBlocks(cairo_surface_t* image) {
    int detailed = 0;
    for (int y = 0; y + 1 < cairo_image_surface_get_height(image); y += 2) {
        for (int x = 0; x + 1 < cairo_image_surface_get_width(image); x += 2) {
            const std::uint32_t corner = PixelOf(image, x, y);
            if (PixelOf(image, x + 1, y) != corner || PixelOf(image, x, y + 1) != corner ||
                PixelOf(image, x + 1, y + 1) != corner)
                ++detailed;
        }
    }
    return detailed;
}

TEST_F(EditorHost, AtScaleTwoThePictureIsDrawnWithSharpEdgesNotStretched) {
    Open();
    const int plainSteps = SharpSteps(Shown(driver, &Panel()).get());
    Dispatch(effEditClose);
    {
        ScopedEnv scale("ZEPHYRA_SCALE", "2");
        Open();
        const Picture shown = Shown(driver, &Panel());
        ASSERT_EQ(cairo_image_surface_get_width(shown.get()), 912);
        // Doubled, every step of scale 1 would show twice; drawn, its softened edges
        // turn sharp as well.
        EXPECT_GT(SharpSteps(shown.get()), plainSteps * 9 / 4) << plainSteps << " at scale 1";
        // Only the read-outs' text, drawn at run time, could give a doubled picture detail.
        EXPECT_GT(DetailedBlocks(shown.get()), 456 * 210 / 10);
        Dispatch(effEditClose);
    }
    FixDeviceScale(0.0);
}

} // namespace
