#include "tools/ResponsePlot.h"

#include <algorithm>
#include <cmath>
#include <cstdio>

namespace {

constexpr double kLowestFrequency = 20.0;
constexpr double kHighestFrequency = 20000.0;
constexpr double kLargestRangeDb = 96.0;

struct Colour {
    double red, green, blue;
};
constexpr Colour kBackground{0.118, 0.129, 0.149};
constexpr Colour kPlotArea{0.141, 0.153, 0.173};
constexpr Colour kMinorGrid{0.200, 0.216, 0.243};
constexpr Colour kMajorGrid{0.290, 0.310, 0.341};
constexpr Colour kZeroLine{0.478, 0.502, 0.541};
constexpr Colour kText{0.784, 0.800, 0.824};
constexpr Colour kMagnitude{0.941, 0.627, 0.188};
constexpr Colour kPhase{0.251, 0.753, 0.847};

void setColour(cairo_t* cr, const Colour& colour) {
    cairo_set_source_rgb(cr, colour.red, colour.green, colour.blue);
}

// Maps frequencies and values to pixels inside the plot area.
class PlotArea {
public:
    PlotArea(double left, double top, double right, double bottom, double rangeDb)
        : left(left), top(top), right(right), bottom(bottom), rangeDb(rangeDb) {}

    double x(double frequency) const {
        return left + std::log(frequency / kLowestFrequency) /
                          std::log(kHighestFrequency / kLowestFrequency) * (right - left);
    }
    double yForDb(double db) const {
        const double limited = std::clamp(db, -rangeDb - 6.0, rangeDb + 6.0);
        return top + (rangeDb - limited) / (2.0 * rangeDb) * (bottom - top);
    }
    double yForDegrees(double degrees) const {
        return top + (180.0 - degrees) / 360.0 * (bottom - top);
    }

    double left, top, right, bottom, rangeDb;
};

// Crisp one-pixel lines sit on half-pixel coordinates.
double pixelCentre(double coordinate) {
    return std::floor(coordinate) + 0.5;
}

void verticalLine(cairo_t* cr, const PlotArea& area, double x) {
    cairo_move_to(cr, pixelCentre(x), area.top);
    cairo_line_to(cr, pixelCentre(x), area.bottom);
    cairo_stroke(cr);
}

void horizontalLine(cairo_t* cr, const PlotArea& area, double y) {
    cairo_move_to(cr, area.left, pixelCentre(y));
    cairo_line_to(cr, area.right, pixelCentre(y));
    cairo_stroke(cr);
}

enum class Anchor { Left, Centre, Right };

void drawText(cairo_t* cr, const std::string& text, double x, double y, Anchor anchor) {
    cairo_text_extents_t extents;
    cairo_text_extents(cr, text.c_str(), &extents);
    double start = x;
    if (anchor == Anchor::Centre) {
        start = x - extents.x_advance / 2.0;
    } else if (anchor == Anchor::Right) {
        start = x - extents.x_advance;
    }
    cairo_move_to(cr, start, y);
    cairo_show_text(cr, text.c_str());
}

std::string frequencyLabel(double frequency) {
    char text[16];
    if (frequency >= 1000.0) {
        std::snprintf(text, sizeof text, "%gk", frequency / 1000.0);
    } else {
        std::snprintf(text, sizeof text, "%g", frequency);
    }
    return text;
}

void drawFrequencyGrid(cairo_t* cr, const PlotArea& area) {
    cairo_set_line_width(cr, 1.0);
    for (double decade = 10.0; decade <= 10000.0; decade *= 10.0) {
        for (int multiple = 1; multiple <= 9; ++multiple) {
            const double frequency = multiple * decade;
            if (frequency < kLowestFrequency || frequency > kHighestFrequency) {
                continue;
            }
            setColour(cr, multiple == 1 ? kMajorGrid : kMinorGrid);
            verticalLine(cr, area, area.x(frequency));
        }
    }
    setColour(cr, kText);
    for (double frequency :
         {20.0, 50.0, 100.0, 200.0, 500.0, 1000.0, 2000.0, 5000.0, 10000.0, 20000.0}) {
        drawText(cr, frequencyLabel(frequency), area.x(frequency), area.bottom + 16.0,
                 Anchor::Centre);
    }
    drawText(cr, "Hz", area.right, area.bottom + 32.0, Anchor::Right);
}

void drawLevelGrid(cairo_t* cr, const PlotArea& area) {
    const double step = area.rangeDb <= 24.0 ? 3.0 : (area.rangeDb <= 48.0 ? 6.0 : 12.0);
    for (double db = -area.rangeDb; db <= area.rangeDb + 1e-9; db += step) {
        const bool labelled = std::fmod(std::fabs(db), 2.0 * step) < 1e-9;
        setColour(cr, db == 0.0 ? kZeroLine : (labelled ? kMajorGrid : kMinorGrid));
        horizontalLine(cr, area, area.yForDb(db));
        if (labelled) {
            char text[16];
            std::snprintf(text, sizeof text, "%+g", db);
            setColour(cr, kText);
            drawText(cr, db == 0.0 ? "0" : text, area.left - 8.0, area.yForDb(db) + 4.0,
                     Anchor::Right);
        }
    }
    drawText(cr, "dB", area.left - 8.0, area.top - 10.0, Anchor::Right);
}

void drawPhaseAxis(cairo_t* cr, const PlotArea& area) {
    setColour(cr, kPhase);
    for (int degrees = -180; degrees <= 180; degrees += 90) {
        char text[16];
        std::snprintf(text, sizeof text, "%d\xC2\xB0", degrees);
        drawText(cr, text, area.right + 8.0, area.yForDegrees(degrees) + 4.0, Anchor::Left);
    }
    drawText(cr, "phase", area.right + 8.0, area.top - 10.0, Anchor::Left);
}

// A curve of one value per measured frequency; the line breaks where two neighbours are
// further apart than breakAbove.
void drawCurve(cairo_t* cr, const PlotArea& area, const MeasuredResponse& response,
               const std::vector<double>& values, double (PlotArea::*y)(double) const,
               double breakAbove) {
    for (std::size_t i = 0; i < response.frequencies.size(); ++i) {
        const double x = area.x(response.frequencies[i]);
        if (i == 0 || std::fabs(values[i] - values[i - 1]) > breakAbove) {
            cairo_move_to(cr, x, (area.*y)(values[i]));
        } else {
            cairo_line_to(cr, x, (area.*y)(values[i]));
        }
    }
    cairo_stroke(cr);
}

void drawMagnitude(cairo_t* cr, const PlotArea& area, const MeasuredResponse& response) {
    setColour(cr, kMagnitude);
    cairo_set_line_width(cr, 2.0);
    drawCurve(cr, area, response, response.magnitudeDb, &PlotArea::yForDb, HUGE_VAL);
}

void drawPhase(cairo_t* cr, const PlotArea& area, const MeasuredResponse& response) {
    setColour(cr, kPhase);
    cairo_set_line_width(cr, 1.5);
    // A jump from +180 to -180 is a wrap, not a step of the response.
    drawCurve(cr, area, response, response.phaseDegrees, &PlotArea::yForDegrees, 180.0);
}

} // namespace

double plotRangeDb(const MeasuredResponse& response) {
    double largest = 0.0;
    for (double db : response.magnitudeDb) {
        largest = std::max(largest, std::fabs(db));
    }
    const double range = std::ceil((largest + 1.0) / 6.0) * 6.0;
    return std::clamp(range, 12.0, kLargestRangeDb);
}

CairoSurface drawResponsePlot(const MeasuredResponse& response, const PlotLayout& layout) {
    CairoSurface surface(
        cairo_image_surface_create(CAIRO_FORMAT_RGB24, layout.width, layout.height));
    cairo_t* cr = cairo_create(surface.get());
    const double top = layout.subtitle.empty() ? 44.0 : 60.0;
    const PlotArea area(64.0, top, layout.width - (layout.showPhase ? 64.0 : 24.0),
                        layout.height - 44.0, plotRangeDb(response));

    setColour(cr, kBackground);
    cairo_paint(cr);
    setColour(cr, kPlotArea);
    cairo_rectangle(cr, area.left, area.top, area.right - area.left, area.bottom - area.top);
    cairo_fill(cr);

    cairo_select_font_face(cr, "sans-serif", CAIRO_FONT_SLANT_NORMAL, CAIRO_FONT_WEIGHT_BOLD);
    cairo_set_font_size(cr, 15.0);
    setColour(cr, kText);
    drawText(cr, layout.title, area.left, 24.0, Anchor::Left);
    cairo_select_font_face(cr, "sans-serif", CAIRO_FONT_SLANT_NORMAL, CAIRO_FONT_WEIGHT_NORMAL);
    cairo_set_font_size(cr, 11.0);
    if (!layout.subtitle.empty()) {
        drawText(cr, layout.subtitle, area.left, 42.0, Anchor::Left);
    }

    drawFrequencyGrid(cr, area);
    drawLevelGrid(cr, area);
    if (layout.showPhase) {
        drawPhaseAxis(cr, area);
    }

    cairo_save(cr);
    cairo_rectangle(cr, area.left, area.top, area.right - area.left, area.bottom - area.top);
    cairo_clip(cr);
    if (layout.showPhase) {
        drawPhase(cr, area, response);
    }
    drawMagnitude(cr, area, response);
    cairo_restore(cr);

    cairo_destroy(cr);
    cairo_surface_flush(surface.get());
    return surface;
}
