// The level meters' scale: peaks read as dB by the six-dB-per-doubling rule (the same rule
// as the level read-outs, deliberately not 20 log10), shown from -38 to +6 dB at 3 pixels per
// dB with 0 dB 19 pixels below the meter's top.
#pragma once

constexpr float kMeterFloorDb = -38.0f;
constexpr float kMeterCeilingDb = 6.0f;
// How far a meter falls per timer tick when no new peaks arrive.
constexpr float kMeterFallPerTick = 0.25f;

// A linear peak as a meter level in [-38, +6] dB; silence and non-numbers read as -38.
float MeterLevelOfPeak(float peak);
// A level one tick lower, not below the floor.
float FallenMeterLevel(float level);
// The first lit row of the meter at this level: 1 at +6 dB, 133 (nothing lit) at -38 dB.
int MeterLitTop(float level);
