#include "toolkit/CBitmap.h"

#include "toolkit/BitmapResources.h"

#include <cmath>

ImageRef CopyAsImage(cairo_surface_t* source) {
    ImageRef image =
        cairo_image_surface_create(CAIRO_FORMAT_ARGB32, cairo_image_surface_get_width(source),
                                   cairo_image_surface_get_height(source));
    double scaleX = 1.0;
    double scaleY = 1.0;
    cairo_surface_get_device_scale(source, &scaleX, &scaleY);
    cairo_surface_set_device_scale(image, scaleX, scaleY);
    cairo_t* cr = cairo_create(image);
    cairo_set_source_surface(cr, source, 0, 0);
    cairo_paint(cr);
    cairo_destroy(cr);
    return image;
}

SIZE ImageLayoutSize(cairo_surface_t* image) {
    double scaleX = 1.0;
    double scaleY = 1.0;
    cairo_surface_get_device_scale(image, &scaleX, &scaleY);
    return {static_cast<std::int32_t>(std::lround(cairo_image_surface_get_width(image) / scaleX)),
            static_cast<std::int32_t>(std::lround(cairo_image_surface_get_height(image) / scaleY))};
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
