// What the base classes send to the host: the opcode, how each argument is packed, how
// the answer becomes a result, and what each call answers when there is no host.
#include "tests/host/ProbeEffect.h"
#include "tests/support/RecordingHost.h"

#include <gtest/gtest.h>

namespace {

char g_text[] = "text";
void* const kPointer = g_text;
const intptr_t kHostPointer = 0x7B7B0;

struct HostRequest {
    const char* name;
    intptr_t (*call)(ProbeEffect&);
    int32_t opcode, index;
    intptr_t value;
    bool passesPointer;
    float opt;
    intptr_t answer, result, resultWithoutHost;
};

template <typename T> intptr_t result(T value) {
    if constexpr (std::is_pointer_v<T>) {
        return reinterpret_cast<intptr_t>(value);
    } else {
        return static_cast<intptr_t>(value);
    }
}

#define CALL(expression) [](ProbeEffect& e) { return result(expression); }

class HostCallback : public testing::TestWithParam<HostRequest> {};

TEST_P(HostCallback, PacksArgumentsAndConvertsTheAnswer) {
    const HostRequest& request = GetParam();
    RecordingHost host;
    host.answers[request.opcode] = request.answer;
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

auto* const kText = static_cast<char*>(kPointer);

INSTANTIATE_TEST_SUITE_P(
    Operations, HostCallback,
    testing::Values(
        HostRequest{"Automate", CALL((e.setParameterAutomated(3, 0.25f), 0)), 0, 3, 0, false, 0.25f,
                    0, 0, 0},
        HostRequest{"Version", CALL(e.getMasterVersion()), 1, 0, 0, false, 0, 2400, 2400, 1},
        HostRequest{"VersionAnsweredZero", CALL(e.getMasterVersion()), 1, 0, 0, false, 0, 0, 1, 1},
        HostRequest{"InputConnected", CALL(e.isInputConnected(3)), 4, 3, 0, false, 0, 0, 1, 1},
        HostRequest{"OutputNotConnected", CALL(e.isOutputConnected(2)), 4, 2, 1, false, 0, 1, 0, 1},
        HostRequest{"WantEvents", CALL((e.wantEvents(7), 0)), 6, 0, 7, false, 0, 0, 0, 0},
        HostRequest{"TimeInfo", CALL(e.getTimeInfo(0x200)), 7, 0, 0x200, false, 0, kHostPointer,
                    kHostPointer, 0},
        HostRequest{"EventsTakenOnlyOnOne",
                    CALL(e.sendVstEventsToHost(static_cast<VstEvents*>(kPointer))), 8, 0, 0, true,
                    0, 2, 0, 0},
        HostRequest{"SizeWindow", CALL(e.sizeWindow(640, 480)), 15, 640, 480, false, 0, 1, 1, 0},
        HostRequest{"SampleRate", CALL(e.updateSampleRate()), 16, 0, 0, false, 0, 48000, 48000,
                    44100},
        HostRequest{"SampleRateAnsweredZeroKept", CALL(e.updateSampleRate()), 16, 0, 0, false, 0, 0,
                    44100, 44100},
        HostRequest{"BlockSizeAnsweredNegativeKept", CALL(e.updateBlockSize()), 17, 0, 0, false, 0,
                    -1, 1024, 1024},
        HostRequest{"PreviousPlugDropsItsPin", CALL(e.getPreviousPlug(5)), 20, 0, 0, false, 0,
                    kHostPointer, kHostPointer, 0},
        HostRequest{"OfflineStart",
                    CALL(e.offlineStart(static_cast<VstAudioFile*>(kPointer), 3, 4)), 25, 4, 3,
                    true, 0, 1, 1, 0},
        HostRequest{"OfflineRead",
                    CALL(e.offlineRead(static_cast<VstOfflineTask*>(kPointer), 2, true)), 26, 1, 2,
                    true, 0, 1, 1, 0},
        HostRequest{"OfflinePassAsZeroOrOne", CALL(e.offlineGetCurrentPass()), 28, 0, 0, false, 0,
                    7, 1, 0},
        HostRequest{"OutputRate", CALL((e.setOutputSamplerate(22050.0f), 0)), 30, 0, 0, false,
                    22050.0f, 0, 0, 0},
        HostRequest{"VendorSpecificUnchanged", CALL(e.hostVendorSpecific(1, 2, kPointer, 3.5f)), 35,
                    1, 2, true, 3.5f, intptr_t{0x123456789AB}, intptr_t{0x123456789AB}, 0},
        // Kept: a host's "no" (-1) still counts as yes.
        HostRequest{"CanHostDoNoIsYes", CALL(e.canHostDo(kText)), 37, 0, 0, true, 0, -1, 1, 0},
        HostRequest{"CanHostDoDontKnow", CALL(e.canHostDo(kText)), 37, 0, 0, true, 0, 0, 0, 0},
        HostRequest{"Directory", CALL(e.getDirectory()), 41, 0, 0, false, 0, kHostPointer,
                    kHostPointer, 0},
        HostRequest{"UpdateDisplay", CALL(e.updateDisplay()), 42, 0, 0, false, 0, 5, 1, 0},
        HostRequest{"BeginEdit", CALL(e.beginEdit(4)), 43, 4, 0, false, 0, 1, 1, 0},
        HostRequest{"FileSelector", CALL(e.openFileSelector(static_cast<VstFileSelect*>(kPointer))),
                    45, 0, 0, true, 0, 1, 1, 0}),
    [](const auto& info) { return std::string(info.param.name); });

#undef CALL

TEST(HostCallbackPointers, NullPointersAreRefusedWithoutAsking) {
    RecordingHost host;
    host.answers = {{45, 1}, {46, 1}, {48, 1}};
    ProbeEffect effect(RecordingHost::Callback);
    EXPECT_FALSE(effect.openFileSelector(nullptr));
    EXPECT_FALSE(effect.closeFileSelector(nullptr));
    EXPECT_FALSE(effect.getChunkFile(nullptr));
    EXPECT_TRUE(host.calls.empty());
}

} // namespace
