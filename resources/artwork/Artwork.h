// The panel's bitmaps, one drawing function each, and the table that numbers them.
#pragma once

#include "resources/artwork/Canvas.h"

#include <vector>

Canvas DrawBackground();

Canvas DrawKnobStrip();

// Two frames stacked: released above, pressed below.
Canvas DrawPowerSwitch(bool lit);
Canvas DrawTypeSwitch(bool lit);
Canvas DrawCopyButton(bool lit);

Canvas DrawSaveButton();
// Two frames stacked: program as stored above, program edited below.
Canvas DrawProgramLamp();
// A bitmap the panel loads but never shows.
Canvas DrawUnusedBitmap();

Canvas DrawSliderBackground();
Canvas DrawSliderThumb();

// Unlit meter on the left, lit meter on the right.
Canvas DrawMeter();

struct ArtworkEntry {
    int resourceId;
    Canvas (*draw)();
};
// Every bitmap the panel loads, by resource number.
std::vector<ArtworkEntry> ArtworkTable();
