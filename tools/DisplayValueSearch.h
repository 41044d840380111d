// Finds the normalised value (0..1) at which a parameter displays a wanted text, knowing
// nothing of the plug-in but its display function. This is what lets `--set Gain1=+6`
// work for any plug-in: the plug-in's own texts are the only scale there is.
#pragma once

#include <functional>
#include <optional>
#include <string>

// Maps a normalised value to the text the plug-in shows for it.
using DisplayFunction = std::function<std::string(float normalised)>;

// `wanted` is either a word the display shows ("PEAK", case ignored) or a number, with an
// optional leading '+' and an optional trailing unit equal to `unitLabel` ("+6", "6 dB").
// A number matches a display within the display's own rounding ("6" matches "6.0").
// Where a range of values shows the text, the result is its middle, or its end when the
// range reaches 0 or 1 (so "Hi" on a three-way switch gives 1, not 0.875).
std::optional<float> findNormalisedValue(const DisplayFunction& display, const std::string& wanted,
                                         const std::string& unitLabel);
