// The level meter: an unlit column and a lit one side by side. The panel copies the lit
// column from the level's row down over the unlit one, so each row must already carry the
// colour of the level it stands for.

#include "editor/PanelGeometry.h"
#include "resources/artwork/Artwork.h"

namespace {

// One segment per dB: the top rows of each 3-row step are lit, the last is the gap.
bool IsSegmentRow(int row) {
    const int step = layout::kMeterRowsPerDb;
    const int phase = ((row - layout::kMeterZeroDbRow) % step + step) % step;
    return phase < kPalette.meterSegmentRows;
}

Rgb ZoneColour(int row) {
    const Palette& p = kPalette;
    if (row < layout::kMeterZeroDbRow)
        return p.meterRed;
    if (row < layout::kMeterZeroDbRow + p.meterAmberSpanDb * layout::kMeterRowsPerDb)
        return p.meterAmber;
    return p.meterGreen;
}

// Brighter in the middle columns, so a segment reads as a rounded bar rather than a slab.
double ColumnShade(int column, int width) {
    const int fromEdge = column < width - 1 - column ? column : width - 1 - column;
    return fromEdge == 0 ? 0.72 : (fromEdge == 1 ? 0.9 : 1.0);
}

void DrawColumn(cairo_t* cr, int left, bool lit) {
    const Palette& p = kPalette;
    const int width = p.meterWidth;
    FillPixels(cr, left, 0, width, layout::kMeterHeight, p.well);
    for (int row = 0; row < layout::kMeterHeight; ++row) {
        if (!IsSegmentRow(row))
            continue;
        const Rgb zone = ZoneColour(row);
        for (int column = 0; column < width; ++column) {
            const Rgb full = Mix(p.well, zone, ColumnShade(column, width));
            FillPixels(cr, left + column, row, 1, 1,
                       lit ? full : Mix(p.well, full, p.meterUnlitLevel));
        }
    }
}

} // namespace

Canvas DrawMeter() {
    const int width = kPalette.meterWidth;
    Canvas canvas(2 * width, layout::kMeterHeight);
    DrawColumn(canvas.Context(), 0, false);
    DrawColumn(canvas.Context(), width, true);
    return canvas;
}
