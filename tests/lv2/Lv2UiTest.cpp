// The LV2 user interface on the in-memory screen: it opens the effect's own panel in the
// host's window only with instance access, reports its size, sends a knob drag to the host
// as port values in display units inside one touch gesture, and does not echo the host's
// own port changes.
#include "lv2/Lv2Ui.h"
#include "editor/CUIWindow.h"
#include "editor/CZephyraEditor.h"
#include "tests/support/RecordingHost.h"
#include "tests/support/TempFolder.h"
#include "toolkit/driver/CHeadlessDriver.h"

#include "toolkit/DisplayScale.h"

#include <lv2/atom/atom.h>
#include <lv2/instance-access/instance-access.h>
#include <lv2/options/options.h>
#include <lv2/urid/urid.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

namespace {

struct PortWrite {
    uint32_t port;
    float value;
    bool operator==(const PortWrite& other) const {
        return port == other.port && value == other.value;
    }
};

// What the host hears from the user interface, in order: writes and touches (port, +1
// grabbed, -1 released).
struct HostLog {
    std::vector<PortWrite> writes;
    std::vector<std::pair<uint32_t, int>> touches;
    std::vector<char> order; // 'w' write, 't' touch

    static void Write(LV2UI_Controller controller, uint32_t port, uint32_t size, uint32_t format,
                      const void* buffer) {
        auto* log = static_cast<HostLog*>(controller);
        ASSERT_EQ(size, sizeof(float));
        ASSERT_EQ(format, 0u);
        log->writes.push_back({port, *static_cast<const float*>(buffer)});
        log->order.push_back('w');
    }
    static void Touch(LV2UI_Feature_Handle handle, uint32_t port, bool grabbed) {
        auto* log = static_cast<HostLog*>(handle);
        log->touches.emplace_back(port, grabbed ? 1 : -1);
        log->order.push_back('t');
    }
    static int Resize(LV2UI_Feature_Handle handle, int width, int height) {
        static_cast<HostLog*>(handle)->size = {width, height};
        return 0;
    }
    std::pair<int, int> size{0, 0};
};

class Lv2UiTest : public testing::Test {
protected:
    void SetUp() override { hostWindow = driver.CreateHostWindow(CRect(100, 100, 700, 400)); }

    std::unique_ptr<Lv2Ui> Open(bool withInstanceAccess = true,
                                std::vector<const LV2_Feature*> more = {}) {
        features = {&parent, &resize, &touch};
        if (withInstanceAccess)
            features.push_back(&instanceAccess);
        features.insert(features.end(), more.begin(), more.end());
        features.push_back(nullptr);
        return Lv2Ui::Create(HostLog::Write, &log, features.data());
    }

    CUIWindow& Panel() {
        return *static_cast<CZephyraEditor*>(plugin.Effect().getEditor())->GetUIWindow();
    }

    IsolatedPreferences preferences;
    RecordingHost recorder;
    CHeadlessDriver driver;
    Lv2Effect plugin{48000.0, ZEPHYRA_LV2_BUNDLE, nullptr, CZephyraEditor::Make};
    void* hostWindow = nullptr;
    HostLog log;
    LV2UI_Resize resizeFeature{&log, HostLog::Resize};
    LV2UI_Touch touchFeature{&log, HostLog::Touch};
    LV2_Feature instanceAccess{LV2_INSTANCE_ACCESS_URI, &plugin};
    LV2_Feature parent{LV2_UI__parent, nullptr};
    LV2_Feature resize{LV2_UI__resize, &resizeFeature};
    LV2_Feature touch{LV2_UI__touch, &touchFeature};
    std::vector<const LV2_Feature*> features;
};

TEST_F(Lv2UiTest, OpensThePanelInTheHostsWindowOnlyWithInstanceAccess) {
    parent.data = hostWindow;
    EXPECT_EQ(Open(false), nullptr) << "no instance access";
    parent.data = nullptr;
    EXPECT_EQ(Open(), nullptr) << "no parent window";

    parent.data = hostWindow;
    std::unique_ptr<Lv2Ui> ui = Open();
    ASSERT_NE(ui, nullptr);
    EXPECT_NE(ui->Widget(), nullptr);
    EXPECT_EQ(log.size, std::make_pair(456, 210));
    EXPECT_EQ(ui->Idle(), 0);
    EXPECT_TRUE(Panel().IsWindowVisible());
    ui.reset();
    EXPECT_EQ(static_cast<CZephyraEditor*>(plugin.Effect().getEditor())->GetUIWindow(), nullptr)
        << "the panel goes with the user interface";
}

// URIDs numbered as first asked for, as a host's map does.
LV2_URID MapUri(LV2_URID_Map_Handle handle, const char* uri) {
    auto& uris = *static_cast<std::vector<std::string>*>(handle);
    const auto found = std::find(uris.begin(), uris.end(), uri);
    if (found != uris.end())
        return static_cast<LV2_URID>(found - uris.begin() + 1);
    uris.push_back(uri);
    return static_cast<LV2_URID>(uris.size());
}

// The toolkit's tests check which source of the scale wins.
TEST_F(Lv2UiTest, TheHostsScaleFactorSizesThePanel) {
    std::vector<std::string> uris;
    LV2_URID_Map map{&uris, MapUri};
    const float scaleFactor = 2.0f;
    const LV2_Options_Option options[] = {{LV2_OPTIONS_INSTANCE, 0,
                                           MapUri(&uris, LV2_UI__scaleFactor), sizeof(float),
                                           MapUri(&uris, LV2_ATOM__Float), &scaleFactor},
                                          {LV2_OPTIONS_INSTANCE, 0, 0, 0, 0, nullptr}};
    const LV2_Feature mapFeature{LV2_URID__map, &map};
    const LV2_Feature optionsFeature{LV2_OPTIONS__options,
                                     const_cast<LV2_Options_Option*>(options)};
    parent.data = hostWindow;
    std::unique_ptr<Lv2Ui> ui = Open(true, {&mapFeature, &optionsFeature});
    ASSERT_NE(ui, nullptr);
    EXPECT_EQ(log.size, std::make_pair(912, 420));
    ui.reset();
    display_scale::RequestFromHost(0.0);
    ui = Open();
    EXPECT_EQ(log.size, std::make_pair(456, 210)) << "a host without the option";
}

TEST_F(Lv2UiTest, AKnobDragReachesTheHostAsPortValuesInsideOneGesture) {
    parent.data = hostWindow;
    std::unique_ptr<Lv2Ui> ui = Open();
    ASSERT_NE(ui, nullptr);
    ui->Idle();
    const CRect knob(kKnobLayout[0].control); // Gain1
    const CPoint centre = knob.CenterPoint();
    driver.Press(&Panel(), CPoint(knob.left, centre.y));
    driver.Move(&Panel(), CPoint(centre.x, knob.top));
    driver.Release(&Panel(), CPoint(centre.x, knob.top));

    const uint32_t gain1Port = lv2::kFirstParameterPort + kParamGain1;
    ASSERT_GE(log.writes.size(), 3u);
    for (const PortWrite& write : log.writes)
        EXPECT_EQ(write.port, gain1Port);
    // The knob's left is 0.2 of the range, its top 0.5: -7.2 dB and 0 dB.
    EXPECT_NEAR(log.writes.front().value, -7.2f, 1e-4);
    EXPECT_NEAR(log.writes.back().value, 0.0f, 1e-4);
    // The last value is one the effect turns back into exactly what it holds.
    EXPECT_EQ(DisplayToNormalizeValue(kParamGain1, log.writes.back().value),
              plugin.Effect().getParameter(kParamGain1));
    EXPECT_EQ(log.touches,
              (std::vector<std::pair<uint32_t, int>>{{gain1Port, 1}, {gain1Port, -1}}));
    EXPECT_EQ(log.order.front(), 't') << "the gesture begins before the first value";
    EXPECT_EQ(log.order.back(), 't') << "and ends after the last";
}

TEST_F(Lv2UiTest, TheHostsOwnPortChangesAreNotSentBack) {
    parent.data = hostWindow;
    std::unique_ptr<Lv2Ui> ui = Open();
    ASSERT_NE(ui, nullptr);
    float ports[kNumParams];
    for (int index = 0; index < kNumParams; ++index) {
        ports[index] = NormalizeValToInternalVal(index, plugin.Effect().getParameter(index));
        plugin.ConnectPort(lv2::kFirstParameterPort + index, &ports[index]);
    }
    ports[kParamFreq1] = 2000.0f;
    plugin.Run(0);
    ui->Idle();
    EXPECT_TRUE(log.writes.empty()) << "no echo of the host's own change";
    EXPECT_NEAR(plugin.Effect().getParameter(kParamFreq1), 1980.0f / 19980.0f, 1e-6);
}

} // namespace
