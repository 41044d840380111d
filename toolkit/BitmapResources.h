// The module's numbered bitmap resources: PNG files compiled into the module as a table of
// id, scale and bytes; a resource may be there drawn for several scales. The artwork library
// registers its table at start-up; the loaders decode from it. Decoded images are new Cairo ARGB32
// surfaces that the caller releases (cairo_surface_destroy, or hand them to a CBitmap).
#pragma once

#include "toolkit/CBitmap.h"

#include <cstddef>

struct EmbeddedResource {
    int id;
    double scale; // device pixels per layout pixel the picture was drawn for
    const unsigned char* bytes;
    std::size_t size;
};

// Makes a table of PNG resources available under a bundle identifier. The table must stay
// valid for the life of the module; registering the same table again changes nothing.
void AfxRegisterResources(const char* bundleIdentifier, const EmbeddedResource* table,
                          std::size_t count);
// Forgets every table under the identifier.
void AfxUnregisterResources(const char* bundleIdentifier);

// The resource named by the decimal id among the tables of that bundle, in the picture
// drawn for the scale in force or the nearest larger one (the largest when none is larger),
// carrying its scale; null when missing or not a PNG. Prints nothing.
ImageRef LoadBitmap0(int id, const char* bundleIdentifier);
// Width, height and bytes per row (width × 4) of an image; zeros for null.
void GetBitmapSize0(ImageRef image, int* width, int* height, int* bytesPerRow);
// The resource from any registered table. A missing resource prints its name ("%d.png"), an
// undecodable one "Can't load bitmap %d;G"; both yield null.
ImageRef LoadBitmap(int id);
// The same lookup without diagnostics.
ImageRef LoadImageRef(int id);
