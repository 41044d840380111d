#include "tools/ResultStream.h"

#include <unistd.h>

namespace {
std::FILE* resultFile = stdout;
}

void reserveStdoutForResults() {
    std::fflush(stdout);
    const int kept = dup(STDOUT_FILENO);
    if (kept < 0) {
        return;
    }
    std::FILE* stream = fdopen(kept, "w");
    if (stream == nullptr) {
        close(kept);
        return;
    }
    dup2(STDERR_FILENO, STDOUT_FILENO);
    resultFile = stream;
}

std::FILE* results() {
    return resultFile;
}
