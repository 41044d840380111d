// A bitmap: one image (a Cairo ARGB32 image surface, premultiplied alpha) that the bitmap
// owns and releases. Bitmaps are sources of blits; selected into a DC they only carry the
// image.
#pragma once

#include "base/WinTypes.h"
#include "toolkit/CGdiObject.h"

#include <cairo.h>

using ImageRef = cairo_surface_t*;

// A new image holding the pixels of any image surface, which is left as it is; the copy
// keeps the source's scale.
ImageRef CopyAsImage(cairo_surface_t* source);
// An image's size in layout pixels: its pixel size over the scale it was drawn for.
SIZE ImageLayoutSize(cairo_surface_t* image);

class CBitmap : public CGdiObject {
public:
    ~CBitmap() override;

    // Loads the module's resource with this number; false when it is missing.
    bool LoadBitmap(UINT resourceId);
    // Takes over an image (the bitmap releases it); null detaches.
    bool AttachImage(ImageRef image);
    ImageRef GetImage() const { return static_cast<ImageRef>(m_hObject); }
    void DeleteObject();
};
