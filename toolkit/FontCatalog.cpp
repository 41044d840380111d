#include "toolkit/FontCatalog.h"

#include <fontconfig/fontconfig.h>
#include <ft2build.h>
#include FT_FREETYPE_H

#include <cstring>
#include <map>
#include <memory>
#include <mutex>
#include <vector>

namespace {

// Japanese gothic faces of this system that take the place of the Japanese system face.
const std::map<std::string, std::vector<const char*>> kStandIns = {
    {"Osaka", {"IPAGothic", "IPAPGothic", "Noto Sans CJK JP", "NotoSansCJKjp-Regular"}},
};

struct Catalog {
    std::mutex mutex;
    std::map<std::string, std::unique_ptr<FontFace>> faces; // null entries: known missing
};

Catalog& TheCatalog() {
    static Catalog catalog;
    return catalog;
}

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

std::unique_ptr<FontFace> LookUp(const char* name) {
    if (auto face = ListByProperty(FC_POSTSCRIPT_NAME, name))
        return face;
    if (auto face = ListByProperty(FC_FULLNAME, name))
        return face;
    const auto standIns = kStandIns.find(name);
    if (standIns != kStandIns.end()) {
        for (const char* standIn : standIns->second) {
            if (auto face = ListByProperty(FC_POSTSCRIPT_NAME, standIn))
                return face;
            if (auto face = ListByProperty(FC_FAMILY, standIn))
                return face;
        }
    }
    return nullptr;
}

// Whatever the configuration matches for the family, aliases included.
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

} // namespace

const FontFace* FindFontFace(const char* name) {
    if (!name || !*name)
        return nullptr;
    Catalog& catalog = TheCatalog();
    std::lock_guard<std::mutex> lock(catalog.mutex);
    auto known = catalog.faces.find(name);
    if (known == catalog.faces.end())
        known = catalog.faces.emplace(name, LookUp(name)).first;
    return known->second.get();
}

const FontFace& DefaultFontFace() {
    static const std::unique_ptr<FontFace> face = [] {
        auto found = BestMatch("Helvetica");
        if (!found)
            found = std::make_unique<FontFace>(FontFace{"Sans", 1000.0, 1200.0, 800.0});
        return found;
    }();
    return *face;
}
