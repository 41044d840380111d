// The panel's background: every label, the band sections, the read-out wells and the meter
// scales. The controls are pasted over it without blending, so the places they cover stay
// the flat plate colour their own bitmaps are drawn on.

#include "editor/PanelGeometry.h"
#include "resources/artwork/Artwork.h"

#include <algorithm>
#include <string>

namespace {

// Where the background's own parts go, around the controls' fixed places.
constexpr PixelRect kBandSection{74, 37, 396, 200};
constexpr int kBandDivider = 120; // hairline between the two bands
constexpr int kBandLabelLeft = 80;
constexpr int kColumnLabelRise = 8;   // column labels' middle above the knobs' tops
constexpr int kTypeLabelLeft = 129;   // just right of the type switches
constexpr int kLevelLabelMiddle = 38; // INPUT / OUTPUT
constexpr int kScaleGap = 3;          // between a meter well and its scale numbers

void PaintPanel(cairo_t* cr, int width, int height) {
    const Palette& p = kPalette;
    FillPixels(cr, 0, 0, width, height, p.plate);
    FillHeader(cr, 0, width, p.headerHeight);
    FillPixels(cr, 0, p.headerHeight, width, 1, p.hairline);
    FillPixels(cr, 0, p.headerHeight + 1, width, 1, p.bevelLight);
    // Outer bevel of the whole panel.
    FillPixels(cr, 0, 0, width, 1, p.bevelLight);
    FillPixels(cr, 0, height - 1, width, 1, p.bevelDark);
    FillPixels(cr, 0, 0, 1, height, Mix(p.bevelLight, p.plate, 0.5));
    FillPixels(cr, width - 1, 0, 1, height, p.bevelDark);
}

void PaintHeader(cairo_t* cr, int width) {
    const Palette& p = kPalette;
    const double lampMiddle = (layout::kProgramLamp.top + layout::kProgramLamp.bottom) / 2.0;
    DrawTextMiddled(cr, kLabels.program, p.sectionLabel, layout::kProgramLamp.left - 7.0,
                    lampMiddle, Align::Right);
    const double right = width - 14.0;
    DrawText(cr, kLabels.productName, p.productName, right, 21.0, Align::Right);
    DrawText(cr, kLabels.productLine, p.productLine, right, 28.0, Align::Right);
}

// A groove around an area: dark outside line, light inside line.
void Groove(cairo_t* cr, const PixelRect& r) {
    const Palette& p = kPalette;
    FillPixels(cr, r.left, r.top, r.Width(), 1, p.bevelDark);
    FillPixels(cr, r.left, r.top, 1, r.Height(), p.bevelDark);
    FillPixels(cr, r.left + 1, r.top + 1, r.Width() - 2, 1, p.bevelLight);
    FillPixels(cr, r.left + 1, r.top + 1, 1, r.Height() - 2, p.bevelLight);
    FillPixels(cr, r.left, r.bottom - 1, r.Width(), 1, p.bevelLight);
    FillPixels(cr, r.right - 1, r.top, 1, r.Height(), p.bevelLight);
    FillPixels(cr, r.left + 1, r.bottom - 2, r.Width() - 2, 1, p.bevelDark);
    FillPixels(cr, r.right - 2, r.top + 1, 1, r.Height() - 2, p.bevelDark);
}

void PaintBand(cairo_t* cr, int band) {
    const Palette& p = kPalette;
    const int knobTop = layout::kKnobRowsTop[band];
    const double labelMiddle = knobTop - kColumnLabelRise;

    DrawTextMiddled(cr, kLabels.band, p.sectionLabel, kBandLabelLeft, labelMiddle, Align::Left);
    const auto& switchTops = layout::kTypeSwitchTops[band];
    DrawText(cr, kLabels.bandNumbers[band], p.bandNumber, kBandLabelLeft,
             switchTops[1] + layout::kTypeSwitchHeight - 1.0, Align::Left);

    for (std::size_t column = 0; column < layout::kKnobColumnsLeft.size(); ++column) {
        const double middle = layout::kKnobColumnsLeft[column] + layout::kKnobSize / 2.0;
        DrawTextMiddled(cr, kLabels.knobColumns[column], p.sectionLabel, middle, labelMiddle,
                        Align::Centre);
    }
    for (std::size_t type = 0; type < switchTops.size(); ++type) {
        // The switch face is centred a pixel above the frame's middle (its shadow is below).
        const double middle = switchTops[type] + (layout::kTypeSwitchHeight - 1) / 2.0;
        DrawTextMiddled(cr, kLabels.filterTypes[type], p.typeLabel, kTypeLabelLeft, middle,
                        Align::Left);
    }
}

void PaintBandSection(cairo_t* cr) {
    const Palette& p = kPalette;
    Groove(cr, kBandSection);
    FillPixels(cr, kBandSection.left + 6, kBandDivider, kBandSection.Width() - 12, 1, p.hairline);
    FillPixels(cr, kBandSection.left + 6, kBandDivider + 1, kBandSection.Width() - 12, 1,
               p.bevelLight);
    PaintBand(cr, 0);
    PaintBand(cr, 1);
}

std::string ScaleText(int db) {
    return db > 0 ? "+" + std::to_string(db) : std::to_string(-db);
}

// One side's meters: their well, the scale every 6 dB and the side's label.
void PaintLevelSide(cairo_t* cr, int side) {
    const Palette& p = kPalette;
    const auto& lefts = layout::kMeterLefts[side];
    const int wellLeft = lefts[0] - 1;
    const int wellRight = lefts[1] + p.meterWidth + 1;
    const int wellTop = layout::kMeterTop - 1;
    const int wellHeight = layout::kMeterHeight + 2;
    FillPixels(cr, wellLeft, wellTop, wellRight - wellLeft, wellHeight, p.well);
    SunkenBezel(cr, wellLeft, wellTop, wellRight - wellLeft, wellHeight);

    const bool scaleOnLeft = side == 0;
    const int gapLeft = lefts[0] + p.meterWidth;
    const int gapWidth = lefts[1] - gapLeft;
    for (int db = layout::kMeterTopDb; db >= layout::kMeterFloorDb + 2; db -= 6) {
        const int row = layout::kMeterTop + layout::kMeterZeroDbRow - layout::kMeterRowsPerDb * db;
        const Rgb tick = db == 0 ? p.label : p.labelDim;
        FillPixels(cr, gapLeft, row, gapWidth, 1, tick);
        const double x = scaleOnLeft ? wellLeft - 1 - kScaleGap : wellRight + 1 + kScaleGap;
        TypeStyle style = p.scaleLabel;
        style.colour = tick;
        DrawTextMiddled(cr, ScaleText(db).c_str(), style, x, row + 0.5,
                        scaleOnLeft ? Align::Right : Align::Left);
    }

    const PixelRect& slider = layout::kSliders[side];
    const double groupLeft = std::min(wellLeft, slider.left);
    const double groupRight = std::max(wellRight, slider.right);
    DrawTextMiddled(cr, side == 0 ? kLabels.input : kLabels.output, p.sectionLabel,
                    (groupLeft + groupRight) / 2.0, kLevelLabelMiddle, Align::Centre);
}

// Light wells for the read-outs, since the panel prints their values in black; the unit
// stands outside, the panel centres the number over the whole well.
void PaintReadoutWell(cairo_t* cr, const PixelRect& r, const char* unit) {
    const Palette& p = kPalette;
    SunkenBezel(cr, r.left, r.top, r.Width(), r.Height());
    FillPixels(cr, r.left, r.top, r.Width(), r.Height(), p.readoutFace);
    FillPixels(cr, r.left, r.top, r.Width(), 1, p.readoutShade);
    FillPixels(cr, r.left, r.top + 1, 1, r.Height() - 1, Mix(p.readoutShade, p.readoutFace, 0.5));
    DrawTextMiddled(cr, unit, p.unitLabel, r.right + 3.0, (r.top + r.bottom) / 2.0, Align::Left);
}

} // namespace

Canvas DrawBackground() {
    const Palette& p = kPalette;
    Canvas canvas(p.panelWidth, p.panelHeight);
    cairo_t* cr = canvas.Context();
    PaintPanel(cr, p.panelWidth, p.panelHeight);
    PaintHeader(cr, p.panelWidth);
    PaintBandSection(cr);
    PaintLevelSide(cr, 0);
    PaintLevelSide(cr, 1);
    for (std::size_t i = 0; i < layout::kReadouts.size(); ++i)
        PaintReadoutWell(cr, layout::kReadouts[i], kLabels.readoutUnits[i]);
    return canvas;
}
