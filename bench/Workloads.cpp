#include "bench/Workloads.h"

#include "bench/BenchSettings.h"
#include "bench/PlainEffect.h"
#include "bench/RecursionBound.h"
#include "dsp/CMultiEqualizer.h"
#include "tools/PluginInstance.h"

#include <cstring>
#include <random>

namespace {

using BlockProcessor = std::function<void(float** inputs, float** outputs, int frames)>;

constexpr int kSecond = static_cast<int>(kBenchSampleRate);
// Whole blocks of about this much signal.
constexpr int kNoiseFrames = kSecond / kBenchBlock * kBenchBlock;
constexpr int kTailFrames = 2 * kNoiseFrames;
constexpr int kTailLeadIn = kNoiseFrames / 2;

struct StereoSignal {
    std::vector<float> left, right;

    explicit StereoSignal(int frames) : left(frames, 0.0f), right(frames, 0.0f) {}

    static StereoSignal Noise(int frames) {
        StereoSignal signal(frames);
        std::mt19937 generator(2024);
        std::uniform_real_distribution<float> level(-0.5f, 0.5f);
        for (int i = 0; i < frames; ++i) {
            signal.left[i] = level(generator);
            signal.right[i] = level(generator);
        }
        return signal;
    }
};

// Plays a signal through a processor in blocks, out of place as hosts usually run.
class Player {
public:
    explicit Player(BlockProcessor processor)
        : m_processor(std::move(processor)), m_out(kBenchBlock) {}

    void Play(StereoSignal& signal, int first, int frames) {
        for (int done = 0; done < frames; done += kBenchBlock) {
            float* in[2] = {signal.left.data() + first + done, signal.right.data() + first + done};
            float* out[2] = {m_out.left.data(), m_out.right.data()};
            m_processor(in, out, kBenchBlock);
        }
    }

    const StereoSignal& LastBlock() const { return m_out; }

private:
    BlockProcessor m_processor;
    StereoSignal m_out;
};

// Noise, block after block, looping over a second of it.
class NoiseWorkload : public Workload {
public:
    explicit NoiseWorkload(BlockProcessor processor)
        : m_player(std::move(processor)), m_noise(StereoSignal::Noise(kNoiseFrames)),
          m_position(0) {}
    int64_t FramesPerRun() const override { return kBenchBlock; }
    void Run() override {
        m_player.Play(m_noise, m_position, kBenchBlock);
        m_position = (m_position + kBenchBlock) % kNoiseFrames;
    }

private:
    Player m_player;
    StereoSignal m_noise;
    int m_position;
};

// Half a second of noise, untimed, then two seconds of silence, timed: the filters ring
// out and their states sink through the subnormal range.
class TailWorkload : public Workload {
public:
    explicit TailWorkload(BlockProcessor processor)
        : m_player(std::move(processor)), m_noise(StereoSignal::Noise(kTailLeadIn)),
          m_silence(kTailFrames) {}
    int64_t FramesPerRun() const override { return kTailFrames; }
    bool HasPrelude() const override { return true; }
    void Prelude() override { m_player.Play(m_noise, 0, kTailLeadIn); }
    void Run() override { m_player.Play(m_silence, 0, kTailFrames); }

private:
    Player m_player;
    StereoSignal m_noise;
    StereoSignal m_silence;
};

class BoundWorkload : public Workload {
public:
    int64_t FramesPerRun() const override { return kBenchBlock; }
    void Run() override { m_bound.Run(kBenchBlock); }
    ~BoundWorkload() override { m_sink = m_bound.Sum(); }

private:
    RecursionBound m_bound;
    static inline volatile float m_sink = 0.0f;
};

// The module as a host runs it while its transport plays: switched on and between
// effStartProcess and effStopProcess.
class RunningModule {
public:
    explicit RunningModule(const std::string& path)
        : m_instance(PluginModule::load(path), kBenchSampleRate, kBenchBlock) {
        m_instance.resume();
        m_instance.dispatch(effStartProcess);
    }
    ~RunningModule() { m_instance.dispatch(effStopProcess); }
    RunningModule(const RunningModule&) = delete;
    RunningModule& operator=(const RunningModule&) = delete;

    PluginInstance& Instance() { return m_instance; }

private:
    PluginInstance m_instance;
};

// The module at the timed settings; onOff is the ON/OFF parameter's normalised value (a
// value between 0 and 1 switches both bands off while the effect still counts as on).
BlockProcessor ModuleProcessor(const std::string& path, float onOff) {
    auto module = std::make_shared<RunningModule>(path);
    for (const ParameterValue& p : kTimedSettings) {
        module->Instance().setParameter(p.index, p.normalised);
    }
    module->Instance().setParameter(kParamOnOff, onOff);
    // Timed is the record's processReplacing alone, as a host calls it: not the instance's
    // process(), which also keeps the host's sample position.
    AEffect* record = &module->Instance().effect();
    return [module, record](float** in, float** out, int frames) {
        record->processReplacing(record, in, out, frames);
    };
}

BlockProcessor PlainProcessor() {
    auto plain = std::make_shared<PlainEffect>(kBenchBlock);
    return
        [plain](float** in, float** out, int frames) { plain->ProcessReplacing(in, out, frames); };
}

// The engine alone, through Transform, with the given bands active.
BlockProcessor EngineProcessor(bool band0, bool band1) {
    auto engine = std::make_shared<CMultiEqualizer>();
    const tWAVEFORMATEX format = {kWaveFormatIeeeFloat, 2, kSecond, 8 * kSecond, 8, 32, 0};
    engine->SetMediaType(&format, kBenchBlock);
    engine->set_InputLevel(EngineValue(kParamInput));
    engine->set_OutputLevel(EngineValue(kParamOutput));
    const int params[2][4] = {{kParamType1, kParamGain1, kParamFreq1, kParamQ1},
                              {kParamType2, kParamGain2, kParamFreq2, kParamQ2}};
    for (int band = 0; band < 2; ++band) {
        engine->set_Type(band, EngineValue(params[band][0]));
        engine->set_Gain(band, EngineValue(params[band][1]));
        engine->set_Freq(band, EngineValue(params[band][2]));
        engine->set_Q(band, EngineValue(params[band][3]));
    }
    engine->set_Activate(0, band0);
    engine->set_Activate(1, band1);
    return [engine](float** in, float** out, int frames) {
        int produced = 0;
        engine->Transform(in, frames, out, &produced);
    };
}

} // namespace

std::vector<BenchCase> BenchCases(const std::string& modulePath) {
    const auto module = [modulePath](float onOff) {
        return [=] { return ModuleProcessor(modulePath, onOff); };
    };
    const auto noise = [](auto processor) {
        return [=] { return std::unique_ptr<Workload>(new NoiseWorkload(processor())); };
    };
    const auto tail = [](auto processor) {
        return [=] { return std::unique_ptr<Workload>(new TailWorkload(processor())); };
    };
    return {
        {"recursion_bound", "", [] { return std::unique_ptr<Workload>(new BoundWorkload); }},
        {"effect/both_bands", "recursion_bound", noise(module(1.0f))},
        {"plain_reference/both_bands", "recursion_bound", noise(PlainProcessor)},
        {"effect/tail", "effect/both_bands", tail(module(1.0f))},
        {"plain_reference/tail", "plain_reference/both_bands", tail(PlainProcessor)},
        {"effect/bands_off", "effect/both_bands", noise(module(0.5f))},
        {"effect/switched_off", "effect/both_bands", noise(module(0.0f))},
        {"engine/both_bands", "recursion_bound", noise([] { return EngineProcessor(true, true); })},
        {"engine/band_0_only", "engine/both_bands",
         noise([] { return EngineProcessor(true, false); })},
        {"engine/band_1_only", "engine/both_bands",
         noise([] { return EngineProcessor(false, true); })},
    };
}

bool ModuleMatchesPlainReference(const std::string& modulePath, std::string* mismatch) {
    StereoSignal noise = StereoSignal::Noise(kNoiseFrames);
    Player module(ModuleProcessor(modulePath, 1.0f));
    Player plain(PlainProcessor());
    for (int first = 0; first < kNoiseFrames; first += kBenchBlock) {
        module.Play(noise, first, kBenchBlock);
        plain.Play(noise, first, kBenchBlock);
        const StereoSignal& a = module.LastBlock();
        const StereoSignal& b = plain.LastBlock();
        if (std::memcmp(a.left.data(), b.left.data(), kBenchBlock * sizeof(float)) != 0 ||
            std::memcmp(a.right.data(), b.right.data(), kBenchBlock * sizeof(float)) != 0) {
            *mismatch = "the module and the plain reference differ in the block at frame " +
                        std::to_string(first);
            return false;
        }
    }
    return true;
}
