// A desktop host's own user-interface thread (not the main one) that opens the editor in an X
// window, idles it every 33 ms, makes calls handed to it and times each call per test phase.
#pragma once

#include "tools/PluginInstance.h"

#include <chrono>
#include <condition_variable>
#include <deque>
#include <functional>
#include <future>
#include <memory>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

class UiThreadHost {
public:
    static constexpr auto kIdlePeriod = std::chrono::milliseconds(33);

    // Starts the thread, in phase 0 of phaseCount.
    UiThreadHost(std::string modulePath, int phaseCount);
    // Closes the editor and ends the thread; a call still queued is dropped.
    ~UiThreadHost();
    UiThreadHost(const UiThreadHost&) = delete;
    UiThreadHost& operator=(const UiThreadHost&) = delete;

    // Waits for the editor to be open in the host's window; empty then, else what went wrong.
    std::string WaitUntilOpen(std::chrono::milliseconds limit);
    // The host's top-level window, once the editor is open in it.
    unsigned long Window() const { return m_window; }

    // Phases only go forward.
    void EnterPhase(int phase);
    // The longest call under way during the phase so far, in milliseconds.
    double LongestCallMs(int phase) const;

    // Has the thread make the call between two idle calls; its result comes through the
    // future, which the test waits for with a time limit.
    template <typename Result>
    std::future<Result> Call(std::function<Result(PluginInstance&)> call) {
        auto task = std::make_shared<std::packaged_task<Result(PluginInstance&)>>(std::move(call));
        std::future<Result> result = task->get_future();
        Queue([task](PluginInstance& plugin) { (*task)(plugin); });
        return result;
    }

private:
    using Clock = std::chrono::steady_clock;

    void Run();
    void Queue(std::function<void(PluginInstance&)> call);
    void RunQueuedCalls(PluginInstance& plugin);
    // Makes the call and charges its duration to every phase it spans.
    void Timed(const std::function<void()>& call);

    const std::string m_modulePath;
    mutable std::mutex m_mutex;
    std::condition_variable m_opened;
    std::string m_openFailure;
    bool m_open = false;
    bool m_stop = false;
    unsigned long m_window = 0;
    int m_phase = 0;
    std::vector<double> m_longestMs;
    std::deque<std::function<void(PluginInstance&)>> m_calls;
    std::thread m_thread;
};
