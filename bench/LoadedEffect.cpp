#include "LoadedEffect.h"

#include <dlfcn.h>

#include <stdexcept>

namespace {

// The host answers what a plug-in asks at start-up: the interface version, nothing else.
intptr_t BenchHost(AEffect*, int32_t opcode, int32_t, intptr_t, void*, float) {
    return opcode == audioMasterVersion ? 2400 : 0;
}

using EntryPoint = AEffect* (*)(audioMasterCallback);

} // namespace

LoadedEffect::LoadedEffect(const std::string& path, float sampleRate, int blockSize)
    : m_module(dlopen(path.c_str(), RTLD_NOW | RTLD_LOCAL)), m_effect(nullptr) {
    if (m_module == nullptr) {
        throw std::runtime_error(dlerror());
    }
    const auto entry = reinterpret_cast<EntryPoint>(dlsym(m_module, "VSTPluginMain"));
    m_effect = entry != nullptr ? entry(BenchHost) : nullptr;
    if (m_effect == nullptr || m_effect->magic != kEffectMagic) {
        dlclose(m_module);
        throw std::runtime_error(path + " does not hand out an effect record");
    }
    Dispatch(effOpen);
    Dispatch(effSetSampleRate, 0, 0, sampleRate);
    Dispatch(effSetBlockSize, 0, blockSize);
    Dispatch(effMainsChanged, 0, 1);
    Dispatch(effStartProcess);
}

LoadedEffect::~LoadedEffect() {
    Dispatch(effStopProcess);
    Dispatch(effMainsChanged, 0, 0);
    Dispatch(effClose);
    dlclose(m_module);
}

void LoadedEffect::SetParameter(int index, float normalised) {
    m_effect->setParameter(m_effect, index, normalised);
}

intptr_t LoadedEffect::Dispatch(int32_t opcode, int32_t index, intptr_t value, float opt) {
    return m_effect->dispatcher(m_effect, opcode, index, value, nullptr, opt);
}
