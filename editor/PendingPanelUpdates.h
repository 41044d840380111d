// What the effect tells the editor's panel, held until the user-interface thread hands it
// on. The effect calls from any thread, the host's audio thread included, so recording
// never draws, allocates, blocks or touches a window: each parameter keeps its latest value
// and a bit saying that it changed. The editor owns this object and lives as long as the
// effect, so a late call from the audio thread never reaches a closed panel.
#pragma once

#include "effect/ZephyraEditorSeam.h"
#include "effect/ZephyraParameters.h"

#include <array>
#include <atomic>
#include <cstdint>

class PendingPanelUpdates final : public ZephyraPanel {
public:
    // Any thread. Indices outside the parameter list are ignored.
    void UpdateControl(int index, float value) override;
    void UpdateModify() override;

    // User-interface thread: passes every change recorded since the last delivery to the
    // panel, each parameter once with its latest value, then the program state.
    void Deliver(ZephyraPanel& panel);
    void Clear();

private:
    static constexpr std::uint32_t kProgramStateBit = 1u << 31;
    static_assert(kNumParams < 31, "one bit per parameter and one for the program state");

    std::array<std::atomic<float>, kNumParams> m_values{};
    std::atomic<std::uint32_t> m_changed{0};
};
