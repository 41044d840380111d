#include "tests/editor/EditorHost.h"

#include "tests/editor/FramePictures.h"

int EditorHost::Differences(const RECT& rect, const CQMTBitmap& bitmap, int sourceX, int sourceY) {
    cairo_surface_t* shown = driver.Snapshot(&Panel());
    int differences = 0;
    for (int y = rect.top; y < rect.bottom; ++y) {
        for (int x = rect.left; x < rect.right; ++x) {
            const int bx = sourceX + x - rect.left, by = sourceY + y - rect.top;
            differences += AlphaOf(bitmap.GetImage(), bx, by) == 0xFF &&
                           PixelOf(bitmap.GetImage(), bx, by) != PixelOf(shown, x, y);
        }
    }
    cairo_surface_destroy(shown);
    return differences;
}

CQMTBitmap& EditorHost::Load(int resource) {
    resources.emplace_back(std::make_unique<CQMTBitmap>());
    resources.back()->LoadResourceBitmap(MAKEINTRESOURCE(resource));
    return *resources.back();
}
