// The module's LV2 entry: one plug-in descriptor, whose calls go to Lv2Effect.
#include "lv2/Lv2Effect.h"

#include <cstring>

namespace {

Lv2Effect* AsEffect(LV2_Handle instance) {
    return static_cast<Lv2Effect*>(instance);
}

LV2_Handle Instantiate(const LV2_Descriptor*, double sampleRate, const char* bundlePath,
                       const LV2_Feature* const* features) {
    return new Lv2Effect(sampleRate, bundlePath, features);
}

void ConnectPort(LV2_Handle instance, uint32_t port, void* data) {
    AsEffect(instance)->ConnectPort(port, data);
}

void Activate(LV2_Handle instance) {
    AsEffect(instance)->Activate();
}

void Run(LV2_Handle instance, uint32_t frames) {
    AsEffect(instance)->Run(frames);
}

void Deactivate(LV2_Handle instance) {
    AsEffect(instance)->Deactivate();
}

void Cleanup(LV2_Handle instance) {
    delete AsEffect(instance);
}

LV2_State_Status SaveState(LV2_Handle instance, LV2_State_Store_Function store,
                           LV2_State_Handle handle, uint32_t, const LV2_Feature* const*) {
    return AsEffect(instance)->Save(store, handle);
}

LV2_State_Status RestoreState(LV2_Handle instance, LV2_State_Retrieve_Function retrieve,
                              LV2_State_Handle handle, uint32_t, const LV2_Feature* const*) {
    return AsEffect(instance)->Restore(retrieve, handle);
}

const LV2_State_Interface kStateInterface = {SaveState, RestoreState};

const void* ExtensionData(const char* uri) {
    return std::strcmp(uri, LV2_STATE__interface) == 0 ? &kStateInterface : nullptr;
}

const LV2_Descriptor kDescriptor = {lv2::kPluginUri, Instantiate, ConnectPort,  Activate, Run,
                                    Deactivate,      Cleanup,     ExtensionData};

} // namespace

extern "C" __attribute__((visibility("default"))) const LV2_Descriptor*
lv2_descriptor(uint32_t index) {
    return index == 0 ? &kDescriptor : nullptr;
}
