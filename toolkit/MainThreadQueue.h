// Work handed to the main thread by other threads: posted messages and timer ticks. Any
// thread may push without blocking or allocating; only the main thread pops. The queue is
// bounded, so a host that stops idling cannot make it grow: a push into a full queue fails.
#pragma once

#include <array>
#include <atomic>
#include <cstddef>
#include <cstdint>

enum class MainThreadTaskKind : std::uint8_t { PostedMessage, TimerTick };

struct MainThreadTask {
    MainThreadTaskKind kind = MainThreadTaskKind::PostedMessage;
    std::uint64_t viewSerial = 0; // the ticking window's view (timer ticks)
    std::uint32_t value = 0;      // the ring slot (posted messages) or timer generation
};

class MainThreadQueue {
public:
    static constexpr std::size_t kCapacity = 1024;

    MainThreadQueue();
    bool TryPush(const MainThreadTask& task);
    bool TryPop(MainThreadTask& task);
    bool IsEmpty() const;

private:
    struct Cell {
        std::atomic<std::size_t> sequence;
        MainThreadTask task;
    };
    std::array<Cell, kCapacity> m_cells;
    alignas(64) std::atomic<std::size_t> m_pushPosition{0};
    alignas(64) std::atomic<std::size_t> m_popPosition{0};
};

MainThreadQueue& TheMainThreadQueue();
