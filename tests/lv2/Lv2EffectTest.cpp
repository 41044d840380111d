// The LV2 instance: ports in display units reach the effect as typed values, the audio is
// the same to the bit in any run length, the meters report, and the bank travels
// in the state (or stays put when the state is missing, foreign or the host maps nothing).
#include "lv2/Lv2Effect.h"
#include "tests/support/ReferenceEqualizer.h"
#include "tests/support/TempFolder.h"

#include <lv2/atom/atom.h>

#include <gtest/gtest.h>

#include <cmath>
#include <cstring>
#include <map>
#include <vector>

namespace {

// A host's URID map and state store, in memory.
class StateHost {
public:
    StateHost() {
        m_map = {this, [](LV2_URID_Map_Handle handle, const char* uri) {
                     auto& uris = static_cast<StateHost*>(handle)->m_uris;
                     const auto found = uris.emplace(uri, uris.size() + 1).first;
                     return static_cast<LV2_URID>(found->second);
                 }};
        m_feature = {LV2_URID__map, &m_map};
    }
    const LV2_Feature* const* Features() { return m_features; }
    LV2_URID Map(const char* uri) { return m_map.map(this, uri); }

    struct Value {
        std::string bytes;
        uint32_t type;
    };
    std::map<uint32_t, Value> stored;

    static LV2_State_Status Store(LV2_State_Handle handle, uint32_t key, const void* value,
                                  size_t size, uint32_t type, uint32_t) {
        static_cast<StateHost*>(handle)->stored[key] = {
            std::string(static_cast<const char*>(value), size), type};
        return LV2_STATE_SUCCESS;
    }
    static const void* Retrieve(LV2_State_Handle handle, uint32_t key, size_t* size, uint32_t* type,
                                uint32_t* flags) {
        auto& stored = static_cast<StateHost*>(handle)->stored;
        const auto found = stored.find(key);
        if (found == stored.end())
            return nullptr;
        *size = found->second.bytes.size();
        *type = found->second.type;
        *flags = LV2_STATE_IS_POD;
        return found->second.bytes.data();
    }

private:
    std::map<std::string, size_t> m_uris;
    LV2_URID_Map m_map;
    LV2_Feature m_feature;
    const LV2_Feature* m_features[2] = {&m_feature, nullptr};
};

// One instance with every port connected to memory of its own, in a private home.
class Lv2Instance {
public:
    explicit Lv2Instance(const LV2_Feature* const* features = nullptr)
        : effect(48000.0, ZEPHYRA_LV2_BUNDLE, features) {
        for (int index = 0; index < kNumParams; ++index) {
            ports[index] = NormalizeValToInternalVal(index, effect.Effect().getParameter(index));
            effect.ConnectPort(lv2::kFirstParameterPort + index, &ports[index]);
        }
        for (uint32_t meter = 0; meter < lv2::kNumMeterPorts; ++meter)
            effect.ConnectPort(lv2::kFirstMeterPort + meter, &meters[meter]);
        effect.Activate();
    }

    // Runs the stereo signal through in runs of the given length, in place when asked.
    std::vector<float> Render(const std::vector<float>& left, const std::vector<float>& right,
                              uint32_t runLength, bool inPlace = false) {
        std::vector<float> inL = left, inR = right;
        std::vector<float> outL(left.size()), outR(left.size());
        float* out[2] = {inPlace ? inL.data() : outL.data(), inPlace ? inR.data() : outR.data()};
        for (size_t offset = 0; offset < left.size(); offset += runLength) {
            const auto count =
                static_cast<uint32_t>(std::min<size_t>(runLength, left.size() - offset));
            effect.ConnectPort(lv2::kAudioInLeft, inL.data() + offset);
            effect.ConnectPort(lv2::kAudioInRight, inR.data() + offset);
            effect.ConnectPort(lv2::kAudioOutLeft, out[0] + offset);
            effect.ConnectPort(lv2::kAudioOutRight, out[1] + offset);
            effect.Run(count);
        }
        std::vector<float> both(out[0], out[0] + left.size());
        both.insert(both.end(), out[1], out[1] + left.size());
        return both;
    }

    std::string Bank() {
        void* image = nullptr;
        const int32_t size = effect.Effect().getChunk(&image, false);
        return std::string(static_cast<const char*>(image), size);
    }

    Lv2Effect effect;
    float ports[kNumParams];
    float meters[lv2::kNumMeterPorts] = {};
};

class Lv2EffectTest : public testing::Test {
protected:
    TempFolder home;
    ScopedEnv homeVariable{"HOME", home.Path()};
    ScopedEnv configVariable{"XDG_CONFIG_HOME", home.Path()};
};

TEST_F(Lv2EffectTest, PortsReachTheEffectAsTypedDisplayValues) {
    struct Case {
        int index;
        float port;
        float normalised; // worked out by hand from the ranges
    };
    // The frequencies, types and levels are checked in display units by lv2_tools.py's
    // render case.
    const Case cases[] = {
        {kParamGain1, 6.0f, 0.75f}, // -12..12 dB
        {kParamGain2, 40.0f, 1.0f}, // clamped to the range
        {kParamQ2, 0.3f, 0.0f},     // 0.3..10
        {kParamOnOff, 0.0f, 0.0f},
    };
    Lv2Instance instance;
    const std::vector<float> silence(64);
    for (const Case& c : cases) {
        SCOPED_TRACE(kParamTexts[c.index].symbol);
        instance.ports[c.index] = c.port;
        instance.Render(silence, silence, 64);
        EXPECT_NEAR(instance.effect.Effect().getParameter(c.index), c.normalised, 1e-6);
    }
    // A NaN from the host is ignored: the value stays.
    instance.ports[kParamGain1] = NAN;
    instance.Render(silence, silence, 64);
    EXPECT_NEAR(instance.effect.Effect().getParameter(kParamGain1), 0.75f, 1e-6);
}

// lv2_tools.py's render case checks a frame at a time against the VST path bit for bit;
// longer runs and in-place buffers must give the same samples.
TEST_F(Lv2EffectTest, RendersTheSameBitsInAnyRunLengthAndInPlace) {
    const std::vector<float> left = reference::Noise(6000, 1, 0.5f),
                             right = reference::Noise(6000, 2, 0.5f);
    const struct {
        int index;
        float display;
    } settings[] = {{kParamOnOff, 1.0f},    {kParamOutput, 2.0f}, {kParamInput, -3.0f},
                    {kParamType1, 1.0f},    {kParamGain1, 6.0f},  {kParamFreq1, 2000.0f},
                    {kParamQ1, 2.0f},       {kParamType2, 2.0f},  {kParamGain2, -4.5f},
                    {kParamFreq2, 5000.0f}, {kParamQ2, 0.7f}};
    const auto render = [&](uint32_t runLength, bool inPlace) {
        Lv2Instance instance;
        for (const auto& setting : settings)
            instance.ports[setting.index] = setting.display;
        return instance.Render(left, right, runLength, inPlace);
    };
    const std::vector<float> frameByFrame = render(1, false);
    EXPECT_EQ(render(1, true), frameByFrame) << "in place";
    EXPECT_EQ(render(4096, false), frameByFrame) << "in runs of 4096";
    EXPECT_EQ(render(4096, true), frameByFrame) << "in runs of 4096 in place";
}

TEST_F(Lv2EffectTest, MetersReportTheLastRunsPeaks) {
    Lv2Instance instance;
    std::vector<float> left(256, 0.0f), right(256, 0.0f);
    left[100] = -0.5f;
    right[7] = 0.25f;
    instance.ports[kParamOutput] = -6.0f; // half the level out
    instance.Render(left, right, 256);
    EXPECT_FLOAT_EQ(instance.meters[0], 0.5f);
    EXPECT_FLOAT_EQ(instance.meters[1], 0.25f);
    EXPECT_NEAR(instance.meters[2], 0.25f, 1e-3);
    EXPECT_NEAR(instance.meters[3], 0.125f, 1e-3);
}

TEST_F(Lv2EffectTest, TheStateCarriesTheWholeBankAndTheCurrentProgram) {
    StateHost stateHost;
    std::string saved;
    {
        Lv2Instance edited(stateHost.Features());
        edited.effect.Effect().setProgram(3);
        edited.ports[kParamGain1] = 6.0f;
        edited.Render(std::vector<float>(16), std::vector<float>(16), 16);
        ASSERT_EQ(edited.effect.Save(StateHost::Store, &stateHost), LV2_STATE_SUCCESS);
        saved = edited.Bank();
    }
    const StateHost::Value& value = stateHost.stored.at(stateHost.Map(lv2::kBankStateKey));
    EXPECT_EQ(value.bytes.size(), 4608u);
    EXPECT_EQ(value.type, stateHost.Map(LV2_ATOM__Chunk));

    Lv2Instance restored(stateHost.Features());
    ASSERT_EQ(restored.effect.Restore(StateHost::Retrieve, &stateHost), LV2_STATE_SUCCESS);
    EXPECT_EQ(restored.effect.Effect().getProgram(), 3);
    EXPECT_FLOAT_EQ(restored.effect.Effect().getParameter(kParamGain1), 0.75f);
    EXPECT_EQ(restored.Bank(), saved);
    // The host sets the ports it saved: values that agree leave the restored bank unedited.
    for (int index = 0; index < kNumParams; ++index)
        restored.ports[index] =
            NormalizeValToInternalVal(index, restored.effect.Effect().getParameter(index));
    restored.Render(std::vector<float>(16), std::vector<float>(16), 16);
    EXPECT_EQ(restored.Bank(), saved);
}

TEST_F(Lv2EffectTest, AMissingForeignOrMisfitStateLeavesTheBankAlone) {
    StateHost stateHost;
    Lv2Instance fresh(stateHost.Features());
    const std::string untouched = fresh.Bank();
    const LV2_URID key = stateHost.Map(lv2::kBankStateKey);
    const LV2_URID chunk = stateHost.Map(LV2_ATOM__Chunk);
    const std::string foreignBank(4608, '\x7f');
    const struct {
        const char* what;
        std::map<uint32_t, StateHost::Value> stored;
    } cases[] = {
        {"missing", {}},
        {"another type", {{key, {foreignBank, stateHost.Map(LV2_ATOM__String)}}}},
        {"too short", {{key, {std::string(100, '\x7f'), chunk}}}},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.what);
        stateHost.stored = c.stored;
        Lv2Instance instance(stateHost.Features());
        EXPECT_EQ(instance.effect.Restore(StateHost::Retrieve, &stateHost), LV2_STATE_SUCCESS);
        EXPECT_EQ(instance.Bank(), untouched);
    }

    // Without a URID map there is no state (lv2_tools.py renders with lv2apply, which maps
    // nothing).
    Lv2Instance unmapped;
    EXPECT_EQ(unmapped.effect.Save(StateHost::Store, &stateHost), LV2_STATE_ERR_NO_FEATURE);
    EXPECT_EQ(unmapped.effect.Restore(StateHost::Retrieve, &stateHost), LV2_STATE_ERR_NO_FEATURE);
}

} // namespace
