#include "host/AudioEffect.h"

#include <cstring>

namespace {

constexpr int32_t kNoEffectId = FourCharCode('N', 'o', 'E', 'f');
constexpr int32_t kIdentifyAnswer = FourCharCode('N', 'v', 'E', 'f');

AudioEffect* objectOf(AEffect* e) {
    return static_cast<AudioEffect*>(e->object);
}

} // namespace

AudioEffect::AudioEffect(audioMasterCallback audioMaster, int32_t numPrograms, int32_t numParams)
    : audioMaster(audioMaster), editor(nullptr), sampleRate(44100.0f), blockSize(1024),
      numPrograms(numPrograms), numParams(numParams), curProgram(0) {
    std::memset(&cEffect, 0, sizeof(cEffect));
    cEffect.magic = kEffectMagic;
    cEffect.dispatcher = dispatchEffectClass;
    cEffect.process = processClass;
    cEffect.setParameter = setParameterClass;
    cEffect.getParameter = getParameterClass;
    cEffect.numPrograms = numPrograms;
    cEffect.numParams = numParams;
    cEffect.numInputs = 1;
    cEffect.numOutputs = 2;
    cEffect.ioRatio = 1.0f;
    cEffect.object = this;
    cEffect.uniqueID = kNoEffectId;
    cEffect.version = 1;
    cEffect.processReplacing = processClassReplacing;
    cEffect.flags = effFlagsCanReplacing;
    cEffect.processDoubleReplacing = processClassDoubleReplacing;
}

AudioEffect::~AudioEffect() {
    delete editor;
}

void AudioEffect::setEditor(AEffEditor* newEditor) {
    editor = newEditor;
    setFlag(effFlagsHasEditor, newEditor != nullptr);
}

void AudioEffect::setFlag(int32_t flag, bool state) {
    if (state) {
        cEffect.flags |= flag;
    } else {
        cEffect.flags &= ~flag;
    }
}

intptr_t AudioEffect::callHost(int32_t opcode, int32_t index, intptr_t value, void* ptr,
                               float opt) {
    return audioMaster ? audioMaster(&cEffect, opcode, index, value, ptr, opt) : 0;
}

// --- Trampolines ---------------------------------------------------------------------

intptr_t AudioEffect::dispatchEffectClass(AEffect* e, int32_t opcode, int32_t index, intptr_t value,
                                          void* ptr, float opt) {
    AudioEffect* effect = objectOf(e);
    const intptr_t result = effect->dispatcher(opcode, index, value, ptr, opt);
    if (opcode == effClose) {
        delete effect;
        return 1;
    }
    return result;
}

float AudioEffect::getParameterClass(AEffect* e, int32_t index) {
    return objectOf(e)->getParameter(index);
}

void AudioEffect::setParameterClass(AEffect* e, int32_t index, float value) {
    objectOf(e)->setParameter(index, value);
}

void AudioEffect::processClass(AEffect* e, float** inputs, float** outputs, int32_t sampleFrames) {
    objectOf(e)->process(inputs, outputs, sampleFrames);
}

void AudioEffect::processClassReplacing(AEffect* e, float** inputs, float** outputs,
                                        int32_t sampleFrames) {
    objectOf(e)->processReplacing(inputs, outputs, sampleFrames);
}

void AudioEffect::processClassDoubleReplacing(AEffect* e, double** inputs, double** outputs,
                                              int32_t sampleFrames) {
    objectOf(e)->processDoubleReplacing(inputs, outputs, sampleFrames);
}

// --- Basic requests ------------------------------------------------------------------

intptr_t AudioEffect::dispatcher(int32_t opcode, int32_t index, intptr_t value, void* ptr,
                                 float opt) {
    switch (opcode) {
    case effOpen:
        open();
        return 0;
    case effClose:
        close();
        return 0;
    case effSetProgram:
        // A signed comparison only: negative program numbers reach setProgram.
        if (value < numPrograms) {
            setProgram(static_cast<int32_t>(value));
        }
        return 0;
    case effGetProgram:
        return getProgram();
    case effSetProgramName:
        setProgramName(static_cast<char*>(ptr));
        return 0;
    case effGetProgramName:
        getProgramName(static_cast<char*>(ptr));
        return 0;
    case effGetParamLabel:
        getParameterLabel(index, static_cast<char*>(ptr));
        return 0;
    case effGetParamDisplay:
        getParameterDisplay(index, static_cast<char*>(ptr));
        return 0;
    case effGetParamName:
        getParameterName(index, static_cast<char*>(ptr));
        return 0;
    case effGetVu:
        return static_cast<int32_t>(getVu() * 32767.0);
    case effSetSampleRate:
        setSampleRate(opt);
        return 0;
    case effSetBlockSize:
        setBlockSize(static_cast<int32_t>(value));
        return 0;
    case effMainsChanged:
        if (value == 0) {
            suspend();
        } else {
            resume();
        }
        return 0;
    case effEditGetRect:
        return editor ? editor->getRect(static_cast<ERect**>(ptr)) : 0;
    case effEditOpen:
        return editor ? editor->open(ptr) : 0;
    case effEditClose:
        if (editor) {
            editor->close();
        }
        return 0;
    case effEditDraw:
        if (editor) {
            editor->draw(static_cast<ERect*>(ptr));
        }
        return 0;
    case effEditMouse:
        return editor ? editor->mouse(index, static_cast<int32_t>(value)) : 0;
    case effEditKey:
        return editor ? editor->key(static_cast<int32_t>(value)) : 0;
    case effEditIdle:
        if (editor) {
            editor->idle();
        }
        return 0;
    case effEditTop:
        if (editor) {
            editor->top();
        }
        return 0;
    case effEditSleep:
        if (editor) {
            editor->sleep();
        }
        return 0;
    case effIdentify:
        return kIdentifyAnswer;
    case effGetChunk:
        return getChunk(static_cast<void**>(ptr), index != 0);
    case effSetChunk:
        return setChunk(ptr, static_cast<int32_t>(value), index != 0);
    default:
        return 0;
    }
}

// --- Host call-backs -----------------------------------------------------------------

void AudioEffect::setParameterAutomated(int32_t index, float value) {
    setParameter(index, value);
    callHost(audioMasterAutomate, index, 0, nullptr, value);
}

int32_t AudioEffect::getMasterVersion() {
    const int32_t version = static_cast<int32_t>(callHost(audioMasterVersion));
    return version != 0 ? version : 1;
}

int32_t AudioEffect::getCurrentUniqueId() {
    return static_cast<int32_t>(callHost(audioMasterCurrentId));
}

void AudioEffect::masterIdle() {
    callHost(audioMasterIdle);
}

// The host answers 0 for "connected"; without a host everything counts as connected.
bool AudioEffect::isInputConnected(int32_t input) {
    return callHost(audioMasterPinConnected, input, 0) == 0;
}

bool AudioEffect::isOutputConnected(int32_t output) {
    return callHost(audioMasterPinConnected, output, 1) == 0;
}
