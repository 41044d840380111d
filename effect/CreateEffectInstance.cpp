#include "AZephyra.h"

AudioEffect* createEffectInstance(audioMasterCallback audioMaster) {
    return new AZephyra(audioMaster);
}
