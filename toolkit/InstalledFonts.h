// The system's font lookups beneath the font catalog, one implementation per system
// (fontconfig and FreeType on Linux, GDI on Windows). Each answers with the face's family
// name and its design metrics, or null when nothing installed fits.
#pragma once

#include "toolkit/FontCatalog.h"

#include <memory>

namespace installed_fonts {

// The installed face whose PostScript name, else full name, is the given one.
std::unique_ptr<FontFace> FindByName(const char* name);
// The installed face of exactly this family.
std::unique_ptr<FontFace> FindFamily(const char* family);
// Whatever the system chooses for the family, its substitutes and aliases included.
std::unique_ptr<FontFace> BestMatch(const char* family);

} // namespace installed_fonts
