// The module's one exported symbol: hosts look it up after loading the shared object.
#include "host/AudioEffect.h"

extern "C" __attribute__((visibility("default"))) AEffect*
VSTPluginMain(audioMasterCallback audioMaster) {
    // A host too old to talk to, or none at all.
    if (!audioMaster || audioMaster(nullptr, audioMasterVersion, 0, 0, nullptr, 0.0f) == 0) {
        return nullptr;
    }
    AudioEffect* effect = createEffectInstance(audioMaster);
    return effect ? effect->getAeffect() : nullptr;
}
