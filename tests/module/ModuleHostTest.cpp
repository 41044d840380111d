// The built module loaded as a host does (dlopen, VSTPluginMain) and reached only through the
// record: identity, parameter texts, and audio bit for bit against the plain formulas.
#include "effect/ZephyraParameters.h"
#include "tests/support/RecordingHost.h"
#include "tests/support/ReferenceEqualizer.h"
#include "tests/support/TempFolder.h"
#include "tools/PluginInstance.h"

#include <gtest/gtest.h>

#include <tuple>
#include <vector>

namespace {

// The text exactly as the plug-in wrote it: PluginInstance::text trims the padding, which is
// part of what a host shows.
std::string Text(const PluginInstance& plugin, int32_t opcode, int32_t index = 0) {
    char text[256] = {};
    plugin.dispatch(opcode, index, 0, text);
    return text;
}

class ModuleHost : public testing::Test {
protected:
    static constexpr float kRate = 48000.0f;
    static constexpr int kBlock = 512;

    IsolatedPreferences preferences;
    RecordingHost host;
    std::shared_ptr<PluginModule> module = PluginModule::load(ZEPHYRA_MODULE_PATH);
};

TEST_F(ModuleHost, AHostThatAnswersNoVersionGetsNoEffect) {
    host.answers[audioMasterVersion] = 0;
    EXPECT_EQ(module->callEntry(RecordingHost::Callback), nullptr);
    ASSERT_EQ(host.calls.size(), 1u);
    EXPECT_EQ(host.calls[0].opcode, audioMasterVersion);
    EXPECT_EQ(module->callEntry(nullptr), nullptr);
}

TEST_F(ModuleHost, RecordAndStringsCarryTheIdentity) {
    const PluginInstance plugin(module, kRate, kBlock);
    const AEffect& r = plugin.effect();
    // 0x39: an editor, mono, replacing and chunks.
    EXPECT_EQ(std::make_tuple(r.magic, r.uniqueID, r.version, r.numPrograms, r.numParams,
                              r.numInputs, r.numOutputs, r.ioRatio, r.flags),
              std::make_tuple(0x56737450, 0x56654551, 1, 64, 11, 2, 2, 1.0f, 0x39));
    EXPECT_EQ(std::make_tuple(Text(plugin, effGetEffectName), Text(plugin, effGetProductString),
                              Text(plugin, effGetVendorString)),
              std::make_tuple("Zephyra", "Zephyra", "VELTRONA Co.,Ltd."));
    EXPECT_EQ(std::make_tuple(plugin.dispatch(effGetVendorVersion),
                              plugin.dispatch(effGetPlugCategory),
                              plugin.dispatch(effGetVstVersion)),
              std::make_tuple(1000, 1, 2300));
}

TEST_F(ModuleHost, ParametersReadAsTheHostShowsThem) {
    PluginInstance plugin(module, kRate, kBlock);
    const struct {
        float value;
        const char *name, *label, *display;
    } table[kNumParams] = {{0.99f, "ON/OFF", "", "OFF"},   {1.0f, "Output", "dB", "6.0"},
                           {0.0f, "Input", "dB", "-59.8"}, {0.5f, "Type1", "", "PEAK"},
                           {0.25f, "Gain1", "dB", "-6.0"}, {0.0f, "Freq1", "Hz", "20.0"},
                           {1.0f, "Q1", "", "10.0"},       {0.0f, "Type2", "", "LOW"},
                           {1.0f, "Gain2", "dB", "12.0"},  {1.0f, "Freq2", "Hz", "20000.0"},
                           {0.0f, "Q2", "", "0.3"}};
    for (int32_t index = 0; index < kNumParams; ++index) {
        const auto& row = table[index];
        plugin.setParameter(index, row.value);
        EXPECT_EQ(std::make_tuple(plugin.parameter(index), Text(plugin, effGetParamName, index),
                                  Text(plugin, effGetParamLabel, index),
                                  Text(plugin, effGetParamDisplay, index)),
                  std::make_tuple(row.value, row.name, row.label, row.display));
    }
}

struct Settings {
    float normalised[kNumParams]; // indexed by ZephyraParameter
};

// A host sets the parameters and processes four blocks of a stereo signal.
class ModuleAudio : public ModuleHost, public testing::WithParamInterface<Settings> {
protected:
    static constexpr int kFrames = 4 * kBlock;

    static float Input(int channel, int i) {
        const auto t = static_cast<float>(i);
        return channel == 0 ? 0.7f * std::sin(0.013f * t) + 0.2f * std::sin(1.9f * t)
                            : (i % 97 == 0 ? 0.9f : -0.05f);
    }

    std::vector<float> Expected(int channel) const {
        const float* v = GetParam().normalised;
        const auto band = [v](int type, int gain, int freq, int q) {
            return reference::Band{static_cast<int>(std::lround(v[type] * 2.0f)),
                                   reference::FixedFromNormalised(-12.0f, 12.0f, v[gain]),
                                   reference::FixedFromNormalised(20.0f, 20000.0f, v[freq]),
                                   reference::FixedFromNormalised(0.3f, 10.0f, v[q])};
        };
        reference::Channel chain(kRate,
                                 reference::LevelFixedFromNormalised(1.0f, 0.0f, v[kParamInput]),
                                 reference::LevelFixedFromNormalised(2.0f, 6.0f, v[kParamOutput]),
                                 band(kParamType1, kParamGain1, kParamFreq1, kParamQ1),
                                 band(kParamType2, kParamGain2, kParamFreq2, kParamQ2));
        std::vector<float> out;
        for (int i = 0; i < kFrames; ++i) {
            out.push_back(chain.Run(Input(channel, i)));
        }
        return out;
    }

    // The 64-bit path is checked against the 32-bit one in the effect's own tests.
    void Run(std::vector<float>* out) {
        PluginInstance plugin(module, kRate, kBlock);
        plugin.resume();
        for (int32_t index = 0; index < kNumParams; ++index) {
            plugin.setParameter(index, GetParam().normalised[index]);
        }
        std::vector<float> in[2];
        for (int c = 0; c < 2; ++c) {
            out[c].assign(kFrames, 0);
            for (int i = 0; i < kFrames; ++i) {
                in[c].push_back(Input(c, i));
            }
        }
        for (int offset = 0; offset < kFrames; offset += kBlock) {
            float* inputs[2] = {in[0].data() + offset, in[1].data() + offset};
            float* outputs[2] = {out[0].data() + offset, out[1].data() + offset};
            plugin.process(inputs, outputs, kBlock);
        }
    }
};

TEST_P(ModuleAudio, ReplacingMatchesTheFormulasBitForBit) {
    std::vector<float> out[2];
    Run(out);
    EXPECT_EQ(out[0], Expected(0));
    EXPECT_EQ(out[1], Expected(1));
}

INSTANTIATE_TEST_SUITE_P(
    Settings, ModuleAudio,
    testing::Values(Settings{{1, 0.49975f, 1, 0, 0.5f, 0.049049f, 0.072165f, 1, 0.5f, 0.049049f,
                              0.072165f}},
                    Settings{{1, 0.6f, 0.9f, 0.5f, 0.8f, 0.05f, 0.3f, 1, 0.2f, 0.4f, 0.9f}},
                    Settings{{1, 1, 0, 0, 1, 0, 0, 0.5f, 0, 1, 1}},
                    Settings{{1, 0.3f, 0.7f, 1, 0, 0.99f, 1, 0, 1, 0.002f, 0}}));

} // namespace
