// The editor opened in a host window: its size, its life cycle, and a panel that shows the
// effect's values in its controls, read-outs, meters and lamp, and follows automation.
#include "EditorHost.h"
#include "FallbackIdleDriver.h"
#include "FramePictures.h"
#include "UIWindowLayout.h"
#include "headless/HeadlessPlatform.h"

#include <dirent.h>
#include <limits>
#include <malloc.h>
#include <thread>
#include <vector>

namespace {

constexpr int kAudioMasterAutomate = 0;

class EditorPanel : public EditorHost {
protected:
    // Pixels of the panel inside the rectangle that differ from the bitmap's block at
    // (sourceX, sourceY), counting only the pixels that the bitmap covers fully.
    int Differences(const RECT& rect, const CQMTBitmap& bitmap, int sourceX = 0, int sourceY = 0) {
        cairo_surface_t* shown = driver.Snapshot(&Panel());
        cairo_surface_t* source = bitmap.GetImage();
        cairo_surface_flush(source);
        int differences = 0;
        for (int y = rect.top; y < rect.bottom; ++y) {
            for (int x = rect.left; x < rect.right; ++x) {
                const int sx = sourceX + x - rect.left;
                const int sy = sourceY + y - rect.top;
                const unsigned char* row = cairo_image_surface_get_data(source) +
                                           sy * cairo_image_surface_get_stride(source);
                const std::uint32_t wanted = reinterpret_cast<const std::uint32_t*>(row)[sx];
                if ((wanted >> 24) != 0xFF)
                    continue;
                if ((wanted & 0xFFFFFF) != PixelOf(shown, x, y))
                    ++differences;
            }
        }
        cairo_surface_destroy(shown);
        return differences;
    }

    static std::uint32_t PixelOf(cairo_surface_t* surface, int x, int y) {
        const unsigned char* row =
            cairo_image_surface_get_data(surface) + y * cairo_image_surface_get_stride(surface);
        return reinterpret_cast<const std::uint32_t*>(row)[x] & 0xFFFFFF;
    }

    // Where the panel differs from its background picture inside the rectangle.
    int BackgroundDifferences(const RECT& rect) {
        return Differences(rect, Load(kBitmapBackground), rect.left, rect.top);
    }

    CQMTBitmap& Load(int resource) {
        resources.emplace_back(std::make_unique<CQMTBitmap>());
        resources.back()->LoadResourceBitmap(MAKEINTRESOURCE(resource));
        return *resources.back();
    }

    // The knob strip's frame for a 0..1 value.
    int KnobDifferences(int slot, int frame) {
        return Differences(kKnobLayout[slot].control, Load(kBitmapKnobStrip), 0, frame * 34);
    }

    // Columns of the rectangle that hold text (pixels much darker than the well).
    std::vector<int> InkColumns(const RECT& rect) {
        std::vector<int> columns;
        for (int x = rect.left; x < rect.right; ++x) {
            for (int y = rect.top; y < rect.bottom; ++y) {
                const std::uint32_t pixel = Pixel(x, y);
                if (((pixel >> 16) & 0xFF) + ((pixel >> 8) & 0xFF) + (pixel & 0xFF) < 3 * 90) {
                    columns.push_back(x);
                    break;
                }
            }
        }
        return columns;
    }

    void ProcessLoudBlock() {
        std::vector<float> left(256, 3.0f), right(256, -3.0f), outLeft(256), outRight(256);
        float* inputs[] = {left.data(), right.data()};
        float* outputs[] = {outLeft.data(), outRight.data()};
        effect.processReplacing(inputs, outputs, 256);
    }

    std::vector<std::unique_ptr<CQMTBitmap>> resources;
};

int ThreadCount() {
    int count = 0;
    if (DIR* tasks = opendir("/proc/self/task")) {
        while (const dirent* entry = readdir(tasks))
            count += entry->d_name[0] != '.';
        closedir(tasks);
    }
    return count;
}

TEST_F(EditorPanel, TheSizeIsKnownBeforeTheEditorOpens) {
    ERect* rect = nullptr;
    ASSERT_EQ(Dispatch(effEditGetRect, 0, 0, &rect), 1);
    ASSERT_NE(rect, nullptr);
    const CQMTBitmap& background = Load(kBitmapBackground);
    EXPECT_EQ(rect->top, 0);
    EXPECT_EQ(rect->left, 0);
    EXPECT_EQ(rect->bottom, background.Height());
    EXPECT_EQ(rect->right, background.Width());
    EXPECT_GT(background.Width(), 438) << "the output read-out ends at x 438";
    EXPECT_FALSE(Editor().isOpen());
    EXPECT_EQ(effect.getAeffect()->flags, 0x39) << "mono, replacing, chunks and an editor";
}

TEST_F(EditorPanel, OpensAsAChildOfTheHostWindowAtTheBackgroundsSize) {
    Open();
    ASSERT_NE(Editor().GetUIWindow(), nullptr);
    EXPECT_TRUE(Editor().isOpen());
    CRect client;
    Panel().GetClientRect(&client);
    EXPECT_EQ(client, CRect(0, 0, Load(kBitmapBackground).Width(), 210));
    CRect onScreen;
    Panel().GetWindowRect(&onScreen);
    EXPECT_EQ(onScreen.TopLeft(), CPoint(kHostLeft, kHostTop));
    EXPECT_EQ(BackgroundDifferences(CRect(100, 0, 200, 45)), 0)
        << "the background where no control sits";
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
    Open();
    EXPECT_FLOAT_EQ(Panel().Knob(0).GetValue(), 0.8f);
    EXPECT_FLOAT_EQ(Panel().Knob(1).GetValue(), effect.getParameter(kParamFreq1));
    EXPECT_FLOAT_EQ(Panel().Knob(4).GetValue(), 0.2f);
    EXPECT_FLOAT_EQ(Panel().Slider(0).GetValue(), 0.3f);
    EXPECT_FLOAT_EQ(Panel().Slider(1).GetValue(), 0.9f);
    EXPECT_FALSE(Panel().OnOffSwitch().GetValue());
    EXPECT_EQ(KnobDifferences(0, 48), 0) << "0.8 of the way: frame 48";
    EXPECT_EQ(KnobDifferences(3, 30), 0) << "Gain2 at 0 dB: the middle frame";
    EXPECT_GT(KnobDifferences(0, 30), 0) << "and the middle frame would look different";
    EXPECT_EQ(Differences(kOnOffSwitchLayout.rect, Load(kBitmapOnOffOff)), 0);
}

// The switch shows the value's integer part: only a whole 1 (or more) is on, and a host's
// value far outside any integer opens the panel as harmlessly as it reaches the engine.
TEST_F(EditorPanel, TheOnOffSwitchOpensOnTheIntegerPartOfAnyValue) {
    const struct {
        float value;
        bool on;
    } cases[] = {{0.99f, false}, {1.0f, true}, {-0.5f, false}, {-1.7e38f, true},
                 {std::numeric_limits<float>::infinity(), true},
                 {std::numeric_limits<float>::quiet_NaN(), true}};
    for (const auto& c : cases) {
        effect.setParameter(kParamOnOff, c.value);
        Open();
        EXPECT_EQ(Panel().OnOffSwitch().GetValue(), c.on) << c.value;
        Dispatch(effEditClose);
    }
}

TEST_F(EditorPanel, ATypeOfOneLightsOnlyThePeakSwitchOfItsBand) {
    effect.setParameter(kParamType1, 0.5f);
    Open();
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

TEST_F(EditorPanel, MetersRestAtTheFloorAndShowSixDbFromTheirSecondRow) {
    Open();
    const CQMTBitmap& meter = Load(kBitmapMeter);
    const int width = meter.Width() / 2;
    for (int i = 0; i < kMeterCount; ++i) {
        EXPECT_FLOAT_EQ(Panel().MeterLevel(i), -38.0f);
        const CRect strip(kMeterLefts[i], kMeterTop, kMeterLefts[i] + width, kMeterTop + 133);
        EXPECT_EQ(Differences(strip, meter), 0) << "meter " << i << " unlit";
    }

    // The panel's own idle: the host's would run pending timer ticks too, and each tick
    // with no new block lets the meters fall.
    ProcessLoudBlock();
    Panel().idle();
    for (int i = 0; i < kMeterCount; ++i) {
        EXPECT_FLOAT_EQ(Panel().MeterLevel(i), 6.0f) << i;
        const int left = kMeterLefts[i];
        EXPECT_EQ(Differences(CRect(left, kMeterTop, left + width, kMeterTop + 1), meter), 0)
            << "meter " << i << ": the top row stays unlit";
        EXPECT_EQ(
            Differences(CRect(left, kMeterTop + 1, left + width, kMeterTop + 133), meter, width, 1),
            0)
            << "meter " << i << ": lit from the second row down";
    }
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
    int inside = 0;
    int outside = 0;
    for (int y = 0; y < 200; ++y) {
        for (int x = 0; x < 300; ++x) {
            const bool ink = AlphaIn(image, x, y) != 0;
            (well.PtInRect(CPoint(x, y)) ? inside : outside) += ink;
        }
    }
    EXPECT_GT(inside, well.Width() * well.Height() / 8) << "the well is filled with text";
    EXPECT_EQ(outside, 0) << "nothing beyond it";
}

TEST_F(EditorPanel, AutomationMovesTheControlsWithoutTellingTheHostAgain) {
    Open();
    host.calls.clear();
    // From another thread, as a host's audio thread automates.
    std::thread automation([this] {
        effect.setParameter(kParamGain1, 0.9f);
        effect.setParameter(kParamType2, 0.5f);
        effect.setParameter(kParamOnOff, 0.0f);
        effect.setParameter(kParamOutput, 0.2f);
    });
    automation.join();
    Idle();
    EXPECT_FLOAT_EQ(Panel().Knob(0).GetValue(), 0.9f);
    EXPECT_FALSE(Panel().TypeSwitch(3).GetValue());
    EXPECT_TRUE(Panel().TypeSwitch(4).GetValue());
    EXPECT_FALSE(Panel().TypeSwitch(5).GetValue());
    EXPECT_FALSE(Panel().OnOffSwitch().GetValue());
    EXPECT_FLOAT_EQ(Panel().Slider(1).GetValue(), 0.2f);
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

TEST_F(EditorPanel, TheLampLightsWhileTheProgramDiffersFromItsStoredState) {
    effect.open();
    Open();
    const CQMTBitmap& lamp = Load(kBitmapProgramLamp);
    ASSERT_FALSE(effect.IsProgramChanged());
    EXPECT_EQ(Differences(kProgramLampRect, lamp, 0, 0), 0);
    EXPECT_EQ(Differences(kSaveButtonRect, Load(kBitmapSave)), 0);

    effect.setParameter(kParamGain2, 0.1f);
    Idle();
    Idle();
    EXPECT_EQ(Differences(kProgramLampRect, lamp, 0, lamp.Height() / 2), 0);

    effect.ProgramToInitial();
    Idle();
    Idle();
    EXPECT_EQ(Differences(kProgramLampRect, lamp, 0, 0), 0);
    EXPECT_FLOAT_EQ(Panel().Knob(3).GetValue(), 0.5f) << "the knob went back with the program";
}

TEST_F(EditorPanel, OpeningAndClosingManyTimesLeavesNothingBehind) {
    auto* node = static_cast<native::HeadlessNode*>(hostWindow);
    Open();
    Dispatch(effEditClose);
    const int threads = ThreadCount();
    const std::size_t allocated = mallinfo2().uordblks;
    for (int round = 0; round < 40; ++round) {
        Open();
        ASSERT_EQ(node->children.size(), 1u);
        Dispatch(effEditClose);
        EXPECT_TRUE(node->children.empty());
    }
    EXPECT_EQ(ThreadCount(), threads) << "every meter timer ended";
    // One leaked panel would hold its bitmaps, the knob strip alone some 280 kB.
    EXPECT_LT(mallinfo2().uordblks, allocated + 64 * 1024);
}

TEST_F(EditorPanel, DeletingTheEffectWithTheEditorOpenClosesIt) {
    auto* node = static_cast<native::HeadlessNode*>(hostWindow);
    const int threads = ThreadCount();
    {
        AZephyra other(RecordingHost::Callback, CZephyraEditor::Make);
        AEffect* record = other.getAeffect();
        record->dispatcher(record, effEditOpen, 0, 0, hostWindow, 0.0f);
        record->dispatcher(record, effEditIdle, 0, 0, nullptr, 0.0f);
        EXPECT_EQ(node->children.size(), 1u);
    }
    EXPECT_TRUE(node->children.empty());
    EXPECT_EQ(ThreadCount(), threads);
}

} // namespace
