// The editor opened in a host window: its size and life cycle, and a panel that shows the
// effect's values in its controls, read-outs and meters and follows automation.
#include "editor/UIWindowLayout.h"
#include "tests/editor/EditorHost.h"
#include "tests/editor/FramePictures.h"
#include "tests/toolkit/ToolkitThreads.h"
#include "toolkit/CClientDC.h"
#include "toolkit/FallbackIdleDriver.h"
#include "toolkit/platform/headless/HeadlessPlatform.h"

#include <malloc.h>
#include <thread>

namespace {

constexpr int kAudioMasterAutomate = 0;

class EditorPanel : public EditorHost {
protected:
    // The knob strip's frame for a 0..1 value.
    int KnobDifferences(int slot, int frame) {
        return Differences(kKnobLayout[slot].control, Load(kBitmapKnobStrip), 0, frame * 34);
    }

    // Columns of the rectangle that hold text (pixels much darker than the well).
    std::vector<int> InkColumns(const RECT& rect) {
        std::vector<int> columns;
        for (int x = rect.left; x < rect.right; ++x) {
            for (int y = rect.top; y < rect.bottom; ++y) {
                const std::uint32_t p = Pixel(x, y);
                if (((p >> 16) & 0xFF) + ((p >> 8) & 0xFF) + (p & 0xFF) < 3 * 90) {
                    columns.push_back(x);
                    break;
                }
            }
        }
        return columns;
    }
};

TEST_F(EditorPanel, OpensAsAChildOfTheHostWindowAtTheSizeItGaveBeforehand) {
    ERect* rect = nullptr;
    ASSERT_EQ(Dispatch(effEditGetRect, 0, 0, &rect), 1);
    ASSERT_NE(rect, nullptr);
    const CQMTBitmap& background = Load(kBitmapBackground);
    EXPECT_EQ(CRect(rect->left, rect->top, rect->right, rect->bottom),
              CRect(0, 0, background.Width(), background.Height()));
    EXPECT_GT(background.Width(), 438) << "the output read-out ends at x 438";
    EXPECT_FALSE(Editor().isOpen());

    Open();
    ASSERT_NE(Editor().GetUIWindow(), nullptr);
    EXPECT_TRUE(Editor().isOpen());
    CRect client, onScreen;
    Panel().GetClientRect(&client);
    Panel().GetWindowRect(&onScreen);
    EXPECT_EQ(client, CRect(0, 0, background.Width(), 210));
    EXPECT_EQ(onScreen.TopLeft(), CPoint(kHostLeft, kHostTop));
    const CRect bare(100, 0, 200, 45); // where no control sits
    EXPECT_EQ(Differences(bare, background, bare.left, bare.top), 0) << "the background";
}

TEST_F(EditorPanel, ASecondOpenKeepsTheFirstPanelAndCloseIdleWhileClosedAreHarmless) {
    Dispatch(effEditClose);
    Idle();
    EXPECT_EQ(Editor().GetUIWindow(), nullptr);
    Open();
    CUIWindow* first = Editor().GetUIWindow();
    Dispatch(effEditOpen, 0, 0, hostWindow);
    EXPECT_EQ(Editor().GetUIWindow(), first);
    Dispatch(effEditClose);
    EXPECT_EQ(Editor().GetUIWindow(), nullptr);
    EXPECT_FALSE(Editor().isOpen());
    EXPECT_EQ(Editor().GetPanel(), nullptr) << "nothing for the effect to report to";
}

TEST_F(EditorPanel, AFreshPanelShowsTheEffectsValuesNotTheControlsMiddle) {
    effect.setParameter(kParamGain1, 0.8f);
    effect.setParameter(kParamFreq2, 0.2f);
    effect.setParameter(kParamInput, 0.3f);
    effect.setParameter(kParamOutput, 0.9f);
    effect.setParameter(kParamOnOff, 0.0f);
    effect.setParameter(kParamType1, 0.5f);
    Open();
    EXPECT_EQ((std::vector<float>{Panel().Knob(0).GetValue(), Panel().Knob(1).GetValue(),
                                  Panel().Knob(4).GetValue(), Panel().Slider(0).GetValue(),
                                  Panel().Slider(1).GetValue()}),
              (std::vector<float>{0.8f, effect.getParameter(kParamFreq1), 0.2f, 0.3f, 0.9f}));
    EXPECT_FALSE(Panel().OnOffSwitch().GetValue());
    EXPECT_EQ(KnobDifferences(0, 48), 0) << "0.8 of the way: frame 48";
    EXPECT_EQ(KnobDifferences(3, 30), 0) << "Gain2 at 0 dB: the middle frame";
    EXPECT_GT(KnobDifferences(0, 30), 0) << "and the middle frame would look different";
    EXPECT_EQ(Differences(kOnOffSwitchLayout.rect, Load(kBitmapOnOffOff)), 0);

    // A type of one lights only the peak switch of its band.
    const CQMTBitmap& lit = Load(kBitmapTypeOn);
    const CQMTBitmap& unlit = Load(kBitmapTypeOff);
    const bool band1[] = {false, true, false};
    const bool band2[] = {true, false, false}; // the second band starts as a low shelf
    for (int type = 0; type < kTypesPerBand; ++type) {
        EXPECT_EQ(Panel().TypeSwitch(type).GetValue(), band1[type]) << type;
        EXPECT_EQ(Panel().TypeSwitch(3 + type).GetValue(), band2[type]) << type;
        EXPECT_EQ(Differences(kTypeSwitchLayout[type].rect, band1[type] ? lit : unlit), 0) << type;
    }
}

// The switch shows the value's integer part, by the rule that switches the engine (whose
// not-a-number and infinite values the effect's processing test covers): only a whole 1 or -1
// (or more) is on.
TEST_F(EditorPanel, TheOnOffSwitchOpensOnTheIntegerPartOfAnyValue) {
    const struct {
        float value;
        bool on;
    } cases[] = {
        {0.99f, false},
        {1.0f, true},
        {-0.5f, false},
        {-1.7e38f, true},
    };
    for (const auto& c : cases) {
        effect.setParameter(kParamOnOff, c.value);
        Open();
        EXPECT_EQ(Panel().OnOffSwitch().GetValue(), c.on) << c.value;
        Dispatch(effEditClose);
    }
}

// The panel's own idle drives the meters here: the host's would run pending timer ticks
// too, and each tick with no new block lets the meters fall.
TEST_F(EditorPanel, MetersShowSixDbFromTheirSecondRowThenFallAndRestAtTheFloor) {
    Open();
    const CQMTBitmap& meter = Load(kBitmapMeter);
    const int width = meter.Width() / 2;
    for (int i = 0; i < kMeterCount; ++i) {
        EXPECT_FLOAT_EQ(Panel().MeterLevel(i), -38.0f);
        const CRect strip(kMeterLefts[i], kMeterTop, kMeterLefts[i] + width, kMeterTop + 133);
        EXPECT_EQ(Differences(strip, meter), 0) << "meter " << i << " unlit";
    }

    std::vector<float> left(256, 3.0f), right(256, -3.0f), out(256);
    float* inputs[] = {left.data(), right.data()};
    float* outputs[] = {out.data(), out.data()};
    effect.processReplacing(inputs, outputs, 256);
    Panel().idle();
    for (int i = 0; i < kMeterCount; ++i) {
        EXPECT_FLOAT_EQ(Panel().MeterLevel(i), 6.0f) << i;
        const int x = kMeterLefts[i];
        EXPECT_EQ(Differences(CRect(x, kMeterTop, x + width, kMeterTop + 1), meter), 0)
            << "meter " << i << ": the top row stays unlit";
        EXPECT_EQ(Differences(CRect(x, kMeterTop + 1, x + width, kMeterTop + 133), meter, width, 1),
                  0)
            << "meter " << i << ": lit from the second row down";
    }
    Panel().idle();
    EXPECT_FLOAT_EQ(Panel().MeterLevel(0), 5.75f) << "a quarter dB per tick";
    for (int tick = 0; tick < 175; ++tick)
        Panel().idle();
    for (int i = 0; i < kMeterCount; ++i)
        EXPECT_FLOAT_EQ(Panel().MeterLevel(i), -38.0f) << i;

    // Paint over a meter: an idle at the floor leaves the paint, new peaks repaint it.
    const CRect strip(kMeterLefts[0], kMeterTop, kMeterLefts[0] + width, kMeterTop + 133);
    CClientDC(&Panel()).FillSolidRect(strip, 0x0000FF);
    Panel().idle();
    EXPECT_EQ(Pixel(strip.left + 2, strip.top + 60), 0xFF0000u) << "not redrawn";
    effect.processReplacing(inputs, outputs, 256);
    Panel().idle();
    EXPECT_NE(Pixel(strip.left + 2, strip.top + 60), 0xFF0000u);
}

TEST_F(EditorPanel, ReadoutsShowTheHostsTextCentredInTheirWells) {
    effect.setParameter(kParamFreq1, 1.0f); // "20000.0"
    Open();
    for (const ValueControlLayout& knob : kKnobLayout) {
        const std::vector<int> ink = InkColumns(knob.readout);
        ASSERT_FALSE(ink.empty()) << knob.id;
        const int middle = (knob.readout.left + knob.readout.right) / 2;
        EXPECT_NEAR((ink.front() + ink.back()) / 2, middle, 2) << knob.id;
    }
    for (const ValueControlLayout& slider : kSliderLayout)
        EXPECT_FALSE(InkColumns(slider.readout).empty()) << slider.id;
}

// No value the effect shows is wider than its well in the panel's font; a large font makes
// one so.
TEST_F(EditorPanel, AReadoutWiderThanItsWellIsCutAtItsEdges) {
    Open();
    CFont large;
    large.CreatePointFont(60, "Osaka");
    CDC image;
    image.CreateBitmapDC(300, 200);
    image.SelectObject(&large);
    Panel().DrawGain1Disp(&image);
    const CRect well(kKnobLayout[0].readout);
    int inside = 0, outside = 0;
    for (int y = 0; y < 200; ++y) {
        for (int x = 0; x < 300; ++x)
            (well.PtInRect(CPoint(x, y)) ? inside : outside) += AlphaIn(image, x, y) != 0;
    }
    EXPECT_GT(inside, well.Width() * well.Height() / 8) << "the well is filled with text";
    EXPECT_EQ(outside, 0) << "nothing beyond it";
}

TEST_F(EditorPanel, AutomationMovesTheControlsWithoutTellingTheHostAgain) {
    Open();
    host.calls.clear();
    // From another thread, as a host's audio thread automates.
    std::thread([this] {
        effect.setParameter(kParamGain1, 0.9f);
        effect.setParameter(kParamType2, 0.5f);
        effect.setParameter(kParamOnOff, 0.0f);
        effect.setParameter(kParamOutput, 0.2f);
    }).join();
    Idle();
    EXPECT_EQ((std::vector<float>{Panel().Knob(0).GetValue(), Panel().Slider(1).GetValue()}),
              (std::vector<float>{0.9f, 0.2f}));
    for (int type = 3; type < 6; ++type)
        EXPECT_EQ(Panel().TypeSwitch(type).GetValue(), type == 4) << type;
    EXPECT_FALSE(Panel().OnOffSwitch().GetValue());
    EXPECT_EQ(host.Count(kAudioMasterAutomate), 0u) << "no echo";
    EXPECT_EQ(KnobDifferences(0, 54), 0);
    EXPECT_EQ(Differences(kTypeSwitchLayout[4].rect, Load(kBitmapTypeOn)), 0);
}

TEST_F(EditorPanel, ChangesBeforeTheFirstPaintAreShownOnceItIsPainted) {
    // Until the host idles, the toolkit may run on its own thread; a host call holds this.
    std::lock_guard<std::recursive_mutex> hostCall(AfxUiLock());
    Dispatch(effEditOpen, 0, 0, hostWindow);
    ASSERT_FALSE(Panel().IsPainted());
    const float before = Panel().Knob(2).GetValue();
    effect.setParameter(kParamQ1, 0.9f);
    Panel().UpdateControl(kParamQ1, 0.1f);
    EXPECT_FLOAT_EQ(Panel().Knob(2).GetValue(), before) << "an unpainted panel changes nothing";
    Idle();
    EXPECT_TRUE(Panel().IsPainted());
    EXPECT_FLOAT_EQ(Panel().Knob(2).GetValue(), 0.9f);
}

// Closed by the host or with the effect deleted under it, the panel leaves no child window,
// no meter timer's thread and no memory behind.
TEST_F(EditorPanel, OpeningAndClosingManyTimesOrDeletingTheEffectLeavesNothingBehind) {
    auto* node = static_cast<native::HeadlessNode*>(hostWindow);
    Open();
    Dispatch(effEditClose);
    const int threads = ToolkitThreadCount();
    const std::size_t allocated = mallinfo2().uordblks;
    for (int round = 0; round < 40; ++round) {
        Open();
        ASSERT_EQ(node->children.size(), 1u);
        Dispatch(effEditClose);
        EXPECT_TRUE(node->children.empty());
    }
    EXPECT_EQ(ToolkitThreadCount(), threads) << "every meter timer ended";
    // One leaked panel would hold its bitmaps, the knob strip alone some 280 kB.
    EXPECT_LT(mallinfo2().uordblks, allocated + 64 * 1024);

    {
        AZephyra other(RecordingHost::Callback, CZephyraEditor::Make);
        AEffect* record = other.getAeffect();
        for (int opcode : {effEditOpen, effEditIdle})
            record->dispatcher(record, opcode, 0, 0, hostWindow, 0.0f);
        EXPECT_EQ(node->children.size(), 1u);
    }
    EXPECT_TRUE(node->children.empty()) << "deleting the effect closed its editor";
    EXPECT_EQ(ToolkitThreadCount(), threads);
}

} // namespace
