#include "editor/CQMTBitmap.h"

#include "editor/ZephyraBundle.h"
#include "toolkit/BitmapResources.h"

bool CQMTBitmap::LoadResourceBitmap(const char* id, void**) {
    RegisterZephyraBundle();
    const int number = static_cast<int>(reinterpret_cast<std::uintptr_t>(id) & 0xFFFF);
    return AttachImage(LoadBitmap0(number, kZephyraBundleIdentifier));
}

int CQMTBitmap::Width() const {
    int width = 0;
    GetBitmapSize0(GetImage(), &width, nullptr, nullptr);
    return width;
}

int CQMTBitmap::Height() const {
    int height = 0;
    GetBitmapSize0(GetImage(), nullptr, &height, nullptr);
    return height;
}
