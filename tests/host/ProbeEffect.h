// A minimal effect and editor for exercising the base classes: each override the tests
// care about writes what it received as text ("setProgram(-1)"), so a test can check that
// a request reached the right operation with its arguments unpacked.
#pragma once

#include "AudioEffectX.h"

#include <sstream>
#include <string>
#include <vector>

class CallLog {
public:
    template <typename... Args> void Note(const char* operation, const Args&... args) {
        std::ostringstream text;
        text << operation << '(';
        bool first = true;
        ((text << (first ? "" : ",") << args, first = false), ...);
        text << ')';
        entries.push_back(text.str());
    }
    std::string Last() const { return entries.empty() ? "" : entries.back(); }

    std::vector<std::string> entries;
};

class ProbeEffect : public AudioEffectX {
public:
    explicit ProbeEffect(audioMasterCallback host = nullptr, bool* deleted = nullptr)
        : AudioEffectX(host, 64, 11), m_deleted(deleted) {}
    ~ProbeEffect() override {
        if (m_deleted) {
            *m_deleted = true;
        }
    }

    void processReplacing(float**, float**, int32_t frames) override {
        log.Note("processReplacing", frames);
    }
    void open() override { log.Note("open"); }
    void close() override { log.Note("close"); }
    void suspend() override { log.Note("suspend"); }
    void resume() override {
        log.Note("resume");
        AudioEffectX::resume();
    }
    void setSampleRate(float rate) override { log.Note("setSampleRate", rate); }
    void setBlockSize(int32_t size) override { log.Note("setBlockSize", size); }
    void setProgram(int32_t program) override { log.Note("setProgram", program); }
    void setParameter(int32_t index, float value) override {
        log.Note("setParameter", index, value);
    }
    float getParameter(int32_t index) override { return static_cast<float>(index) / 4.0f; }
    float getVu() override { return vu; }
    int32_t getChunk(void** data, bool isPreset) override {
        log.Note("getChunk", isPreset);
        *data = this;
        return 4608;
    }
    int32_t setChunk(void*, int32_t byteSize, bool isPreset) override {
        log.Note("setChunk", byteSize, isPreset);
        return -7;
    }
    bool getProgramNameIndexed(int32_t category, int32_t index, char*) override {
        log.Note("getProgramNameIndexed", category, index);
        return true;
    }
    void inputConnected(int32_t index, bool state) override {
        log.Note("inputConnected", index, state);
    }
    void outputConnected(int32_t index, bool state) override {
        log.Note("outputConnected", index, state);
    }
    intptr_t vendorSpecific(int32_t a, intptr_t b, void*, float c) override {
        log.Note("vendorSpecific", a, b, c);
        return intptr_t{0x123456789AB};
    }
    bool keysRequired() override { return wantsKeys; }
    int32_t canDo(char* text) override {
        return answersMidi && std::string(text) == "receiveVstMidiEvent" ? 1 : 0;
    }

    CallLog log;
    float vu = 0.0f;
    bool wantsKeys = false;
    bool answersMidi = false;

private:
    bool* m_deleted;
};

class ProbeEditor : public AEffEditor {
public:
    using AEffEditor::AEffEditor;

    bool open(void* parent) override {
        log.Note("open", parent != nullptr);
        return true;
    }
    void close() override { log.Note("close"); }
    int32_t mouse(int32_t x, int32_t y) override {
        log.Note("mouse", x, y);
        return 7;
    }
    int32_t key(int32_t code) override {
        log.Note("key", code);
        return -3;
    }
    bool onKeyDown(VstKeyCode& code) override { return noteKey("onKeyDown", code); }
    bool onKeyUp(VstKeyCode& code) override { return noteKey("onKeyUp", code); }
    bool setKnobMode(int32_t mode) override {
        log.Note("setKnobMode", mode);
        return true;
    }

    CallLog log;

private:
    bool noteKey(const char* operation, const VstKeyCode& code) {
        log.Note(operation, code.character, int{code.virt}, int{code.modifier});
        return true;
    }
};
