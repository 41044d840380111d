// An opaque Cairo image the artwork is drawn into, and the few drawing helpers every bitmap
// family shares (pixel-exact rectangles, buttons, text set with Pango).
#pragma once

#include "resources/artwork/Palette.h"

#include <cairo.h>

#include <string>

class Canvas {
public:
    // A width x height picture in layout pixels, drawn at the scale set for new canvases:
    // its image has that many more pixels each way, and the drawing code still works in
    // layout pixels.
    Canvas(int width, int height);
    // The scale for canvases made from now on (1 until set).
    static void SetScale(double scale);
    ~Canvas();
    Canvas(Canvas&& other) noexcept;
    Canvas(const Canvas&) = delete;
    Canvas& operator=(const Canvas&) = delete;
    Canvas& operator=(Canvas&&) = delete;

    cairo_t* Context() const { return cr_; }
    // In layout pixels.
    int Width() const { return width_; }
    int Height() const { return height_; }
    bool WritePng(const std::string& path) const;

private:
    int width_, height_;
    cairo_surface_t* surface_;
    cairo_t* cr_;
};

enum class Align { Left, Centre, Right };

void SetColour(cairo_t* cr, Rgb colour, double alpha = 1.0);
Rgb Mix(Rgb from, Rgb to, double share);

// Fills whole pixels: x, y, width and height are pixel counts.
void FillPixels(cairo_t* cr, int x, int y, int width, int height, Rgb colour);
// Fills a width x height picture that the panel shows at panelTop inside the header with the
// header's shading, so that it joins the background without a seam.
void FillHeader(cairo_t* cr, int panelTop, int width, int height);
void RoundedRectPath(cairo_t* cr, double x, double y, double width, double height, double radius);
// A one-pixel frame just outside the rectangle: dark above and left, light below and right,
// so the rectangle reads as sunk into the panel.
void SunkenBezel(cairo_t* cr, int x, int y, int width, int height);

// The face of a push button inside a width x height frame: a rounded body with a lit top edge
// and, released, a one-pixel drop shadow below; pressed, the face sits one pixel lower.
void ButtonFace(cairo_t* cr, int width, int height, bool pressed, Rgb top, Rgb bottom, Rgb outline);

// Text on a baseline; x is the left edge, centre or right edge of the ink, so tracking
// never pushes a label off its mark.
void DrawText(cairo_t* cr, const char* text, const TypeStyle& style, double x, double baseline,
              Align align);
// The same, placed so the capitals' middle sits on middleY.
void DrawTextMiddled(cairo_t* cr, const char* text, const TypeStyle& style, double x,
                     double middleY, Align align);
