#include "tests/editor/UiThreadHost.h"

#include "tools/EditorWindow.h"
#include "tools/HostedEditor.h"

#include <X11/Xlib.h>

#include <algorithm>
#include <stdexcept>

namespace {

constexpr double kSampleRate = 48000.0;
constexpr int kBlockSize = 512;

} // namespace

UiThreadHost::UiThreadHost(std::string modulePath, int phaseCount)
    : m_modulePath(std::move(modulePath)), m_longestMs(static_cast<std::size_t>(phaseCount), 0.0) {
    // Qt-based hosts (Qtractor) make Xlib thread-safe before any display opens; the plug-in
    // then runs inside that.
    XInitThreads();
    m_thread = std::thread([this] { Run(); });
}

UiThreadHost::~UiThreadHost() {
    {
        std::lock_guard<std::mutex> lock(m_mutex);
        m_stop = true;
    }
    m_thread.join();
}

std::string UiThreadHost::WaitUntilOpen(std::chrono::milliseconds limit) {
    std::unique_lock<std::mutex> lock(m_mutex);
    if (!m_opened.wait_for(lock, limit, [this] { return m_open || !m_openFailure.empty(); }))
        return "the editor did not open in time";
    return m_openFailure;
}

void UiThreadHost::EnterPhase(int phase) {
    std::lock_guard<std::mutex> lock(m_mutex);
    m_phase = std::max(m_phase, phase);
}

double UiThreadHost::LongestCallMs(int phase) const {
    std::lock_guard<std::mutex> lock(m_mutex);
    return m_longestMs.at(static_cast<std::size_t>(phase));
}

void UiThreadHost::Queue(std::function<void(PluginInstance&)> call) {
    std::lock_guard<std::mutex> lock(m_mutex);
    m_calls.push_back(std::move(call));
}

void UiThreadHost::RunQueuedCalls(PluginInstance& plugin) {
    for (;;) {
        std::function<void(PluginInstance&)> call;
        {
            std::lock_guard<std::mutex> lock(m_mutex);
            if (m_calls.empty())
                return;
            call = std::move(m_calls.front());
            m_calls.pop_front();
        }
        Timed([&] { call(plugin); });
    }
}

void UiThreadHost::Timed(const std::function<void()>& call) {
    int firstPhase = 0;
    {
        std::lock_guard<std::mutex> lock(m_mutex);
        firstPhase = m_phase;
    }
    const auto start = Clock::now();
    call();
    const double ms = std::chrono::duration<double, std::milli>(Clock::now() - start).count();
    std::lock_guard<std::mutex> lock(m_mutex);
    for (int phase = firstPhase; phase <= m_phase; ++phase) {
        double& longest = m_longestMs[static_cast<std::size_t>(phase)];
        longest = std::max(longest, ms);
    }
}

void UiThreadHost::Run() {
    try {
        PluginInstance plugin(PluginModule::load(m_modulePath), kSampleRate, kBlockSize);
        plugin.resume();
        int width = 400, height = 300; // when the editor cannot say
        editorSize(plugin, width, height);
        EditorWindow window(width, height, "Zephyra under a UI thread");
        plugin.host().resizeWindow = [&window](int newWidth, int newHeight) {
            window.resize(newWidth, newHeight);
            return true;
        };
        intptr_t opened = 0;
        Timed([&] { opened = plugin.dispatch(effEditOpen, 0, 0, window.parentForEditor()); });
        if (opened == 0)
            throw std::runtime_error("the plug-in did not open its editor");
        {
            std::lock_guard<std::mutex> lock(m_mutex);
            m_window = reinterpret_cast<uintptr_t>(window.parentForEditor());
            m_open = true;
        }
        m_opened.notify_all();

        auto nextIdle = Clock::now();
        for (;;) {
            {
                std::lock_guard<std::mutex> lock(m_mutex);
                if (m_stop)
                    break;
            }
            RunQueuedCalls(plugin);
            window.handleEvents();
            Timed([&] { plugin.dispatch(effEditIdle); });
            // A call held past its turn is not made up for with a burst of idle calls.
            nextIdle = std::max(nextIdle + kIdlePeriod, Clock::now());
            std::this_thread::sleep_until(nextIdle);
        }
        Timed([&] { plugin.dispatch(effEditClose); });
        plugin.host().resizeWindow = nullptr;
    } catch (const std::exception& error) {
        {
            std::lock_guard<std::mutex> lock(m_mutex);
            m_openFailure = error.what();
        }
        m_opened.notify_all();
    }
}
