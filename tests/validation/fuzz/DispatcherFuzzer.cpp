// Any sequence of requests with any index, value and opt, with the pointers a well-behaved
// host passes for each opcode. effClose makes a new effect; effEditOpen needs a window.
#include "tests/validation/fuzz/FuzzInput.h"
#include "tests/validation/support/PluginChecks.h"

#include <algorithm>
#include <memory>
#include <string>
#include <vector>

namespace {

// Operations beyond the dispatcher, in the opcode byte's unused range.
enum HostOperation : int32_t { kProcessSingle = 100, kProcessDouble, kSetParameter, kGetParameter };

constexpr size_t kZeroedBytes = 4096;
constexpr size_t kTextBytes = 64;
constexpr int kMaxFrames = 2048;

class Session {
public:
    explicit Session(FuzzInput& input) : m_input(input), m_plugin(new HostedPlugin) {}

    void Request() {
        const auto opcode = static_cast<int32_t>(m_input.Take<int8_t>());
        const auto index = m_input.Take<int32_t>();
        const auto value = static_cast<intptr_t>(m_input.Take<int64_t>());
        const auto opt = m_input.Take<float>();
        switch (opcode) {
        case kProcessSingle:
        case kProcessDouble:
            RequireNoProblem(AudioProblem(*m_plugin, m_noise, static_cast<int>(value % kMaxFrames),
                                          opcode == kProcessDouble));
            return;
        case kSetParameter:
            m_plugin->SetParameter(index, opt);
            return;
        case kGetParameter:
            m_plugin->GetParameter(index);
            return;
        case effClose:
            m_plugin->Close();
            m_plugin.reset(new HostedPlugin);
            return;
        case effEditOpen:
            // Opening needs a window of the host's to open into; the other editor requests
            // meet a closed editor here.
            return;
        default:
            Dispatch(opcode, index, value, opt);
        }
    }

    HostedPlugin& Plugin() { return *m_plugin; }
    Noise& SignalNoise() { return m_noise; }

private:
    void Dispatch(int32_t opcode, int32_t index, intptr_t value, float opt) {
        std::vector<uint8_t> zeroed(kZeroedBytes, 0);
        void* ptr = zeroed.data();
        switch (opcode) {
        case effSetProgramName:
        case effString2Parameter:
        case effCanDo: {
            const std::string text = m_input.Text(m_input.Small(kTextBytes));
            std::copy(text.begin(), text.end(), zeroed.begin());
            break;
        }
        case effGetChunk: {
            void* chunk = nullptr;
            const intptr_t size = m_plugin->Dispatch(opcode, index, value, &chunk, opt);
            if (size > 0 && chunk) {
                const auto* bytes = static_cast<const uint8_t*>(chunk);
                m_lastChunk.assign(bytes, bytes + size); // every byte it claims is readable
            }
            return;
        }
        case effSetChunk: {
            // The fuzzer's bytes, or the last chunk the effect gave, in a buffer as long as
            // the value claims and at least one bank long.
            std::vector<uint8_t> chunk =
                m_input.Take<uint8_t>() % 2 ? m_lastChunk : m_input.Bytes(m_input.Take<uint16_t>());
            const size_t claimed = value > 0 && value < (1 << 20) ? static_cast<size_t>(value) : 0;
            chunk.resize(std::max({chunk.size(), claimed, size_t{4608}}), 0);
            m_plugin->Dispatch(opcode, index, value, chunk.data(), opt);
            return;
        }
        case effSetSpeakerArrangement:
            value = reinterpret_cast<intptr_t>(zeroed.data() + kZeroedBytes / 2);
            break;
        case effGetSpeakerArrangement: {
            VstSpeakerArrangement* arrangements[2] = {nullptr, nullptr};
            m_plugin->Dispatch(opcode, index, reinterpret_cast<intptr_t>(&arrangements[0]),
                               &arrangements[1], opt);
            return;
        }
        default:
            break;
        }
        m_plugin->Dispatch(opcode, index, value, ptr, opt);
    }

    FuzzInput& m_input;
    std::unique_ptr<HostedPlugin> m_plugin;
    Noise m_noise{77};
    std::vector<uint8_t> m_lastChunk;
};

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    FuzzInput input(data, size);
    Session session(input);
    while (!input.Empty()) {
        session.Request();
    }
    RequireNoProblem(EffectProblem(session.Plugin(), session.SignalNoise(), 256, false));
    RequireNoProblem(AudioProblem(session.Plugin(), session.SignalNoise(), 256, true));
    return 0;
}
