#include "editor/PendingPanelUpdates.h"

void PendingPanelUpdates::UpdateControl(int index, float value) {
    if (index < 0 || index >= kNumParams)
        return;
    m_values[static_cast<std::size_t>(index)].store(value, std::memory_order_relaxed);
    m_changed.fetch_or(1u << index, std::memory_order_release);
}

void PendingPanelUpdates::UpdateModify() {
    m_changed.fetch_or(kProgramStateBit, std::memory_order_release);
}

// A value stored after the bits were taken sets its bit again, so at worst the latest value
// is delivered twice, never lost.
void PendingPanelUpdates::Deliver(ZephyraPanel& panel) {
    const std::uint32_t changed = m_changed.exchange(0, std::memory_order_acquire);
    for (int index = 0; index < kNumParams; ++index) {
        if (changed & (1u << index))
            panel.UpdateControl(
                index, m_values[static_cast<std::size_t>(index)].load(std::memory_order_relaxed));
    }
    if (changed & kProgramStateBit)
        panel.UpdateModify();
}

void PendingPanelUpdates::Clear() {
    m_changed.store(0, std::memory_order_relaxed);
}
