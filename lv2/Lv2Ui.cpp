#include "lv2/Lv2Ui.h"

#include "editor/CZephyraEditor.h"
#include "lv2/PortValue.h"

#include "toolkit/DisplayScale.h"

#include <lv2/atom/atom.h>
#include <lv2/core/lv2_util.h>
#include <lv2/instance-access/instance-access.h>
#include <lv2/options/options.h>
#include <lv2/urid/urid.h>

namespace {

bool IsParameter(int index) {
    return index >= 0 && index < kNumParams;
}

// The host's ui:scaleFactor among the options it passes, 0 when it passes none (or no
// URID map to name it by).
float HostScaleFactor(const LV2_Feature* const* features) {
    const auto* map = static_cast<const LV2_URID_Map*>(lv2_features_data(features, LV2_URID__map));
    const auto* options =
        static_cast<const LV2_Options_Option*>(lv2_features_data(features, LV2_OPTIONS__options));
    if (!map || !options)
        return 0.0f;
    const LV2_URID scaleFactor = map->map(map->handle, LV2_UI__scaleFactor);
    const LV2_URID floatType = map->map(map->handle, LV2_ATOM__Float);
    for (const LV2_Options_Option* option = options; option->key != 0; ++option) {
        if (option->key == scaleFactor && option->type == floatType &&
            option->size == sizeof(float) && option->value)
            return *static_cast<const float*>(option->value);
    }
    return 0.0f;
}

} // namespace

std::unique_ptr<Lv2Ui> Lv2Ui::Create(LV2UI_Write_Function write, LV2UI_Controller controller,
                                     const LV2_Feature* const* features) {
    auto* plugin = static_cast<Lv2Effect*>(lv2_features_data(features, LV2_INSTANCE_ACCESS_URI));
    void* parent = lv2_features_data(features, LV2_UI__parent);
    if (!plugin || !parent || !write) {
        return nullptr;
    }
    auto* editor = dynamic_cast<CZephyraEditor*>(plugin->Effect().getEditor());
    display_scale::RequestFromHost(HostScaleFactor(features));
    if (!editor || !editor->open(parent)) {
        return nullptr;
    }
    ERect* size = nullptr;
    editor->getRect(&size);
    if (auto* resize =
            static_cast<const LV2UI_Resize*>(lv2_features_data(features, LV2_UI__resize));
        resize && size) {
        resize->ui_resize(resize->handle, size->right - size->left, size->bottom - size->top);
    }
    const auto* touch = static_cast<const LV2UI_Touch*>(lv2_features_data(features, LV2_UI__touch));
    return std::unique_ptr<Lv2Ui>(new Lv2Ui(*plugin, *editor, write, controller, touch));
}

Lv2Ui::Lv2Ui(Lv2Effect& plugin, CZephyraEditor& editor, LV2UI_Write_Function write,
             LV2UI_Controller controller, const LV2UI_Touch* touch)
    : m_plugin(plugin), m_editor(editor), m_write(write), m_controller(controller), m_touch(touch) {
    m_plugin.SetEditListener(this);
    m_editor.SetGestureListener(
        [this](int parameter, bool dragging) { Touch(parameter, dragging); });
}

Lv2Ui::~Lv2Ui() {
    m_editor.SetGestureListener(nullptr);
    m_plugin.SetEditListener(nullptr);
    m_editor.close();
    if (m_touched >= 0) {
        Touch(m_touched, false);
    }
}

LV2UI_Widget Lv2Ui::Widget() const {
    return reinterpret_cast<LV2UI_Widget>(m_editor.GetPanelSystemHandle());
}

int Lv2Ui::Idle() {
    m_editor.idle();
    return 0;
}

void Lv2Ui::Touch(int index, bool grabbed) {
    m_touched = grabbed ? index : -1;
    if (m_touch && IsParameter(index)) {
        m_touch->touch(m_touch->handle, lv2::kFirstParameterPort + index, grabbed);
    }
}

void Lv2Ui::Edited(int index, float normalised) {
    if (!IsParameter(index)) {
        return;
    }
    const float value = lv2::PortValueOf(index, normalised);
    m_write(m_controller, lv2::kFirstParameterPort + index, sizeof value, 0, &value);
}
