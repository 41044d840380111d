// Loads the built module the way a host does (dlopen, VSTPluginMain) and from then on
// talks to it only through the record: identity, dispatcher answers, parameter texts,
// chunks, and audio compared bit for bit with a plain evaluation of the formulas.
#include "PlainEqualizer.h"
#include "RecordingHost.h"
#include "TempFolder.h"

#include <gtest/gtest.h>

#include <cstring>
#include <dlfcn.h>
#include <vector>

namespace {

// Opcode numbers as hosts know them.
enum : int32_t {
    kOpen = 0,
    kClose = 1,
    kSetProgram = 2,
    kGetProgram = 3,
    kGetParamLabel = 6,
    kGetParamDisplay = 7,
    kGetParamName = 8,
    kGetVu = 9,
    kSetSampleRate = 10,
    kSetBlockSize = 11,
    kMainsChanged = 12,
    kEditGetRect = 13,
    kIdentify = 22,
    kGetChunk = 23,
    kSetChunk = 24,
    kConnectInput = 31,
    kConnectOutput = 32,
    kGetPlugCategory = 35,
    kSetBlockSizeAndSampleRate = 43,
    kGetEffectName = 45,
    kGetVendorString = 47,
    kGetProductString = 48,
    kGetVendorVersion = 49,
    kCanDo = 51,
    kGetParameterProperties = 56,
    kKeysRequired = 57,
    kGetVstVersion = 58,
};

using EntryPoint = AEffect* (*)(audioMasterCallback);

class LoadedModule {
public:
    LoadedModule() : m_handle(dlopen(ZEPHYRA_MODULE_PATH, RTLD_NOW | RTLD_LOCAL)) {}
    ~LoadedModule() {
        if (m_handle) {
            dlclose(m_handle);
        }
    }
    EntryPoint Entry() const {
        return m_handle ? reinterpret_cast<EntryPoint>(dlsym(m_handle, "VSTPluginMain")) : nullptr;
    }

private:
    void* m_handle;
};

// One plug-in instance as a host holds it: the record, closed when the test ends.
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
    std::string Text(int32_t opcode, int32_t index = 0) {
        char text[256] = {};
        Dispatch(opcode, index, 0, text);
        return text;
    }
    void StartAsHost(int32_t blockSize) {
        Dispatch(kOpen);
        Dispatch(kSetSampleRate, 0, 0, nullptr, 48000.0f);
        Dispatch(kSetBlockSize, 0, blockSize);
        Dispatch(kMainsChanged, 0, 1);
    }

    AEffect* effect;
};

class ModuleHost : public testing::Test {
protected:
    void SetUp() override { ASSERT_NE(entry, nullptr) << dlerror(); }

    TempFolder preferences;
    ScopedEnv config{"XDG_CONFIG_HOME", preferences.Path()};
    RecordingHost host;
    LoadedModule module;
    EntryPoint entry = module.Entry();
};

TEST_F(ModuleHost, AHostThatAnswersNoVersionGetsNoEffect) {
    host.Answer(RecordingHost::kVersionOpcode, 0);
    EXPECT_EQ(entry(RecordingHost::Callback), nullptr);
    ASSERT_EQ(host.calls.size(), 1u);
    EXPECT_EQ(host.calls[0].opcode, 1);
    EXPECT_EQ(host.calls[0].effect, nullptr);
    EXPECT_EQ(entry(nullptr), nullptr);
}

TEST_F(ModuleHost, RecordCarriesTheIdentity) {
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
    EXPECT_EQ(record.initialDelay, 0);
    EXPECT_NE(record.processReplacing, nullptr);
    EXPECT_NE(record.processDoubleReplacing, nullptr);
    EXPECT_EQ(record.future[0] | record.future[55], 0);
    // Can mono, can replace, programs as chunks; the editor bit goes with an editor.
    ERect* rect = nullptr;
    const bool hasEditor = plugin.Dispatch(kEditGetRect, 0, 0, &rect) != 0 && rect != nullptr;
    EXPECT_EQ(record.flags, 0x38 | (hasEditor ? 1 : 0));

    EXPECT_EQ(plugin.Text(kGetEffectName), "Zephyra");
    EXPECT_EQ(plugin.Text(kGetProductString), "Zephyra");
    EXPECT_EQ(plugin.Text(kGetVendorString), "VELTRONA Co.,Ltd.");
    EXPECT_EQ(plugin.Dispatch(kGetVendorVersion), 1000);
    EXPECT_EQ(plugin.Dispatch(kGetPlugCategory), 1);
    EXPECT_EQ(plugin.Dispatch(kGetVstVersion), 2300);
}

TEST_F(ModuleHost, DispatcherAnswersTheEdgeCases) {
    Plugin plugin(entry);
    plugin.StartAsHost(512);
    EXPECT_EQ(plugin.Dispatch(kGetVu), 0);
    EXPECT_EQ(plugin.Dispatch(kIdentify), 0x4E764566);
    EXPECT_EQ(plugin.Dispatch(kKeysRequired), 1);
    EXPECT_EQ(plugin.Dispatch(kConnectInput, 0, 1), 1);
    EXPECT_EQ(plugin.Dispatch(kConnectOutput, 1, 0), 1);
    EXPECT_EQ(plugin.Dispatch(kSetBlockSizeAndSampleRate, 0, 512, nullptr, 48000.0f), 1);
    for (const int32_t unknown : {80, 81, 4096, -1, INT32_MIN}) {
        EXPECT_EQ(plugin.Dispatch(unknown, 1, 1, nullptr, 1.0f), 0) << unknown;
    }
    EXPECT_EQ(plugin.Dispatch(kCanDo, 0, 0, const_cast<char*>("bypass")), 1);
    EXPECT_EQ(plugin.Dispatch(kCanDo, 0, 0, const_cast<char*>("offline")), -1);
    EXPECT_EQ(plugin.Dispatch(kCanDo, 0, 0, const_cast<char*>("something")), 0);

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
        int32_t index;
        float value;
        const char *name, *label, *display;
    } table[] = {
        {0, 0.99f, "ON/OFF", "", "OFF"},   {1, 1.0f, "Output", "dB", "6.0"},
        {2, 0.0f, "Input", "dB", "-59.8"}, {3, 0.5f, "Type1", "", "PEAK"},
        {4, 0.25f, "Gain1", "dB", "-6.0"}, {5, 0.0f, "Freq1", "Hz", "20.0"},
        {6, 1.0f, "Q1", "", "10.0"},       {7, 0.0f, "Type2", "", "LOW"},
        {8, 1.0f, "Gain2", "dB", "12.0"},  {9, 1.0f, "Freq2", "Hz", "20000.0"},
        {10, 0.0f, "Q2", "", "0.3"},
    };
    for (const auto& row : table) {
        e->setParameter(e, row.index, row.value);
        EXPECT_EQ(e->getParameter(e, row.index), row.value);
        EXPECT_EQ(plugin.Text(kGetParamName, row.index), row.name);
        EXPECT_EQ(plugin.Text(kGetParamLabel, row.index), row.label);
        EXPECT_EQ(plugin.Text(kGetParamDisplay, row.index), row.display);
    }
    VstParameterProperties properties;
    EXPECT_EQ(plugin.Dispatch(kGetParameterProperties, 5, 0, &properties), 1);
    EXPECT_EQ(properties.flags, 10);
    EXPECT_EQ(properties.minInteger, 20);
    EXPECT_EQ(properties.maxInteger, 20000);
    EXPECT_STREQ(properties.label, "Hz");
    plugin.Dispatch(kGetParameterProperties, 11, 0, &properties); // harmless
}

TEST_F(ModuleHost, ChunksTravelBetweenInstances) {
    Plugin source(entry), target(entry);
    source.Dispatch(kOpen);
    target.Dispatch(kOpen);
    source.Dispatch(kSetProgram, 0, 5);
    source.effect->setParameter(source.effect, 4, 0.125f);
    void* data = nullptr;
    ASSERT_EQ(source.Dispatch(kGetChunk, 0, 0, &data), 4608);
    int32_t current = 0;
    std::memcpy(&current, static_cast<char*>(data) + 68, 4);
    EXPECT_EQ(current, 5);

    std::vector<char> bank(static_cast<char*>(data), static_cast<char*>(data) + 4608);
    EXPECT_EQ(target.Dispatch(kSetChunk, 0, 4608, bank.data()), 0);
    EXPECT_EQ(target.Dispatch(kGetProgram), 5);
    EXPECT_EQ(target.effect->getParameter(target.effect, 4), 0.125f);

    // Hostile sizes reach the effect unchanged and must stay harmless.
    std::vector<char> huge(100000, 0x7F);
    target.Dispatch(kSetChunk, 0, static_cast<intptr_t>(huge.size()), huge.data());
    target.Dispatch(kSetChunk, 1, static_cast<intptr_t>(huge.size()), huge.data());
    target.Dispatch(kSetChunk, 0, 4608, nullptr);
    EXPECT_GE(target.Dispatch(kGetProgram), 0);
}

struct Settings {
    float normalised[11];
};

// The module's output for a stereo signal, compared with the plain evaluation.
class ModuleAudio : public ModuleHost, public testing::WithParamInterface<Settings> {
protected:
    static constexpr int kBlock = 512;
    static constexpr int kBlocks = 4;

    static float Input(int channel, int i) {
        return channel == 0 ? 0.7f * std::sin(0.013f * static_cast<float>(i)) +
                                  0.2f * std::sin(1.9f * static_cast<float>(i))
                            : (i % 97 == 0 ? 0.9f : -0.05f);
    }

    std::vector<float> Expected(int channel) const {
        const float* v = GetParam().normalised;
        const auto type = [](float n) {
            return static_cast<plain::Response>(std::lround(n * 2.0f));
        };
        const auto band = [&](int first) {
            return plain::Biquad(48000.0f, plain::EngineValue(20.0f, 20000.0f, v[first + 2]),
                                 plain::EngineValue(-12.0f, 12.0f, v[first + 1]),
                                 plain::EngineValue(0.3f, 10.0f, v[first + 3]), type(v[first]));
        };
        plain::Channel chain{plain::LevelGain(1.0f, 0.0f, v[2]), band(3), band(7),
                             plain::LevelGain(2.0f, 6.0f, v[1])};
        std::vector<float> out(kBlock * kBlocks);
        for (int i = 0; i < kBlock * kBlocks; ++i) {
            out[i] = chain.Step(Input(channel, i));
        }
        return out;
    }

    void Start(Plugin& plugin) {
        plugin.StartAsHost(kBlock);
        for (int index = 0; index < 11; ++index) {
            plugin.effect->setParameter(plugin.effect, index, GetParam().normalised[index]);
        }
    }
};

TEST_P(ModuleAudio, ReplacingMatchesTheFormulasBitForBit) {
    Plugin plugin(entry);
    Start(plugin);
    std::vector<float> in[2], out[2];
    for (int c = 0; c < 2; ++c) {
        out[c].assign(kBlock * kBlocks, 0.0f);
        for (int i = 0; i < kBlock * kBlocks; ++i) {
            in[c].push_back(Input(c, i));
        }
    }
    for (int block = 0; block < kBlocks; ++block) {
        float* inputs[2] = {in[0].data() + block * kBlock, in[1].data() + block * kBlock};
        float* outputs[2] = {out[0].data() + block * kBlock, out[1].data() + block * kBlock};
        plugin.effect->processReplacing(plugin.effect, inputs, outputs, kBlock);
    }
    EXPECT_EQ(out[0], Expected(0));
    EXPECT_EQ(out[1], Expected(1));
}

TEST_P(ModuleAudio, DoubleReplacingMatchesTheFormulasBitForBit) {
    Plugin plugin(entry);
    Start(plugin);
    std::vector<double> in[2], out[2];
    for (int c = 0; c < 2; ++c) {
        out[c].assign(kBlock * kBlocks, 0.0);
        for (int i = 0; i < kBlock * kBlocks; ++i) {
            // Extra precision below a float's last bit, which the module's narrowing drops.
            const double x = Input(c, i);
            in[c].push_back(x + x * 1e-9);
        }
    }
    for (int block = 0; block < kBlocks; ++block) {
        double* inputs[2] = {in[0].data() + block * kBlock, in[1].data() + block * kBlock};
        double* outputs[2] = {out[0].data() + block * kBlock, out[1].data() + block * kBlock};
        plugin.effect->processDoubleReplacing(plugin.effect, inputs, outputs, kBlock);
    }
    for (int c = 0; c < 2; ++c) {
        const std::vector<float> expected = Expected(c);
        EXPECT_EQ(out[c], std::vector<double>(expected.begin(), expected.end()));
    }
}

INSTANTIATE_TEST_SUITE_P(
    Settings, ModuleAudio,
    testing::Values(
        // ON/OFF, Output, Input, Type1, Gain1, Freq1, Q1, Type2, Gain2, Freq2, Q2
        Settings{{1.0f, 0.49975f, 1.0f, 0.0f, 0.5f, 0.049049f, 0.072165f, 1.0f, 0.5f, 0.049049f,
                  0.072165f}},
        Settings{{1.0f, 0.6f, 0.9f, 0.5f, 0.8f, 0.05f, 0.3f, 1.0f, 0.2f, 0.4f, 0.9f}},
        Settings{{1.0f, 1.0f, 0.0f, 0.0f, 1.0f, 0.0f, 0.0f, 0.5f, 0.0f, 1.0f, 1.0f}},
        Settings{{1.0f, 0.3f, 0.7f, 1.0f, 0.0f, 0.99f, 1.0f, 0.0f, 1.0f, 0.002f, 0.0f}}));

} // namespace
