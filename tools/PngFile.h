// Writes a Cairo image as PNG to the temporary name of a pending output.
#pragma once

#include "tools/PendingOutput.h"

#include <cairo.h>

// Throws ToolError when the file cannot be written.
void writePng(cairo_surface_t* surface, const PendingOutput& output);
