#include "lv2/Lv2Effect.h"

#include <lv2/atom/atom.h>
#include <lv2/core/lv2_util.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <thread>
#include <vector>

namespace {

constexpr intptr_t kInterfaceVersion = 2400;

// The folder with its final "/", as the effect expects a folder answer.
std::string AsFolder(const char* path) {
    std::string folder = path ? path : "";
    if (!folder.empty() && folder.back() != '/') {
        folder += '/';
    }
    return folder;
}

} // namespace

Lv2Effect::Lv2Effect(double sampleRate, const char* bundlePath, const LV2_Feature* const* features,
                     ZephyraEditorFactory makeEditor)
    : m_bundlePath(AsFolder(bundlePath)) {
    if (const auto* map =
            static_cast<const LV2_URID_Map*>(lv2_features_data(features, LV2_URID__map))) {
        m_bankKey = map->map(map->handle, lv2::kBankStateKey);
        m_chunkType = map->map(map->handle, LV2_ATOM__Chunk);
    }
    m_effect = std::make_unique<AZephyra>(AnswerEffect, makeEditor);
    m_effect->getAeffect()->user = this;
    m_effect->setSampleRate(static_cast<float>(sampleRate));
    m_effect->open();
    ForgetSeenPortValues();
}

intptr_t Lv2Effect::AnswerEffect(AEffect* effect, int32_t opcode, int32_t index, intptr_t, void*,
                                 float opt) {
    auto* self = effect ? static_cast<Lv2Effect*>(effect->user) : nullptr;
    if (opcode == audioMasterVersion) {
        return kInterfaceVersion;
    }
    if (!self) {
        return 0;
    }
    if (opcode == audioMasterGetDirectory) {
        return reinterpret_cast<intptr_t>(self->m_bundlePath.c_str());
    }
    if (opcode == audioMasterAutomate && self->m_editListener &&
        self->m_applyingPortsThread.load() != std::this_thread::get_id()) {
        self->m_editListener->Edited(index, opt);
    }
    return 0;
}

void Lv2Effect::ConnectPort(uint32_t port, void* data) {
    auto* values = static_cast<float*>(data);
    if (port < lv2::kFirstParameterPort) {
        m_audio[port] = values;
    } else if (port < lv2::kFirstMeterPort) {
        m_controls[port - lv2::kFirstParameterPort] = values;
    } else if (port < lv2::kNumPorts) {
        m_meters[port - lv2::kFirstMeterPort] = values;
    }
}

void Lv2Effect::Activate() {
    m_effect->resume();
}

void Lv2Effect::Deactivate() {
    m_effect->suspend();
}

void Lv2Effect::ForgetSeenPortValues() {
    std::fill(std::begin(m_seenPortValue), std::end(m_seenPortValue),
              std::numeric_limits<float>::quiet_NaN());
}

// A port value is a display value, taken as a typed one is: clamped to the port's range
// (a NaN is ignored), then stored only when it gives another normalised value than the
// effect holds, so that ports agreeing with a restored program leave it unedited.
void Lv2Effect::ApplyControlPorts() {
    m_applyingPortsThread = std::this_thread::get_id();
    for (int index = 0; index < kNumParams; ++index) {
        if (!m_controls[index]) {
            continue;
        }
        const float value = *m_controls[index];
        if (std::isnan(value) || value == m_seenPortValue[index]) {
            continue;
        }
        m_seenPortValue[index] = value;
        float min = 0.0f;
        float max = 0.0f;
        GetParamMinMax(index, &min, &max);
        const float display = std::clamp(value, min, max);
        const float normalised = DisplayToNormalizeValue(index, display);
        if (normalised == m_effect->getParameter(index)) {
            continue;
        }
        if (DisplaySlotOf(index) >= 0) {
            m_effect->setParameterFromDiaplay(index, display);
        } else {
            m_effect->setParameter(index, normalised);
        }
    }
    m_applyingPortsThread = std::thread::id();
}

void Lv2Effect::Run(uint32_t frames) {
    ApplyControlPorts();
    if (frames == 0 ||
        std::find(std::begin(m_audio), std::end(m_audio), nullptr) != std::end(m_audio)) {
        return;
    }
    float* inputs[2] = {m_audio[lv2::kAudioInLeft], m_audio[lv2::kAudioInRight]};
    float* outputs[2] = {m_audio[lv2::kAudioOutLeft], m_audio[lv2::kAudioOutRight]};
    m_effect->processReplacing(inputs, outputs, static_cast<int32_t>(frames));

    float peaks[lv2::kNumMeterPorts];
    m_effect->GetVU(&peaks[0], &peaks[1], &peaks[2], &peaks[3]);
    for (uint32_t meter = 0; meter < lv2::kNumMeterPorts; ++meter) {
        if (m_meters[meter]) {
            *m_meters[meter] = peaks[meter];
        }
    }
}

LV2_State_Status Lv2Effect::Save(LV2_State_Store_Function store, LV2_State_Handle handle) {
    if (m_bankKey == 0) {
        return LV2_STATE_ERR_NO_FEATURE;
    }
    void* image = nullptr;
    const int32_t size = m_effect->getChunk(&image, false);
    return store(handle, m_bankKey, image, static_cast<size_t>(size), m_chunkType,
                 LV2_STATE_IS_POD | LV2_STATE_IS_PORTABLE);
}

// A missing, foreign or wrongly sized value leaves the bank as it is.
LV2_State_Status Lv2Effect::Restore(LV2_State_Retrieve_Function retrieve, LV2_State_Handle handle) {
    if (m_bankKey == 0) {
        return LV2_STATE_ERR_NO_FEATURE;
    }
    size_t size = 0;
    uint32_t type = 0;
    uint32_t flags = 0;
    const void* value = retrieve(handle, m_bankKey, &size, &type, &flags);
    if (!value || type != m_chunkType || size != AZephyraProgram::kBytes) {
        return LV2_STATE_SUCCESS;
    }
    std::vector<char> image(static_cast<const char*>(value),
                            static_cast<const char*>(value) + size);
    m_effect->setChunk(image.data(), static_cast<int32_t>(image.size()), false);
    ForgetSeenPortValues();
    return LV2_STATE_SUCCESS;
}
