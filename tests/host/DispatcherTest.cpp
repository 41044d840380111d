// The requests a host sends through the record: which operation each opcode reaches, how
// its arguments are unpacked and how the answer comes back.
#include "ProbeEffect.h"
#include "RecordingHost.h"

#include <gtest/gtest.h>

#include <cctype>

namespace {

constexpr intptr_t kHigh = intptr_t{1} << 32; // a bit that truncation to 32 bits drops

intptr_t dispatch(AudioEffect& effect, int32_t opcode, int32_t index = 0, intptr_t value = 0,
                  void* ptr = nullptr, float opt = 0.0f) {
    AEffect* record = effect.getAeffect();
    return record->dispatcher(record, opcode, index, value, ptr, opt);
}

struct Request {
    const char* what;
    int32_t opcode;
    int32_t index;
    intptr_t value;
    float opt;
    intptr_t result;
    const char* reaches; // empty: no operation is called
};

const Request kRequests[] = {
    {"open", 0, 0, 0, 0.0f, 0, "open()"},
    {"set program", 2, 0, 5, 0.0f, 0, "setProgram(5)"},
    {"set program 64 is ignored", 2, 0, 64, 0.0f, 0, ""},
    {"set program -1 is passed on", 2, 0, -1, 0.0f, 0, "setProgram(-1)"},
    {"set program compares all 64 bits", 2, 0, kHigh + 3, 0.0f, 0, ""},
    {"set program truncates a negative", 2, 0, -kHigh + 2, 0.0f, 0, "setProgram(2)"},
    {"set sample rate from opt", 10, 0, 0, 48000.0f, 0, "setSampleRate(48000)"},
    {"set block size truncated", 11, 0, kHigh + 512, 0.0f, 0, "setBlockSize(512)"},
    {"mains off", 12, 0, 0, 0.0f, 0, "suspend()"},
    {"mains on", 12, 0, 1, 0.0f, 0, "resume()"},
    {"mains on from a high bit", 12, 0, kHigh, 0.0f, 0, "resume()"},
    {"identify", 22, 0, 0, 0.0f, 0x4E764566, ""},
    {"bank chunk", 23, 0, 0, 0.0f, 4608, "getChunk(0)"},
    {"program chunk", 23, 7, 0, 0.0f, 4608, "getChunk(1)"},
    {"set chunk sign-extends", 24, 2, kHigh + 72, 0.0f, -7, "setChunk(72,1)"},
    {"automatable", 26, 3, 0, 0.0f, 1, ""},
    {"program categories", 28, 0, 0, 0.0f, 1, ""},
    {"indexed name", 29, 5, 3, 0.0f, 1, "getProgramNameIndexed(3,5)"},
    {"connect input", 31, 1, 0, 0.0f, 1, "inputConnected(1,0)"},
    {"connect output", 32, 0, kHigh, 0.0f, 1, "outputConnected(0,1)"},
    {"category of a plain effect", 35, 0, 0, 0.0f, 0, ""},
    {"block size and rate", 43, 0, 256, 96000.0f, 1, ""},
    {"bypass refused", 44, 0, 1, 0.0f, 0, ""},
    {"vendor specific unchanged", 50, 1, 2, 3.0f, intptr_t{0x123456789AB}, "vendorSpecific(1,2,3)"},
    {"keys required inverted", 57, 0, 0, 0.0f, 1, ""},
    {"interface version", 58, 0, 0, 0.0f, 2300, ""},
    {"current MIDI program", 63, 0, 0, 0.0f, -1, ""},
    {"total samples", 73, 0, 1234, 0.0f, 1234, ""},
    {"first opcode past the table", 80, 0, 0, 0.0f, 0, ""},
    {"far opcode", 1000, 0, 0, 0.0f, 0, ""},
    {"negative opcode", -1, 0, 0, 0.0f, 0, ""},
    {"most negative opcode", INT32_MIN, 0, 0, 0.0f, 0, ""},
};

class DispatcherRequest : public testing::TestWithParam<Request> {};

TEST_P(DispatcherRequest, ReachesItsOperationAndAnswers) {
    const Request& request = GetParam();
    ProbeEffect effect;
    void* scratch = nullptr; // where a chunk request puts its pointer
    EXPECT_EQ(dispatch(effect, request.opcode, request.index, request.value, &scratch, request.opt),
              request.result);
    EXPECT_EQ(effect.log.Last(), request.reaches);
}

INSTANTIATE_TEST_SUITE_P(Opcodes, DispatcherRequest, testing::ValuesIn(kRequests),
                         [](const auto& info) {
                             std::string name = info.param.what;
                             for (char& c : name) {
                                 c = std::isalnum(static_cast<unsigned char>(c)) ? c : '_';
                             }
                             return name;
                         });

TEST(Dispatcher, CloseReturnsOneAndFreesTheEffect) {
    bool deleted = false;
    auto* effect = new ProbeEffect(nullptr, &deleted);
    EXPECT_EQ(dispatch(*effect, 1), 1);
    EXPECT_TRUE(deleted);
}

TEST(Dispatcher, VuIsScaledAndTruncatedTowardZero) {
    ProbeEffect effect;
    EXPECT_EQ(dispatch(effect, 9), 0);
    effect.vu = 0.5f;
    EXPECT_EQ(dispatch(effect, 9), 16383);
    effect.vu = -0.5f;
    EXPECT_EQ(dispatch(effect, 9), -16383);
}

TEST(Dispatcher, KeysRequiredAnswersTheInverse) {
    ProbeEffect effect;
    effect.wantsKeys = true;
    EXPECT_EQ(dispatch(effect, 57), 0);
}

TEST(Dispatcher, BlockSizeAndRateAreStoredWithoutTheSetters) {
    ProbeEffect effect;
    dispatch(effect, 43, 0, 256, nullptr, 96000.0f);
    EXPECT_EQ(effect.getBlockSize(), 256);
    EXPECT_EQ(effect.getSampleRate(), 96000.0f);
}

TEST(Dispatcher, ProgramNumberAndTextsReachTheEffect) {
    ProbeEffect effect;
    effect.AudioEffect::setProgram(9);
    EXPECT_EQ(dispatch(effect, 3), 9);
    char text[64] = "untouched";
    dispatch(effect, 8, 0, 0, text);
    EXPECT_STREQ(text, "") << "the base names every parameter with an empty text";
}

TEST(Dispatcher, EditorRequestsAnswerZeroWithoutAnEditor) {
    ProbeEffect effect;
    ERect* rect = reinterpret_cast<ERect*>(&effect);
    for (const int32_t opcode : {13, 14, 15, 16, 17, 18, 19, 20, 21, 59, 60, 61}) {
        EXPECT_EQ(dispatch(effect, opcode, 1, 1, &rect, 1.0f), 0) << "opcode " << opcode;
    }
    EXPECT_EQ(rect, reinterpret_cast<ERect*>(&effect)) << "nothing was written";
}

TEST(Dispatcher, EditorRequestsUnpackTheirArguments) {
    ProbeEffect effect;
    auto* editor = new ProbeEditor(&effect);
    effect.setEditor(editor);
    struct EditorRequest {
        int32_t opcode;
        int32_t index;
        intptr_t value;
        float opt;
        intptr_t result;
        const char* reaches;
    };
    const EditorRequest requests[] = {
        {14, 0, 0, 0.0f, 1, "open(1)"},
        {15, 0, 0, 0.0f, 0, "close()"},
        {17, 3, kHigh + 4, 0.0f, 7, "mouse(3,4)"},
        {18, 0, 9, 0.0f, -3, "key(9)"},
        // The key record: character from index, virtual key from the low byte of value,
        // modifiers from the low byte of opt truncated to an integer.
        {59, 'a', 0x1234, 258.9f, 1, "onKeyDown(97,52,2)"},
        {60, 'b', 0x0107, 5.0f, 1, "onKeyUp(98,7,5)"},
        {61, 0, 2, 0.0f, 1, "setKnobMode(2)"},
    };
    char parent = 0;
    for (const EditorRequest& request : requests) {
        EXPECT_EQ(
            dispatch(effect, request.opcode, request.index, request.value, &parent, request.opt),
            request.result)
            << request.reaches;
        EXPECT_EQ(editor->log.Last(), request.reaches);
    }
}

TEST(Trampolines, ReachTheObjectBehindTheRecord) {
    ProbeEffect effect;
    AEffect* record = effect.getAeffect();
    EXPECT_EQ(record->getParameter(record, 3), 0.75f);
    record->setParameter(record, 2, 0.5f);
    EXPECT_EQ(effect.log.Last(), "setParameter(2,0.5)");
    record->processReplacing(record, nullptr, nullptr, 17);
    EXPECT_EQ(effect.log.Last(), "processReplacing(17)");
    record->process(record, nullptr, nullptr, 5);
    record->processDoubleReplacing(record, nullptr, nullptr, 5);
    EXPECT_EQ(effect.log.Last(), "processReplacing(17)") << "both default to doing nothing";
}

TEST(BaseRecord, HoldsTheDefaultsOfAnUnnamedEffect) {
    ProbeEffect effect;
    const AEffect& record = *effect.getAeffect();
    EXPECT_EQ(record.magic, 0x56737450);
    EXPECT_EQ(record.numPrograms, 64);
    EXPECT_EQ(record.numParams, 11);
    EXPECT_EQ(record.numInputs, 1);
    EXPECT_EQ(record.numOutputs, 2);
    EXPECT_EQ(record.flags, 16);
    EXPECT_EQ(record.uniqueID, 0x4E6F4566);
    EXPECT_EQ(record.version, 1);
    EXPECT_EQ(record.ioRatio, 1.0f);
    EXPECT_EQ(record.object, &effect);
    EXPECT_EQ(effect.getSampleRate(), 44100.0f);
    EXPECT_EQ(effect.getBlockSize(), 1024);
}

TEST(BaseRecord, FlagSettersSwitchOneBitEach) {
    ProbeEffect effect;
    const int32_t& flags = effect.getAeffect()->flags;
    struct Switch {
        void (*set)(ProbeEffect&, bool);
        int32_t bit;
    };
    const Switch switches[] = {
        {[](ProbeEffect& e, bool on) { e.hasVu(on); }, 4},
        {[](ProbeEffect& e, bool on) { e.hasClip(on); }, 2},
        {[](ProbeEffect& e, bool on) { e.canMono(on); }, 8},
        {[](ProbeEffect& e, bool on) { e.programsAreChunks(on); }, 32},
        {[](ProbeEffect& e, bool on) { e.canDoubleReplacing(on); }, 0x1000},
        {[](ProbeEffect& e, bool on) { e.isSynth(on); }, 256},
        {[](ProbeEffect& e, bool on) { e.noTail(on); }, 512},
        {[](ProbeEffect& e, bool on) { e.canProcessReplacing(on); }, 16},
    };
    for (const Switch& flag : switches) {
        const int32_t before = flags;
        flag.set(effect, true);
        EXPECT_EQ(flags, before | flag.bit);
        flag.set(effect, false);
        EXPECT_EQ(flags, before & ~flag.bit);
    }
}

TEST(BaseRecord, AnEditorIsAdvertisedWhileOneIsSet) {
    ProbeEffect effect;
    auto* editor = new ProbeEditor(&effect);
    effect.setEditor(editor);
    EXPECT_EQ(effect.getAeffect()->flags & 1, 1);
    effect.setEditor(nullptr);
    EXPECT_EQ(effect.getAeffect()->flags & 1, 0);
    delete editor;
}

TEST(BaseRecord, SynthFlagDecidesCategoryAndMidiRequest) {
    RecordingHost host;
    ProbeEffect effect(RecordingHost::Callback);
    effect.resume();
    EXPECT_TRUE(host.CallsWith(6).empty()) << "a plain effect asks for no events";
    effect.answersMidi = true;
    effect.resume();
    ASSERT_EQ(host.CallsWith(6).size(), 1u);
    effect.isSynth(true);
    EXPECT_EQ(dispatch(effect, 35), 2);
    effect.answersMidi = false;
    effect.resume();
    ASSERT_EQ(host.CallsWith(6).size(), 2u);
    EXPECT_EQ(host.CallsWith(6).back().value, 1);
}

} // namespace
