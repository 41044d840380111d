#include "editor/MeterScale.h"

#include <cmath>

namespace {
constexpr double kLn2 = 0.6931471805599453;
constexpr double kPixelsPerDb = 3.0;
constexpr double kZeroDbRow = 19.0;
} // namespace

float MeterLevelOfPeak(float peak) {
    const double db = std::log(static_cast<double>(peak)) / kLn2 * 6.0;
    if (db > kMeterCeilingDb)
        return kMeterCeilingDb;
    // NaN fails this test too.
    if (!(db >= kMeterFloorDb))
        return kMeterFloorDb;
    return static_cast<float>(db);
}

float FallenMeterLevel(float level) {
    const float fallen = level - kMeterFallPerTick;
    return fallen < kMeterFloorDb ? kMeterFloorDb : fallen;
}

int MeterLitTop(float level) {
    return static_cast<int>(level * -kPixelsPerDb + kZeroDbRow);
}
