// Installed fonts through fontconfig, their metrics read with FreeType.
#include "toolkit/InstalledFonts.h"

#include <fontconfig/fontconfig.h>
#include <ft2build.h>
#include FT_FREETYPE_H

namespace {

std::unique_ptr<FontFace> ReadFace(FcPattern* pattern) {
    FcChar8* file = nullptr;
    FcChar8* family = nullptr;
    int index = 0;
    if (FcPatternGetString(pattern, FC_FILE, 0, &file) != FcResultMatch ||
        FcPatternGetString(pattern, FC_FAMILY, 0, &family) != FcResultMatch)
        return nullptr;
    FcPatternGetInteger(pattern, FC_INDEX, 0, &index);

    FT_Library library = nullptr;
    if (FT_Init_FreeType(&library) != 0)
        return nullptr;
    std::unique_ptr<FontFace> face;
    FT_Face ftFace = nullptr;
    if (FT_New_Face(library, reinterpret_cast<const char*>(file), index, &ftFace) == 0) {
        if (ftFace->units_per_EM > 0)
            face = std::make_unique<FontFace>(FontFace{
                reinterpret_cast<const char*>(family), static_cast<double>(ftFace->units_per_EM),
                static_cast<double>(ftFace->bbox.yMax - ftFace->bbox.yMin),
                static_cast<double>(ftFace->ascender)});
        FT_Done_Face(ftFace);
    }
    FT_Done_FreeType(library);
    return face;
}

// The first installed face whose property (PostScript or full name) equals the name.
std::unique_ptr<FontFace> ListByProperty(const char* property, const char* name) {
    FcPattern* pattern = FcPatternCreate();
    FcPatternAddString(pattern, property, reinterpret_cast<const FcChar8*>(name));
    FcObjectSet* objects = FcObjectSetBuild(FC_FILE, FC_INDEX, FC_FAMILY, nullptr);
    FcFontSet* found = FcFontList(nullptr, pattern, objects);
    std::unique_ptr<FontFace> face;
    if (found) {
        for (int i = 0; i < found->nfont && !face; ++i)
            face = ReadFace(found->fonts[i]);
        FcFontSetDestroy(found);
    }
    FcObjectSetDestroy(objects);
    FcPatternDestroy(pattern);
    return face;
}

} // namespace

namespace installed_fonts {

std::unique_ptr<FontFace> FindByName(const char* name) {
    if (auto face = ListByProperty(FC_POSTSCRIPT_NAME, name))
        return face;
    return ListByProperty(FC_FULLNAME, name);
}

std::unique_ptr<FontFace> FindFamily(const char* family) {
    return ListByProperty(FC_FAMILY, family);
}

std::unique_ptr<FontFace> BestMatch(const char* family) {
    FcPattern* pattern = FcPatternCreate();
    FcPatternAddString(pattern, FC_FAMILY, reinterpret_cast<const FcChar8*>(family));
    FcConfigSubstitute(nullptr, pattern, FcMatchPattern);
    FcDefaultSubstitute(pattern);
    FcResult result = FcResultNoMatch;
    FcPattern* match = FcFontMatch(nullptr, pattern, &result);
    std::unique_ptr<FontFace> face;
    if (match) {
        face = ReadFace(match);
        FcPatternDestroy(match);
    }
    FcPatternDestroy(pattern);
    return face;
}

} // namespace installed_fonts
