// The tool's own output. Plug-ins print diagnostics to stdout, which would corrupt a table
// or JSON read by a script; so the real stdout is kept for results and everything else
// written to descriptor 1 goes to stderr.
#pragma once

#include <cstdio>

// Call once, before any plug-in is loaded.
void reserveStdoutForResults();
std::FILE* results();
