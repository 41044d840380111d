#include "toolkit/FontCatalog.h"

#include "toolkit/InstalledFonts.h"

#include <map>
#include <memory>
#include <mutex>
#include <vector>

namespace {

// Japanese gothic faces that take the place of the Japanese system face, in order of
// preference: the free faces a Linux system (or wine) has, then Windows' own.
const std::map<std::string, std::vector<const char*>> kStandIns = {
    {"Osaka",
     {"IPAGothic", "IPAPGothic", "Noto Sans CJK JP", "NotoSansCJKjp-Regular", "Yu Gothic UI",
      "Meiryo UI", "MS UI Gothic"}},
};

struct Catalog {
    std::mutex mutex;
    std::map<std::string, std::unique_ptr<FontFace>> faces; // null entries: known missing
};

Catalog& TheCatalog() {
    static Catalog catalog;
    return catalog;
}

std::unique_ptr<FontFace> LookUp(const char* name) {
    if (auto face = installed_fonts::FindByName(name))
        return face;
    const auto standIns = kStandIns.find(name);
    if (standIns != kStandIns.end()) {
        for (const char* standIn : standIns->second) {
            if (auto face = installed_fonts::FindByName(standIn))
                return face;
            if (auto face = installed_fonts::FindFamily(standIn))
                return face;
        }
    }
    return nullptr;
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
        auto found = installed_fonts::BestMatch("Helvetica");
        if (!found)
            found = std::make_unique<FontFace>(FontFace{"Sans", 1000.0, 1200.0, 800.0});
        return found;
    }();
    return *face;
}
