#include "EditorHost.h"

std::uint32_t BitmapPixel(const CQMTBitmap& bitmap, int x, int y) {
    cairo_surface_t* image = bitmap.GetImage();
    cairo_surface_flush(image);
    const unsigned char* row =
        cairo_image_surface_get_data(image) + y * cairo_image_surface_get_stride(image);
    return reinterpret_cast<const std::uint32_t*>(row)[x] & 0xFFFFFF;
}
