// A panel that writes down what it is told.
#pragma once

#include "effect/ZephyraEditorSeam.h"

#include <utility>
#include <vector>

class RecordingPanel : public ZephyraPanel {
public:
    void UpdateControl(int index, float value) override { controls.emplace_back(index, value); }
    void UpdateModify() override { ++modifies; }

    std::vector<std::pair<int, float>> controls;
    int modifies = 0;
};
