// The module's LV2 entries: the plug-in, whose calls go to Lv2Effect (with the editor
// wired in, as in the VST module), and its user interface, whose calls go to Lv2Ui.
#include "editor/CZephyraEditor.h"
#include "lv2/Lv2Effect.h"
#include "lv2/Lv2Ui.h"

#include <cstring>

namespace {

Lv2Effect* AsEffect(LV2_Handle instance) {
    return static_cast<Lv2Effect*>(instance);
}

LV2_Handle Instantiate(const LV2_Descriptor*, double sampleRate, const char* bundlePath,
                       const LV2_Feature* const* features) {
    return new Lv2Effect(sampleRate, bundlePath, features, CZephyraEditor::Make);
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

LV2UI_Handle InstantiateUi(const LV2UI_Descriptor*, const char*, const char*,
                           LV2UI_Write_Function write, LV2UI_Controller controller,
                           LV2UI_Widget* widget, const LV2_Feature* const* features) {
    std::unique_ptr<Lv2Ui> ui = Lv2Ui::Create(write, controller, features);
    if (!ui) {
        return nullptr;
    }
    *widget = ui->Widget();
    return ui.release();
}

void CleanupUi(LV2UI_Handle ui) {
    delete static_cast<Lv2Ui*>(ui);
}

// The panel follows the effect itself (see Lv2Ui.h); port events carry nothing it needs.
void PortEvent(LV2UI_Handle, uint32_t, uint32_t, uint32_t, const void*) {}

int IdleUi(LV2UI_Handle ui) {
    return static_cast<Lv2Ui*>(ui)->Idle();
}

const LV2UI_Idle_Interface kIdleInterface = {IdleUi};

const void* UiExtensionData(const char* uri) {
    return std::strcmp(uri, LV2_UI__idleInterface) == 0 ? &kIdleInterface : nullptr;
}

const LV2UI_Descriptor kUiDescriptor = {lv2::kUiUri, InstantiateUi, CleanupUi, PortEvent,
                                        UiExtensionData};

} // namespace

extern "C" __attribute__((visibility("default"))) const LV2_Descriptor*
lv2_descriptor(uint32_t index) {
    return index == 0 ? &kDescriptor : nullptr;
}

extern "C" __attribute__((visibility("default"))) const LV2UI_Descriptor*
lv2ui_descriptor(uint32_t index) {
    return index == 0 ? &kUiDescriptor : nullptr;
}
