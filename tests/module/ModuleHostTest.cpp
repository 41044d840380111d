// Loads the built module the way a host does (dlopen, VSTPluginMain) and from then on
// talks to it only through the record: identity, dispatcher answers, parameter texts,
// chunks, and audio compared bit for bit with a plain evaluation of the formulas.
#include "HeldLibraries.h"
#include "RecordingHost.h"
#include "ReferenceEqualizer.h"
#include "TempFolder.h"

#include <gtest/gtest.h>

#include <cstring>
#include <dlfcn.h>
#include <vector>

namespace {

// Opcode numbers as hosts know them.
constexpr int32_t kOpen = 0, kClose = 1, kSetProgram = 2, kGetProgram = 3, kGetParamLabel = 6,
                  kGetParamDisplay = 7, kGetParamName = 8, kGetVu = 9, kSetSampleRate = 10,
                  kSetBlockSize = 11, kMainsChanged = 12, kIdentify = 22, kGetChunk = 23,
                  kSetChunk = 24, kConnectInput = 31, kConnectOutput = 32, kGetPlugCategory = 35,
                  kSetBlockSizeAndRate = 43, kGetEffectName = 45, kGetVendorString = 47,
                  kGetProductString = 48, kGetVendorVersion = 49, kCanDo = 51,
                  kGetParameterProperties = 56, kKeysRequired = 57, kGetVstVersion = 58;

using EntryPoint = AEffect* (*)(audioMasterCallback);

// One plug-in instance as a host holds it, closed when the test ends.
class Plugin {
public:
    explicit Plugin(EntryPoint entry) : effect(entry(RecordingHost::Callback)) {}
    ~Plugin() {
        if (effect) {
            Dispatch(kClose);
        }
    }
    Plugin(const Plugin&) = delete;
    Plugin& operator=(const Plugin&) = delete;

    intptr_t Dispatch(int32_t opcode, int32_t index = 0, intptr_t value = 0, void* ptr = nullptr,
                      float opt = 0.0f) {
        return effect->dispatcher(effect, opcode, index, value, ptr, opt);
    }
    intptr_t Dispatch(int32_t opcode, const char* text) {
        return Dispatch(opcode, 0, 0, const_cast<char*>(text));
    }
    std::string Text(int32_t opcode, int32_t index = 0) {
        char text[256] = {};
        Dispatch(opcode, index, 0, text);
        return text;
    }
    // The usual start of a host: open, rate, block size, mains on.
    void Start(int32_t blockSize) {
        Dispatch(kOpen);
        Dispatch(kSetSampleRate, 0, 0, nullptr, 48000.0f);
        Dispatch(kSetBlockSize, 0, blockSize);
        Dispatch(kMainsChanged, 0, 1);
    }

    AEffect* effect;
};

class ModuleHost : public testing::Test {
protected:
    ModuleHost() : module(dlopen(ZEPHYRA_MODULE_PATH, RTLD_NOW | RTLD_LOCAL)) {
        if (module) {
            entry = reinterpret_cast<EntryPoint>(dlsym(module, "VSTPluginMain"));
        }
    }
    ~ModuleHost() override {
        if (module) {
            holdLibrariesBesideModule(module);
            dlclose(module);
        }
    }
    void SetUp() override { ASSERT_NE(entry, nullptr) << ZEPHYRA_MODULE_PATH; }

    TempFolder preferences; // keeps any user's default bank file out
    ScopedEnv config{"XDG_CONFIG_HOME", preferences.Path()};
    RecordingHost host;
    void* module;
    EntryPoint entry = nullptr;
};

TEST_F(ModuleHost, AHostThatAnswersNoVersionGetsNoEffect) {
    host.answers[1] = 0;
    EXPECT_EQ(entry(RecordingHost::Callback), nullptr);
    ASSERT_EQ(host.calls.size(), 1u);
    EXPECT_EQ(host.calls[0].opcode, 1);
    EXPECT_EQ(entry(nullptr), nullptr);
}

TEST_F(ModuleHost, RecordAndStringsCarryTheIdentity) {
    Plugin plugin(entry);
    ASSERT_NE(plugin.effect, nullptr);
    const AEffect& record = *plugin.effect;
    EXPECT_EQ(record.magic, 0x56737450);
    EXPECT_EQ(record.uniqueID, 0x56654551);
    EXPECT_EQ(record.version, 1);
    EXPECT_EQ(record.numPrograms, 64);
    EXPECT_EQ(record.numParams, 11);
    EXPECT_EQ(record.numInputs, 2);
    EXPECT_EQ(record.numOutputs, 2);
    EXPECT_EQ(record.ioRatio, 1.0f);
    // An editor, mono, replacing and chunks.
    EXPECT_EQ(record.flags, 0x39);
    EXPECT_EQ(plugin.Text(kGetEffectName), "Zephyra");
    EXPECT_EQ(plugin.Text(kGetProductString), "Zephyra");
    EXPECT_EQ(plugin.Text(kGetVendorString), "VELTRONA Co.,Ltd.");
    EXPECT_EQ(plugin.Dispatch(kGetVendorVersion), 1000);
    EXPECT_EQ(plugin.Dispatch(kGetPlugCategory), 1);
    EXPECT_EQ(plugin.Dispatch(kGetVstVersion), 2300);
}

TEST_F(ModuleHost, DispatcherAnswersTheEdgeCases) {
    Plugin plugin(entry);
    plugin.Start(512);
    EXPECT_EQ(plugin.Dispatch(kGetVu), 0);
    EXPECT_EQ(plugin.Dispatch(kIdentify), 0x4E764566);
    EXPECT_EQ(plugin.Dispatch(kKeysRequired), 1);
    EXPECT_EQ(plugin.Dispatch(kConnectInput, 0, 1), 1);
    EXPECT_EQ(plugin.Dispatch(kConnectOutput, 1, 0), 1);
    EXPECT_EQ(plugin.Dispatch(kSetBlockSizeAndRate, 0, 512, nullptr, 48000.0f), 1);
    for (const int32_t unknown : {80, 81, 4096, -1, INT32_MIN}) {
        EXPECT_EQ(plugin.Dispatch(unknown, 1, 1, nullptr, 1.0f), 0) << unknown;
    }
    EXPECT_EQ(plugin.Dispatch(kCanDo, "bypass"), 1);
    EXPECT_EQ(plugin.Dispatch(kCanDo, "offline"), -1);
    EXPECT_EQ(plugin.Dispatch(kCanDo, "something"), 0);
    plugin.Dispatch(kSetProgram, 0, 7);
    plugin.Dispatch(kSetProgram, 0, 64);
    plugin.Dispatch(kSetProgram, 0, -1);
    EXPECT_EQ(plugin.Dispatch(kGetProgram), 7);
    EXPECT_EQ(plugin.Dispatch(kClose), 1);
    plugin.effect = nullptr;
}

TEST_F(ModuleHost, ParametersReadAsTheHostShowsThem) {
    Plugin plugin(entry);
    plugin.Dispatch(kOpen);
    AEffect* e = plugin.effect;
    const struct {
        float value;
        const char *name, *label, *display;
    } table[] = {{0.99f, "ON/OFF", "", "OFF"},   {1.0f, "Output", "dB", "6.0"},
                 {0.0f, "Input", "dB", "-59.8"}, {0.5f, "Type1", "", "PEAK"},
                 {0.25f, "Gain1", "dB", "-6.0"}, {0.0f, "Freq1", "Hz", "20.0"},
                 {1.0f, "Q1", "", "10.0"},       {0.0f, "Type2", "", "LOW"},
                 {1.0f, "Gain2", "dB", "12.0"},  {1.0f, "Freq2", "Hz", "20000.0"},
                 {0.0f, "Q2", "", "0.3"}};
    for (int32_t index = 0; index < 11; ++index) {
        e->setParameter(e, index, table[index].value);
        EXPECT_EQ(e->getParameter(e, index), table[index].value);
        EXPECT_EQ(plugin.Text(kGetParamName, index), table[index].name);
        EXPECT_EQ(plugin.Text(kGetParamLabel, index), table[index].label);
        EXPECT_EQ(plugin.Text(kGetParamDisplay, index), table[index].display);
    }
    VstParameterProperties properties;
    EXPECT_EQ(plugin.Dispatch(kGetParameterProperties, 5, 0, &properties), 1);
    EXPECT_EQ(properties.flags, 10);
    EXPECT_EQ(properties.maxInteger, 20000);
    plugin.Dispatch(kGetParameterProperties, 11, 0, &properties); // harmless
}

TEST_F(ModuleHost, ChunksTravelBetweenInstancesAndHostileOnesAreHarmless) {
    Plugin source(entry), target(entry);
    source.Dispatch(kSetProgram, 0, 5);
    source.effect->setParameter(source.effect, 4, 0.125f);
    void* data = nullptr;
    ASSERT_EQ(source.Dispatch(kGetChunk, 0, 0, &data), 4608);
    std::vector<char> bank(static_cast<char*>(data), static_cast<char*>(data) + 4608);
    int32_t current = 0;
    std::memcpy(&current, bank.data() + 68, 4);
    EXPECT_EQ(current, 5);
    EXPECT_EQ(target.Dispatch(kSetChunk, 0, 4608, bank.data()), 0);
    EXPECT_EQ(target.Dispatch(kGetProgram), 5);
    EXPECT_EQ(target.effect->getParameter(target.effect, 4), 0.125f);

    std::vector<char> huge(100000, 0x7F);
    target.Dispatch(kSetChunk, 0, static_cast<intptr_t>(huge.size()), huge.data());
    target.Dispatch(kSetChunk, 1, static_cast<intptr_t>(huge.size()), huge.data());
    target.Dispatch(kSetChunk, 0, 4608, nullptr);
    EXPECT_EQ(target.Dispatch(kGetProgram), 5) << "0x7F7F7F7F is no program number";
}

void replacing(AEffect* e, float** in, float** out, int32_t frames) {
    e->processReplacing(e, in, out, frames);
}

void doubleReplacing(AEffect* e, double** in, double** out, int32_t frames) {
    e->processDoubleReplacing(e, in, out, frames);
}

struct Settings {
    float normalised[11]; // ON/OFF, Output, Input, Type1, Gain1, Freq1, Q1, Type2, Gain2, ...
};

// A host sets the parameters and processes four blocks of a stereo signal.
class ModuleAudio : public ModuleHost, public testing::WithParamInterface<Settings> {
protected:
    static constexpr int kBlock = 512, kFrames = 4 * kBlock;

    static float Input(int channel, int i) {
        const auto t = static_cast<float>(i);
        return channel == 0 ? 0.7f * std::sin(0.013f * t) + 0.2f * std::sin(1.9f * t)
                            : (i % 97 == 0 ? 0.9f : -0.05f);
    }

    std::vector<float> Expected(int channel) const {
        const float* v = GetParam().normalised;
        const auto band = [v](int first) {
            return reference::Band{static_cast<int>(std::lround(v[first] * 2.0f)),
                                   reference::FixedFromNormalised(-12.0f, 12.0f, v[first + 1]),
                                   reference::FixedFromNormalised(20.0f, 20000.0f, v[first + 2]),
                                   reference::FixedFromNormalised(0.3f, 10.0f, v[first + 3])};
        };
        reference::Channel chain(48000.0f, reference::LevelFixedFromNormalised(1.0f, 0.0f, v[2]),
                                 reference::LevelFixedFromNormalised(2.0f, 6.0f, v[1]), band(3),
                                 band(7));
        std::vector<float> out;
        for (int i = 0; i < kFrames; ++i) {
            out.push_back(chain.Run(Input(channel, i)));
        }
        return out;
    }

    template <typename Sample, typename Process>
    void Run(Process process, std::vector<Sample>* out) {
        Plugin plugin(entry);
        plugin.Start(kBlock);
        for (int32_t index = 0; index < 11; ++index) {
            plugin.effect->setParameter(plugin.effect, index, GetParam().normalised[index]);
        }
        std::vector<Sample> in[2];
        for (int c = 0; c < 2; ++c) {
            out[c].assign(kFrames, 0);
            for (int i = 0; i < kFrames; ++i) {
                // Doubles carry precision below a float's last bit, which narrowing drops.
                const double x = Input(c, i);
                in[c].push_back(static_cast<Sample>(x + x * 1e-9));
            }
        }
        for (int offset = 0; offset < kFrames; offset += kBlock) {
            Sample* inputs[2] = {in[0].data() + offset, in[1].data() + offset};
            Sample* outputs[2] = {out[0].data() + offset, out[1].data() + offset};
            process(plugin.effect, inputs, outputs, kBlock);
        }
    }
};

TEST_P(ModuleAudio, ReplacingMatchesTheFormulasBitForBit) {
    std::vector<float> out[2];
    Run(replacing, out);
    EXPECT_EQ(out[0], Expected(0));
    EXPECT_EQ(out[1], Expected(1));
}

TEST_P(ModuleAudio, DoubleReplacingMatchesTheFormulasBitForBit) {
    std::vector<double> out[2];
    Run(doubleReplacing, out);
    for (int c = 0; c < 2; ++c) {
        const std::vector<float> expected = Expected(c);
        EXPECT_EQ(out[c], std::vector<double>(expected.begin(), expected.end()));
    }
}

INSTANTIATE_TEST_SUITE_P(
    Settings, ModuleAudio,
    testing::Values(Settings{{1, 0.49975f, 1, 0, 0.5f, 0.049049f, 0.072165f, 1, 0.5f, 0.049049f,
                              0.072165f}},
                    Settings{{1, 0.6f, 0.9f, 0.5f, 0.8f, 0.05f, 0.3f, 1, 0.2f, 0.4f, 0.9f}},
                    Settings{{1, 1, 0, 0, 1, 0, 0, 0.5f, 0, 1, 1}},
                    Settings{{1, 0.3f, 0.7f, 1, 0, 0.99f, 1, 0, 1, 0.002f, 0}}));

} // namespace
