// The editor as the host sees it: the dispatcher forwards the editor requests here. A
// plug-in derives its own editor and overrides what it needs; the defaults answer
// "not handled".
#pragma once

#include "host/Vst2Interface.h"

class AudioEffect;

class AEffEditor {
public:
    explicit AEffEditor(AudioEffect* effect = nullptr) : m_effect(effect) {}
    virtual ~AEffEditor() = default;

    virtual AudioEffect* getEffect() { return m_effect; }
    virtual bool getRect(ERect** rect) {
        *rect = nullptr;
        return false;
    }
    virtual bool open(void* parent) {
        m_systemWindow = parent;
        return false;
    }
    virtual void close() { m_systemWindow = nullptr; }
    virtual bool isOpen() { return m_systemWindow != nullptr; }
    virtual void idle() {}
    virtual void draw(ERect* /*rect*/) {}
    virtual int32_t mouse(int32_t /*x*/, int32_t /*y*/) { return 0; }
    virtual int32_t key(int32_t /*keyCode*/) { return 0; }
    virtual void top() {}
    virtual void sleep() {}
    virtual bool onKeyDown(VstKeyCode& /*keyCode*/) { return false; }
    virtual bool onKeyUp(VstKeyCode& /*keyCode*/) { return false; }
    virtual bool onWheel(float /*distance*/) { return false; }
    virtual bool setKnobMode(int32_t /*mode*/) { return false; }

protected:
    AudioEffect* m_effect;
    void* m_systemWindow = nullptr;
};
