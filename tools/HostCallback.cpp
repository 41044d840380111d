#include "tools/HostState.h"

#include <chrono>
#include <cmath>
#include <cstring>
#include <map>
#include <mutex>

namespace {

constexpr intptr_t kHostVstVersion = 2400;
constexpr double kTempo = 120.0;
constexpr char kVendorName[] = "Zephyra";
constexpr char kProductName[] = "zephyra command-line host";

// Plug-ins may call back from threads of their own, so the table is locked.
std::mutex registryLock;
std::map<AEffect*, HostState*> registry;

HostState* stateFor(AEffect* effect) {
    static HostState fallback;
    std::lock_guard<std::mutex> guard(registryLock);
    auto found = registry.find(effect);
    if (found == registry.end()) {
        // Calls made from inside the entry point carry a record the host has not seen yet.
        found = registry.find(nullptr);
    }
    return found != registry.end() ? found->second : &fallback;
}

void copyString(void* destination, const char* text, std::size_t capacity) {
    if (destination == nullptr) {
        return;
    }
    std::strncpy(static_cast<char*>(destination), text, capacity - 1);
    static_cast<char*>(destination)[capacity - 1] = '\0';
}

VstTimeInfo* refreshTimeInfo(HostState& state) {
    VstTimeInfo& info = state.timeInfo;
    info = VstTimeInfo{};
    info.samplePos = static_cast<double>(state.samplePosition);
    info.sampleRate = state.sampleRate;
    info.nanoSeconds = static_cast<double>(std::chrono::duration_cast<std::chrono::nanoseconds>(
                                               std::chrono::steady_clock::now().time_since_epoch())
                                               .count());
    info.tempo = kTempo;
    info.ppqPos = info.samplePos / state.sampleRate * kTempo / 60.0;
    info.timeSigNumerator = 4;
    info.timeSigDenominator = 4;
    info.barStartPos = std::floor(info.ppqPos / 4.0) * 4.0;
    info.flags = kVstTransportPlaying | kVstNanosValid | kVstPpqPosValid | kVstTempoValid |
                 kVstBarsValid | kVstTimeSigValid;
    return &info;
}

intptr_t answerCanDo(const HostState& state, const char* text) {
    if (text == nullptr) {
        return 0;
    }
    if (std::strcmp(text, "sendVstTimeInfo") == 0) {
        return 1;
    }
    if (std::strcmp(text, "sizeWindow") == 0) {
        return state.resizeWindow ? 1 : 0;
    }
    return 0;
}

} // namespace

void registerHostState(AEffect* effect, HostState* state) {
    std::lock_guard<std::mutex> guard(registryLock);
    registry[effect] = state;
}

void unregisterHostState(AEffect* effect) {
    std::lock_guard<std::mutex> guard(registryLock);
    registry.erase(effect);
}

intptr_t hostCallback(AEffect* effect, int32_t opcode, int32_t index, intptr_t value, void* ptr,
                      float /*opt*/) {
    HostState& state = *stateFor(effect);
    switch (opcode) {
    case audioMasterVersion:
        return kHostVstVersion;
    case audioMasterGetSampleRate:
        return static_cast<intptr_t>(state.sampleRate);
    case audioMasterGetBlockSize:
        return state.blockSize;
    case audioMasterGetTime:
        return reinterpret_cast<intptr_t>(refreshTimeInfo(state));
    case audioMasterGetVendorString:
        copyString(ptr, kVendorName, 64);
        return 1;
    case audioMasterGetProductString:
        copyString(ptr, kProductName, 64);
        return 1;
    case audioMasterCanDo:
        return answerCanDo(state, static_cast<const char*>(ptr));
    case audioMasterGetDirectory:
        return reinterpret_cast<intptr_t>(state.directory.c_str());
    case audioMasterSizeWindow:
        return state.resizeWindow && state.resizeWindow(index, static_cast<int>(value)) ? 1 : 0;
    default:
        return 0;
    }
}
