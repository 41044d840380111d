#include "toolkit/CBitmap.h"

#include "toolkit/BitmapResources.h"

CBitmap::~CBitmap() {
    DeleteObject();
}

bool CBitmap::LoadBitmap(UINT resourceId) {
    return AttachImage(::LoadBitmap(static_cast<int>(resourceId)));
}

bool CBitmap::AttachImage(ImageRef image) {
    DeleteObject();
    return Attach(image);
}

void CBitmap::DeleteObject() {
    if (ImageRef image = static_cast<ImageRef>(Detach()))
        cairo_surface_destroy(image);
}
