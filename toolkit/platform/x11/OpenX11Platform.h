// Opens the X11 platform without bringing Xlib's names into the caller.
#pragma once

#include "toolkit/platform/NativePlatform.h"

#include <memory>

namespace native {

// Null when no display can be opened.
std::shared_ptr<NativePlatform> OpenX11Platform(const char* displayName = nullptr);

} // namespace native
