// A minimal effect and editor for the base classes: each watched override notes what it
// received as text ("setProgram(-1)").
#pragma once

#include "host/AudioEffectX.h"

#include <sstream>
#include <string>

class CallLog {
public:
    template <typename... Args> void Note(const char* operation, const Args&... args) {
        std::ostringstream text;
        text << operation << '(';
        bool first = true;
        ((text << (first ? "" : ",") << args, first = false), ...);
        last = text.str() + ')';
    }
    std::string last;
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

    void processReplacing(float**, float**, int32_t) override {}
    void open() override { log.Note("open"); }
    void suspend() override { log.Note("suspend"); }
    void resume() override { log.Note("resume"); }
    void setSampleRate(float rate) override { log.Note("setSampleRate", rate); }
    void setBlockSize(int32_t size) override { log.Note("setBlockSize", size); }
    void setProgram(int32_t program) override { log.Note("setProgram", program); }
    float getVu() override { return vu; }
    bool keysRequired() override { return wantsKeys; }
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

    CallLog log;
    float vu = 0.0f;
    bool wantsKeys = false;

private:
    bool* m_deleted;
};

class ProbeEditor : public AEffEditor {
public:
    using AEffEditor::AEffEditor;
    int32_t mouse(int32_t x, int32_t y) override {
        log.Note("mouse", x, y);
        return 7;
    }
    bool onKeyDown(VstKeyCode& key) override { return noteKey("onKeyDown", key); }
    bool onKeyUp(VstKeyCode& key) override { return noteKey("onKeyUp", key); }
    bool setKnobMode(int32_t mode) override {
        log.Note("setKnobMode", mode);
        return true;
    }

    CallLog log;

private:
    bool noteKey(const char* operation, const VstKeyCode& key) {
        log.Note(operation, key.character, int{key.virt}, int{key.modifier});
        return true;
    }
};
