// A bitmap of the plug-in's own resources, loaded by number. The panel owns its bitmaps;
// the controls only point at them.
#pragma once

#include "toolkit/CBitmap.h"

#include <cstdint>

// A resource number in the form that resource loaders take instead of a name.
inline const char* MAKEINTRESOURCE(int id) {
    return reinterpret_cast<const char*>(static_cast<std::uintptr_t>(id & 0xFFFF));
}

class CQMTBitmap : public CBitmap {
public:
    // The low 16 bits of id carry the resource number; the second argument is not used.
    // False when the plug-in has no such bitmap (the bitmap then draws nothing).
    bool LoadResourceBitmap(const char* id, void** unused = nullptr);
    int Width() const;
    int Height() const;
};
