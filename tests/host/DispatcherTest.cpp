// The requests a host sends through the record: which operation each opcode reaches, how
// its arguments are unpacked and how the answer comes back.
#include "tests/host/ProbeEffect.h"

#include <gtest/gtest.h>

namespace {

constexpr intptr_t kHigh = intptr_t{1} << 32; // a bit that truncation to 32 bits drops

intptr_t dispatch(AudioEffect& effect, int32_t opcode, int32_t index = 0, intptr_t value = 0,
                  void* ptr = nullptr, float opt = 0.0f) {
    AEffect* record = effect.getAeffect();
    return record->dispatcher(record, opcode, index, value, ptr, opt);
}

struct Request {
    const char* name;
    int32_t opcode, index;
    intptr_t value;
    float opt;
    intptr_t result;
    const char* reaches; // empty: no watched operation is called
};

class DispatcherRequest : public testing::TestWithParam<Request> {};

TEST_P(DispatcherRequest, ReachesItsOperationAndAnswers) {
    const Request& request = GetParam();
    ProbeEffect effect;
    void* chunk = nullptr;
    EXPECT_EQ(dispatch(effect, request.opcode, request.index, request.value, &chunk, request.opt),
              request.result);
    EXPECT_EQ(effect.log.last, request.reaches);
}

INSTANTIATE_TEST_SUITE_P(
    Opcodes, DispatcherRequest,
    testing::Values(Request{"Open", 0, 0, 0, 0, 0, "open()"},
                    Request{"SetProgram", 2, 0, 5, 0, 0, "setProgram(5)"},
                    Request{"SetProgram64Ignored", 2, 0, 64, 0, 0, ""},
                    Request{"SetProgramMinusOnePassedOn", 2, 0, -1, 0, 0, "setProgram(-1)"},
                    Request{"SetProgramComparesAll64Bits", 2, 0, kHigh + 3, 0, 0, ""},
                    Request{"SetProgramTruncatesANegative", 2, 0, -kHigh + 2, 0, 0,
                            "setProgram(2)"},
                    Request{"SampleRateFromOpt", 10, 0, 0, 48000.0f, 0, "setSampleRate(48000)"},
                    Request{"BlockSizeTruncated", 11, 0, kHigh + 512, 0, 0, "setBlockSize(512)"},
                    Request{"MainsOff", 12, 0, 0, 0, 0, "suspend()"},
                    Request{"MainsOnFromAHighBit", 12, 0, kHigh, 0, 0, "resume()"},
                    Request{"Identify", 22, 0, 0, 0, 0x4E764566, ""},
                    Request{"BankChunk", 23, 0, 0, 0, 4608, "getChunk(0)"},
                    Request{"ProgramChunk", 23, 7, 0, 0, 4608, "getChunk(1)"},
                    Request{"SetChunkSignExtends", 24, 2, kHigh + 72, 0, -7, "setChunk(72,1)"},
                    Request{"NameIndexed", 29, 5, 3, 0, 1, "getProgramNameIndexed(3,5)"},
                    Request{"ConnectInput", 31, 1, 0, 0, 1, "inputConnected(1,0)"},
                    Request{"ConnectOutput", 32, 0, kHigh, 0, 1, "outputConnected(0,1)"},
                    Request{"PlainEffectCategory", 35, 0, 0, 0, 0, ""},
                    Request{"BlockSizeAndRate", 43, 0, 256, 96000.0f, 1, ""},
                    Request{"BypassRefused", 44, 0, 1, 0, 0, ""},
                    Request{"KeysRequiredInverted", 57, 0, 0, 0, 1, ""},
                    Request{"InterfaceVersion", 58, 0, 0, 0, 2300, ""},
                    Request{"CurrentMidiProgram", 63, 0, 0, 0, -1, ""},
                    Request{"TotalSamples", 73, 0, 1234, 0, 1234, ""},
                    Request{"FirstOpcodePastTheTable", 80, 1, 1, 1, 0, ""},
                    Request{"NegativeOpcode", -1, 1, 1, 1, 0, ""},
                    Request{"MostNegativeOpcode", INT32_MIN, 1, 1, 1, 0, ""}),
    [](const auto& info) { return std::string(info.param.name); });

TEST(Dispatcher, CloseReturnsOneAndFreesTheEffect) {
    bool deleted = false;
    EXPECT_EQ(dispatch(*new ProbeEffect(nullptr, &deleted), 1), 1);
    EXPECT_TRUE(deleted);
}

TEST(Dispatcher, AnswersThatDependOnTheEffect) {
    ProbeEffect effect;
    effect.vu = 0.5f;
    EXPECT_EQ(dispatch(effect, 9), 16383);
    effect.vu = -0.5f;
    EXPECT_EQ(dispatch(effect, 9), -16383) << "truncated toward zero, sign-extended";
    effect.wantsKeys = true;
    EXPECT_EQ(dispatch(effect, 57), 0);
    effect.isSynth(true);
    EXPECT_EQ(dispatch(effect, 35), 2);
    dispatch(effect, 43, 0, 256, nullptr, 96000.0f);
    EXPECT_EQ(effect.getBlockSize(), 256) << "stored without calling the setters";
    EXPECT_EQ(effect.getSampleRate(), 96000.0f);
}

TEST(Dispatcher, EditorRequestsUnpackTheirArgumentsOrAnswerZeroWithoutOne) {
    struct EditorRequest {
        int32_t opcode, index;
        intptr_t value;
        float opt;
        intptr_t result;
        const char* reaches;
    } const requests[] = {{17, 3, kHigh + 4, 0, 7, "mouse(3,4)"},
                          // Character from index, virtual key from value's low byte, modifiers from
                          // the low byte of opt truncated to an integer.
                          {59, 'a', 0x1234, 258.9f, 1, "onKeyDown(97,52,2)"},
                          {60, 'b', 0x0107, 5.0f, 1, "onKeyUp(98,7,5)"},
                          {61, 0, 2, 0, 1, "setKnobMode(2)"}};
    ProbeEffect effect;
    for (const EditorRequest& request : requests) {
        EXPECT_EQ(
            dispatch(effect, request.opcode, request.index, request.value, nullptr, request.opt),
            0);
    }
    auto* editor = new ProbeEditor(&effect);
    effect.setEditor(editor);
    for (const EditorRequest& request : requests) {
        EXPECT_EQ(
            dispatch(effect, request.opcode, request.index, request.value, nullptr, request.opt),
            request.result);
        EXPECT_EQ(editor->log.last, request.reaches);
    }
    EXPECT_EQ(effect.getAeffect()->flags & 1, 1) << "an editor is advertised once set";
}

} // namespace
