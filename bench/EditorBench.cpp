// What the editor costs its host, on the X server of DISPLAY or, with --headless, on the
// in-memory screen:
//   - the time of a full repaint (effEditDraw), of a meter tick (an idle call after the
//     audio moved the meters) and of an idle call with nothing to draw, timed by Google
//     Benchmark (its flags apply; each case's fastest of seven repetitions is reported,
//     the least disturbed on a shared machine);
//   - the share of one core the process takes while the host idles at 30 Hz and plays
//     audio in real time, with the editor closed, open on silence and open on music;
//   - heap and resident memory per instance, with the editor closed and open.
// The last lines are "summary NAME VALUE" for bench/editor-costs.sh.
//
//   zephyra_editor_bench [--headless] [--seconds S] [Google Benchmark flags]
#include "bench/EditorSession.h"

#include <benchmark/benchmark.h>

#include <malloc.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <ctime>
#include <fstream>
#include <functional>
#include <map>
#include <string>
#include <thread>
#include <vector>

namespace {

using Clock = std::chrono::steady_clock;

constexpr int kHostIdleHz = 30;
constexpr int kFramesPerIdle = static_cast<int>(EditorSession::kSampleRate) / kHostIdleHz;
constexpr int kMemoryInstances = 8;

// The level of the music at a host idle: it moves every time, as music does.
float MusicAmplitude(int idle) {
    return 0.2f + 0.7f * std::fabs(std::sin(0.37f * static_cast<float>(idle)));
}

HostScreen* g_screen = nullptr;

void FullRepaint(benchmark::State& state) {
    EditorSession session;
    session.OpenEditor(*g_screen);
    for (auto _ : state)
        session.Draw();
}

// The meters' timer tick does what the host's idle call does; each of these follows a
// block of audio at another level, so all four meters are drawn anew.
void MeterTick(benchmark::State& state) {
    EditorSession session;
    session.OpenEditor(*g_screen);
    int idle = 0;
    for (auto _ : state) {
        state.PauseTiming();
        session.Play(EditorSession::kBlockSize, MusicAmplitude(++idle));
        state.ResumeTiming();
        session.Idle();
    }
}

// Opening the editor as a host does, up to its first paint: the pictures for the scale
// decoded, the windows made, the panel drawn.
void OpenEditor(benchmark::State& state) {
    EditorSession session;
    for (auto _ : state) {
        session.OpenEditor(*g_screen);
        session.Idle();
        state.PauseTiming();
        session.CloseEditor();
        state.ResumeTiming();
    }
}

// No audio, the meters at rest: an idle call that finds nothing to do.
void QuietIdle(benchmark::State& state) {
    EditorSession session;
    session.OpenEditor(*g_screen);
    for (auto _ : state)
        session.Idle();
}

// Seconds of the process's processor time, all threads (the editor's timer among them).
double ProcessorSeconds() {
    timespec now{};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &now);
    return static_cast<double>(now.tv_sec) + 1e-9 * static_cast<double>(now.tv_nsec);
}

// The share of one core the process took while a host idled the session at 30 Hz for the
// given time, playing each idle's worth of audio at the level music(idle) gives.
double CoreShare(EditorSession& session, double seconds, const std::function<float(int)>& music) {
    const auto period = std::chrono::microseconds(1000000 / kHostIdleHz);
    const int idles = static_cast<int>(seconds * kHostIdleHz);
    const double processorStart = ProcessorSeconds();
    const auto start = Clock::now();
    auto next = start;
    for (int idle = 0; idle < idles; ++idle) {
        session.HandleHostEvents();
        session.Play(kFramesPerIdle, music(idle));
        session.Idle();
        next += period;
        std::this_thread::sleep_until(next);
    }
    const double wall = std::chrono::duration<double>(Clock::now() - start).count();
    return (ProcessorSeconds() - processorStart) / wall;
}

size_t HeapInUse() {
    const struct mallinfo2 info = mallinfo2();
    return info.uordblks + info.hblkhd;
}

size_t ResidentBytes() {
    std::ifstream statm("/proc/self/statm");
    size_t total = 0;
    size_t resident = 0;
    statm >> total >> resident;
    return resident * static_cast<size_t>(sysconf(_SC_PAGESIZE));
}

struct Footprint {
    double heap;
    double resident;
};

Footprint PerInstance(size_t heapBefore, size_t residentBefore) {
    const auto grown = [](size_t now, size_t before) {
        return now > before ? static_cast<double>(now - before) / kMemoryInstances : 0.0;
    };
    return {grown(HeapInUse(), heapBefore), grown(ResidentBytes(), residentBefore)};
}

// Memory per instance, with the editor closed and with it open, over a few instances made
// after a first one has set up what is made once per process (fonts, the resource cache).
std::pair<Footprint, Footprint> Footprints() {
    {
        EditorSession first;
        first.OpenEditor(*g_screen);
    }
    const size_t heapStart = HeapInUse();
    const size_t residentStart = ResidentBytes();
    std::vector<std::unique_ptr<EditorSession>> sessions;
    for (int i = 0; i < kMemoryInstances; ++i)
        sessions.push_back(std::make_unique<EditorSession>());
    const Footprint closed = PerInstance(heapStart, residentStart);
    const size_t heapClosed = HeapInUse();
    const size_t residentClosed = ResidentBytes();
    for (const auto& session : sessions)
        session->OpenEditor(*g_screen);
    return {closed, PerInstance(heapClosed, residentClosed)};
}

// Keeps each case's fastest repetition, in milliseconds, for the summary.
class FastestReporter : public benchmark::ConsoleReporter {
public:
    void ReportRuns(const std::vector<Run>& runs) override {
        ConsoleReporter::ReportRuns(runs);
        for (const Run& run : runs) {
            if (run.run_type == Run::RT_Aggregate && run.aggregate_name == "min")
                fastestMs[run.run_name.function_name] = run.GetAdjustedRealTime() / 1000.0;
        }
    }
    std::map<std::string, double> fastestMs;
};

void PrintSummary(const char* name, double value) {
    std::printf("summary %s %.4g\n", name, value);
}

} // namespace

int main(int argc, char** argv) {
    bool headless = false;
    double seconds = 10.0;
    std::vector<char*> arguments{argv[0]};
    for (int i = 1; i < argc; ++i) {
        if (std::strcmp(argv[i], "--headless") == 0)
            headless = true;
        else if (std::strcmp(argv[i], "--seconds") == 0 && i + 1 < argc)
            seconds = std::atof(argv[++i]);
        else
            arguments.push_back(argv[i]);
    }
    std::unique_ptr<HostScreen> screen;
    try {
        screen = headless ? HostScreen::Headless() : HostScreen::X11();
    } catch (const std::exception& error) {
        std::fprintf(stderr, "%s (or run with --headless)\n", error.what());
        return 1;
    }
    g_screen = screen.get();
    std::printf("screen: %s\n", headless ? "in memory" : "X server");

    // First, while the process has taken little memory that it could hand out again.
    const auto [closed, open] = Footprints();

    const auto fastest = [](const std::vector<double>& v) {
        return *std::min_element(v.begin(), v.end());
    };
    for (const auto& [name, function] : {std::pair{"full_repaint", FullRepaint},
                                         {"meter_tick", MeterTick},
                                         {"quiet_idle", QuietIdle},
                                         {"open_editor", OpenEditor}}) {
        benchmark::RegisterBenchmark(name, function)
            ->Repetitions(7)
            ->ReportAggregatesOnly(true)
            ->ComputeStatistics("min", fastest)
            ->Unit(benchmark::kMicrosecond)
            ->MinTime(0.1);
    }
    int count = static_cast<int>(arguments.size());
    benchmark::Initialize(&count, arguments.data());
    FastestReporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    benchmark::Shutdown();

    double closedShare = 0.0;
    double silentShare = 0.0;
    double musicShare = 0.0;
    {
        EditorSession session;
        closedShare = CoreShare(session, seconds, MusicAmplitude);
        session.OpenEditor(*g_screen);
        // Long enough for meters that the opening left anywhere to fall to rest.
        CoreShare(session, 2.0, [](int) { return 0.0f; });
        silentShare = CoreShare(session, seconds, [](int) { return 0.0f; });
        musicShare = CoreShare(session, seconds, MusicAmplitude);
    }

    std::printf("\n");
    for (const char* name : {"full_repaint", "meter_tick", "quiet_idle", "open_editor"})
        PrintSummary((std::string(name) + "_ms").c_str(), reporter.fastestMs[name]);
    PrintSummary("core_share_editor_closed_music", closedShare);
    PrintSummary("core_share_editor_open_silence", silentShare);
    PrintSummary("core_share_editor_open_music", musicShare);
    PrintSummary("instance_heap_kib", closed.heap / 1024.0);
    PrintSummary("instance_resident_kib", closed.resident / 1024.0);
    PrintSummary("open_editor_heap_kib", open.heap / 1024.0);
    PrintSummary("open_editor_resident_kib", open.resident / 1024.0);
    return 0;
}
