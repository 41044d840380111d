#include "tools/PngFile.h"

#include "tools/ToolError.h"

void writePng(cairo_surface_t* surface, const PendingOutput& output) {
    const cairo_status_t status =
        cairo_surface_write_to_png(surface, output.temporaryPath().c_str());
    if (status != CAIRO_STATUS_SUCCESS) {
        throw ToolError("cannot write " + output.path() + ": " + cairo_status_to_string(status));
    }
}
