// What the bench times: a processor fed stereo blocks of a fixed signal, one block or one
// stretch of signal per timed run, so that Google Benchmark and the instruction-count
// driver run exactly the same code.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

class Workload {
public:
    virtual ~Workload() = default;
    // Frames one Run processes.
    virtual int64_t FramesPerRun() const = 0;
    // Untimed work due before every Run (the tail case plays its signal here).
    virtual bool HasPrelude() const { return false; }
    virtual void Prelude() {}
    virtual void Run() = 0;
};

struct BenchCase {
    std::string name;
    // The case this one's time is divided by in the summary; empty for none.
    std::string baseline;
    std::function<std::unique_ptr<Workload>()> make;
};

// Every case, in the order they are timed. The module cases load modulePath.
std::vector<BenchCase> BenchCases(const std::string& modulePath);

// Runs the module and the plain reference over the same noise and reports whether every
// output sample has the same bits; the timings mean nothing otherwise.
bool ModuleMatchesPlainReference(const std::string& modulePath, std::string* mismatch);
