#include "lv2/PortValue.h"

#include "effect/ZephyraParameters.h"

#include <cmath>
#include <initializer_list>
#include <limits>

namespace lv2 {

float PortValueOf(int index, float normalised) {
    const float display = NormalizeValToInternalVal(index, normalised);
    constexpr float kInfinity = std::numeric_limits<float>::infinity();
    float below = display;
    float above = display;
    for (int step = 0; step <= 4; ++step) {
        for (float candidate : {above, below}) {
            if (DisplayToNormalizeValue(index, candidate) == normalised) {
                return candidate;
            }
        }
        below = std::nextafter(below, -kInfinity);
        above = std::nextafter(above, kInfinity);
    }
    return display;
}

} // namespace lv2
