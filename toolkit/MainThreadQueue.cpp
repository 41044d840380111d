#include "MainThreadQueue.h"

// Each cell's sequence number says whose turn it is: equal to a push position, the cell is
// free for that push; one past it, the cell holds a task for the pop at that position.

MainThreadQueue::MainThreadQueue() {
    for (std::size_t i = 0; i < kCapacity; ++i)
        m_cells[i].sequence.store(i, std::memory_order_relaxed);
}

bool MainThreadQueue::TryPush(const MainThreadTask& task) {
    std::size_t position = m_pushPosition.load(std::memory_order_relaxed);
    for (;;) {
        Cell& cell = m_cells[position % kCapacity];
        const std::size_t sequence = cell.sequence.load(std::memory_order_acquire);
        const auto lag = static_cast<std::ptrdiff_t>(sequence - position);
        if (lag == 0) {
            if (m_pushPosition.compare_exchange_weak(position, position + 1,
                                                     std::memory_order_relaxed)) {
                cell.task = task;
                cell.sequence.store(position + 1, std::memory_order_release);
                return true;
            }
        } else if (lag < 0) {
            return false;
        } else {
            position = m_pushPosition.load(std::memory_order_relaxed);
        }
    }
}

bool MainThreadQueue::TryPop(MainThreadTask& task) {
    const std::size_t position = m_popPosition.load(std::memory_order_relaxed);
    Cell& cell = m_cells[position % kCapacity];
    const std::size_t sequence = cell.sequence.load(std::memory_order_acquire);
    if (sequence != position + 1)
        return false;
    task = cell.task;
    m_popPosition.store(position + 1, std::memory_order_relaxed);
    cell.sequence.store(position + kCapacity, std::memory_order_release);
    return true;
}

bool MainThreadQueue::IsEmpty() const {
    const std::size_t position = m_popPosition.load(std::memory_order_relaxed);
    return m_cells[position % kCapacity].sequence.load(std::memory_order_acquire) != position + 1;
}

namespace {
// Built when the module loads, so that the first push (perhaps from the audio thread) never
// waits for a guarded initialisation.
MainThreadQueue g_mainThreadQueue;
} // namespace

MainThreadQueue& TheMainThreadQueue() {
    return g_mainThreadQueue;
}
