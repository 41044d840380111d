// What the module adds to the effect: its application object and an effect with the
// editor wired in.
#include "editor/CVeZephyra.h"
#include "editor/CZephyraEditor.h"
#include "effect/AZephyra.h"

CVeZephyra theApp;

AudioEffect* createEffectInstance(audioMasterCallback audioMaster) {
    return new AZephyra(audioMaster, CZephyraEditor::Make);
}
