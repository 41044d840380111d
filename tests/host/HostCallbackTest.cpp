// What the base classes send to the host: the opcode, how each argument is packed, how
// the answer is turned into a result, and what every call answers without a host.
#include "ProbeEffect.h"
#include "RecordingHost.h"

#include <gtest/gtest.h>

#include <cctype>
#include <functional>
#include <type_traits>

namespace {

void* const kPointer = reinterpret_cast<void*>(0x5A5A0);
const intptr_t kAnswerPointer = 0x7B7B0;

template <typename T> intptr_t asResult(T value) {
    if constexpr (std::is_pointer_v<T>) {
        return reinterpret_cast<intptr_t>(value);
    } else {
        return static_cast<intptr_t>(value);
    }
}

struct HostRequest {
    const char* what;
    std::function<intptr_t(ProbeEffect&)> call;
    int32_t opcode;
    int32_t index;
    intptr_t value;
    bool passesPointer;
    float opt;
    intptr_t answer; // what the host answers
    intptr_t result; // what the operation then returns
    intptr_t resultWithoutHost;
};

#define RETURNING(expression) [](ProbeEffect& e) { return asResult(expression); }
#define DISCARDING(expression)                                                                     \
    [](ProbeEffect& e) {                                                                           \
        expression;                                                                                \
        return intptr_t{0};                                                                        \
    }

const HostRequest kHostRequests[] = {
    {"version", RETURNING(e.getMasterVersion()), 1, 0, 0, false, 0, 2400, 2400, 1},
    {"version answered 0", RETURNING(e.getMasterVersion()), 1, 0, 0, false, 0, 0, 1, 1},
    {"unique id", RETURNING(e.getCurrentUniqueId()), 2, 0, 0, false, 0, 77, 77, 0},
    {"idle", DISCARDING(e.masterIdle()), 3, 0, 0, false, 0, 1, 0, 0},
    {"input connected", RETURNING(e.isInputConnected(3)), 4, 3, 0, false, 0, 0, 1, 1},
    {"input not connected", RETURNING(e.isInputConnected(3)), 4, 3, 0, false, 0, 1, 0, 1},
    {"output connected", RETURNING(e.isOutputConnected(2)), 4, 2, 1, false, 0, 0, 1, 1},
    {"want events", DISCARDING(e.wantEvents(7)), 6, 0, 7, false, 0, 0, 0, 0},
    {"time info", RETURNING(e.getTimeInfo(0x200)), 7, 0, 0x200, false, 0, kAnswerPointer,
     kAnswerPointer, 0},
    {"events taken", RETURNING(e.sendVstEventsToHost(static_cast<VstEvents*>(kPointer))), 8, 0, 0,
     true, 0, 1, 1, 0},
    {"events answered 2", RETURNING(e.sendVstEventsToHost(static_cast<VstEvents*>(kPointer))), 8, 0,
     0, true, 0, 2, 0, 0},
    {"tempo", RETURNING(e.tempoAt(99)), 10, 0, 99, false, 0, 120, 120, 0},
    {"automatable count", RETURNING(e.getNumAutomatableParameters()), 11, 0, 0, false, 0, 5, 5, 0},
    {"quantization", RETURNING(e.getParameterQuantization()), 12, 0, 0, false, 0, 3, 3, 0},
    {"io changed", RETURNING(e.ioChanged()), 13, 0, 0, false, 0, -1, 1, 0},
    {"need idle", RETURNING(e.needIdle()), 14, 0, 0, false, 0, 2, 1, 0},
    {"size window", RETURNING(e.sizeWindow(640, 480)), 15, 640, 480, false, 0, 1, 1, 0},
    {"sample rate", RETURNING(e.updateSampleRate()), 16, 0, 0, false, 0, 48000, 48000, 44100},
    {"sample rate answered 0", RETURNING(e.updateSampleRate()), 16, 0, 0, false, 0, 0, 44100,
     44100},
    {"block size", RETURNING(e.updateBlockSize()), 17, 0, 0, false, 0, 512, 512, 1024},
    {"block size answered -1", RETURNING(e.updateBlockSize()), 17, 0, 0, false, 0, -1, 1024, 1024},
    {"input latency", RETURNING(e.getInputLatency()), 18, 0, 0, false, 0, 64, 64, 0},
    {"output latency", RETURNING(e.getOutputLatency()), 19, 0, 0, false, 0, 32, 32, 0},
    {"previous plug keeps its pin", RETURNING(e.getPreviousPlug(5)), 20, 0, 0, false, 0,
     kAnswerPointer, kAnswerPointer, 0},
    {"next plug keeps its pin", RETURNING(e.getNextPlug(5)), 21, 0, 0, false, 0, kAnswerPointer,
     kAnswerPointer, 0},
    {"replacing", RETURNING(e.willProcessReplacing()), 22, 0, 0, false, 0, 1, 1, 0},
    {"process level", RETURNING(e.getCurrentProcessLevel()), 23, 0, 0, false, 0, 2, 2, 0},
    {"automation state", RETURNING(e.getAutomationState()), 24, 0, 0, false, 0, 4, 4, 0},
    {"offline start", RETURNING(e.offlineStart(static_cast<VstAudioFile*>(kPointer), 3, 4)), 25, 4,
     3, true, 0, 1, 1, 0},
    {"offline read",
     RETURNING(e.offlineRead(static_cast<VstOfflineTask*>(kPointer), VstOfflineOption(2), true)),
     26, 1, 2, true, 0, 1, 1, 0},
    {"offline write",
     RETURNING(e.offlineWrite(static_cast<VstOfflineTask*>(kPointer), VstOfflineOption(5))), 27, 0,
     5, true, 0, 0, 0, 0},
    {"offline pass", RETURNING(e.offlineGetCurrentPass()), 28, 0, 0, false, 0, 7, 1, 0},
    {"offline meta pass", RETURNING(e.offlineGetCurrentMetaPass()), 29, 0, 0, false, 0, 0, 0, 0},
    {"output rate", DISCARDING(e.setOutputSamplerate(22050.0f)), 30, 0, 0, false, 22050.0f, 0, 0,
     0},
    {"output speakers", RETURNING(e.getOutputSpeakerArrangement()), 31, 0, 0, false, 0,
     kAnswerPointer, kAnswerPointer, 0},
    {"host vendor", RETURNING(e.getHostVendorString(static_cast<char*>(kPointer))), 32, 0, 0, true,
     0, 1, 1, 0},
    {"host product", RETURNING(e.getHostProductString(static_cast<char*>(kPointer))), 33, 0, 0,
     true, 0, 0, 0, 0},
    {"host version", RETURNING(e.getHostVendorVersion()), 34, 0, 0, false, 0, 1200, 1200, 0},
    {"host specific", RETURNING(e.hostVendorSpecific(1, 2, kPointer, 3.5f)), 35, 1, 2, true, 3.5f,
     intptr_t{0x123456789AB}, intptr_t{0x123456789AB}, 0},
    {"host can do", RETURNING(e.canHostDo(static_cast<char*>(kPointer))), 37, 0, 0, true, 0, 1, 1,
     0},
    // Kept: a host's "no" (-1) is still a yes.
    {"host says no", RETURNING(e.canHostDo(static_cast<char*>(kPointer))), 37, 0, 0, true, 0, -1, 1,
     0},
    {"host cannot say", RETURNING(e.canHostDo(static_cast<char*>(kPointer))), 37, 0, 0, true, 0, 0,
     0, 0},
    {"language", RETURNING(e.getHostLanguage()), 38, 0, 0, false, 0, 2, 2, 0},
    {"open window", RETURNING(e.openWindow(static_cast<VstWindow*>(kPointer))), 39, 0, 0, true, 0,
     kAnswerPointer, kAnswerPointer, 0},
    {"close window", RETURNING(e.closeWindow(static_cast<VstWindow*>(kPointer))), 40, 0, 0, true, 0,
     1, 1, 0},
    {"directory", RETURNING(e.getDirectory()), 41, 0, 0, false, 0, kAnswerPointer, kAnswerPointer,
     0},
    {"update display", RETURNING(e.updateDisplay()), 42, 0, 0, false, 0, 1, 1, 0},
    {"begin edit", RETURNING(e.beginEdit(4)), 43, 4, 0, false, 0, 1, 1, 0},
    {"end edit", RETURNING(e.endEdit(4)), 44, 4, 0, false, 0, 0, 0, 0},
    {"open selector", RETURNING(e.openFileSelector(static_cast<VstFileSelect*>(kPointer))), 45, 0,
     0, true, 0, 1, 1, 0},
    {"close selector", RETURNING(e.closeFileSelector(static_cast<VstFileSelect*>(kPointer))), 46, 0,
     0, true, 0, 1, 1, 0},
    {"chunk file", RETURNING(e.getChunkFile(kPointer)), 48, 0, 0, true, 0, 1, 1, 0},
    {"input speakers", RETURNING(e.getInputSpeakerArrangement()), 49, 0, 0, false, 0,
     kAnswerPointer, kAnswerPointer, 0},
};

#undef RETURNING
#undef DISCARDING

class HostCallback : public testing::TestWithParam<HostRequest> {};

TEST_P(HostCallback, PacksArgumentsAndConvertsTheAnswer) {
    const HostRequest& request = GetParam();
    RecordingHost host;
    host.Answer(request.opcode, request.answer);
    ProbeEffect effect(RecordingHost::Callback);

    EXPECT_EQ(request.call(effect), request.result);

    ASSERT_EQ(host.calls.size(), 1u);
    const HostCall& call = host.calls[0];
    EXPECT_EQ(call.effect, effect.getAeffect());
    EXPECT_EQ(call.opcode, request.opcode);
    EXPECT_EQ(call.index, request.index);
    EXPECT_EQ(call.value, request.value);
    EXPECT_EQ(call.ptr, request.passesPointer ? kPointer : nullptr);
    EXPECT_EQ(call.opt, request.opt);
}

TEST_P(HostCallback, AnswersNeutrallyWithoutAHost) {
    ProbeEffect effect;
    EXPECT_EQ(GetParam().call(effect), GetParam().resultWithoutHost);
}

INSTANTIATE_TEST_SUITE_P(Operations, HostCallback, testing::ValuesIn(kHostRequests),
                         [](const auto& info) {
                             std::string name = info.param.what;
                             for (char& c : name) {
                                 c = std::isalnum(static_cast<unsigned char>(c)) ? c : '_';
                             }
                             return name;
                         });

TEST(HostCallbackPointers, NullPointersAreRefusedWithoutAsking) {
    RecordingHost host;
    host.Answer(45, 1);
    host.Answer(46, 1);
    host.Answer(48, 1);
    ProbeEffect effect(RecordingHost::Callback);
    EXPECT_FALSE(effect.openFileSelector(nullptr));
    EXPECT_FALSE(effect.closeFileSelector(nullptr));
    EXPECT_FALSE(effect.getChunkFile(nullptr));
    EXPECT_TRUE(host.calls.empty());
}

TEST(HostCallbackOrder, AutomationSetsTheValueAndTellsTheHost) {
    RecordingHost host;
    ProbeEffect effect(RecordingHost::Callback);
    effect.setParameterAutomated(3, 0.25f);
    EXPECT_EQ(effect.log.Last(), "setParameter(3,0.25)");
    ASSERT_EQ(host.calls.size(), 1u);
    EXPECT_EQ(host.calls[0].opcode, 0);
    EXPECT_EQ(host.calls[0].index, 3);
    EXPECT_EQ(host.calls[0].opt, 0.25f);
}

TEST(HostCallbackState, RateAndBlockSizeAnswersAreKept) {
    RecordingHost host;
    ProbeEffect effect(RecordingHost::Callback);
    host.Answer(16, 96000);
    host.Answer(17, 128);
    effect.updateSampleRate();
    effect.updateBlockSize();
    host.Answer(16, 0);
    host.Answer(17, 0);
    EXPECT_EQ(effect.updateSampleRate(), 96000.0);
    EXPECT_EQ(effect.getBlockSize(), 128);
}

} // namespace
