// What the module adds to the effect: its application object and an effect with the
// editor wired in.
#include "AZephyra.h"
#include "CVeZephyra.h"
#include "CZephyraEditor.h"

CVeZephyra theApp;

AudioEffect* createEffectInstance(audioMasterCallback audioMaster) {
    return new AZephyra(audioMaster, CZephyraEditor::Make);
}
