#include "tools/ProgressBar.h"

#include <algorithm>
#include <cstdio>
#include <unistd.h>

namespace {
constexpr int kBarWidth = 40;
}

ProgressBar::ProgressBar(std::string label, int64_t total)
    : label(std::move(label)), total(total), visible(isatty(STDERR_FILENO) != 0 && total > 0) {}

ProgressBar::~ProgressBar() {
    if (visible && shownPercent >= 0) {
        // Leave the line clean for whatever is printed next.
        std::fprintf(stderr, "\r%*s\r", static_cast<int>(label.size()) + kBarWidth + 10, "");
    }
}

void ProgressBar::update(int64_t done) {
    if (!visible) {
        return;
    }
    const int percent = static_cast<int>(std::clamp<int64_t>(done * 100 / total, 0, 100));
    if (percent == shownPercent) {
        return;
    }
    shownPercent = percent;
    const int filled = percent * kBarWidth / 100;
    std::string bar(static_cast<std::size_t>(filled), '#');
    bar.resize(kBarWidth, '.');
    std::fprintf(stderr, "\r%s [%s] %3d%%", label.c_str(), bar.c_str(), percent);
    std::fflush(stderr);
}
