// A one-line progress bar on stderr, drawn only when stderr is a terminal so that logs and
// tests never see it.
#pragma once

#include <cstdint>
#include <string>

class ProgressBar {
public:
    ProgressBar(std::string label, int64_t total);
    ~ProgressBar();
    ProgressBar(const ProgressBar&) = delete;
    ProgressBar& operator=(const ProgressBar&) = delete;

    void update(int64_t done);

private:
    std::string label;
    int64_t total;
    bool visible;
    int shownPercent = -1;
};
