// Installed font faces looked up by name, with the design metrics that point fonts are
// measured from. Faces are found once and kept for the life of the process.
#pragma once

#include <string>

struct FontFace {
    std::string family; // the family name text layout asks for
    double unitsPerEm;
    double boundingBoxHeight; // font units
    double ascender;          // font units
};

// The face with this PostScript name, else with this full name; the faces that stand in
// for a name this system lacks ("Osaka") count as found. Null when nothing fits.
const FontFace* FindFontFace(const char* name);
// The system's sans face, found for the name "Helvetica"; never null.
const FontFace& DefaultFontFace();
