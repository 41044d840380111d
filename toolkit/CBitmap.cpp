#include "toolkit/CBitmap.h"

#include "toolkit/BitmapResources.h"

ImageRef CopyAsImage(cairo_surface_t* source) {
    ImageRef image =
        cairo_image_surface_create(CAIRO_FORMAT_ARGB32, cairo_image_surface_get_width(source),
                                   cairo_image_surface_get_height(source));
    cairo_t* cr = cairo_create(image);
    cairo_set_source_surface(cr, source, 0, 0);
    cairo_paint(cr);
    cairo_destroy(cr);
    return image;
}

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
