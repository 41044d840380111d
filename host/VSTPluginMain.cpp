// The module's one exported symbol: hosts look it up after loading the shared object.
#include "AudioEffect.h"

extern "C" __attribute__((visibility("default"))) AEffect*
VSTPluginMain(audioMasterCallback audioMaster) {
    if (audioMaster(nullptr, audioMasterVersion, 0, 0, nullptr, 0.0f) == 0) {
        return nullptr; // a host too old to talk to
    }
    AudioEffect* effect = createEffectInstance(audioMaster);
    return effect ? effect->getAeffect() : nullptr;
}
