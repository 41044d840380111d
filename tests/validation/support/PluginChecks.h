// What must hold after anything a host does. Each check answers "" or the problem, for the
// tests to expect and the fuzzers to abort on.
#pragma once

#include "tests/validation/support/TestSignal.h"
#include "tests/validation/support/ValidationHost.h"

#include <string>

// Every parameter's name, label and display text: terminated within the eight bytes
// hosts give, printable, nothing written past those eight bytes, and only the label may
// be empty.
std::string ParameterTextProblem(HostedPlugin& plugin);

// One block of audio-range noise through the chosen precision: the output is finite, no
// sample is written outside the block, the input is left as it was, and the meters
// read finite levels.
std::string AudioProblem(HostedPlugin& plugin, Noise& noise, int frames, bool doublePrecision);

// Both of the above.
std::string EffectProblem(HostedPlugin& plugin, Noise& noise, int frames, bool doublePrecision);

// For the fuzzers: prints the problem and aborts when there is one.
void RequireNoProblem(const std::string& problem);
