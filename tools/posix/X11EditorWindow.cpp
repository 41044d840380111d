// The editor's window on an X server, through Xlib.
#include "tools/EditorWindow.h"

#include "tools/ToolError.h"

#include <X11/Xlib.h>
#include <X11/Xutil.h>
#include <cstdint>

namespace {

// Plug-ins' editors may cause protocol errors (a window already gone while closing); they
// must not end the host, which is Xlib's default reaction.
int ignoreXError(Display*, XErrorEvent*) {
    return 0;
}

// Where a colour channel sits in a pixel, from the visual's mask.
struct ChannelMask {
    explicit ChannelMask(unsigned long mask) : mask(mask) {
        while (mask != 0 && (mask & 1) == 0) {
            mask >>= 1;
            ++shift;
        }
        maximum = mask;
    }
    uint32_t eightBits(unsigned long pixel) const {
        if (maximum == 0) {
            return 0;
        }
        return static_cast<uint32_t>(((pixel & mask) >> shift) * 255 / maximum);
    }
    unsigned long mask;
    int shift = 0;
    unsigned long maximum = 0;
};

} // namespace

struct EditorWindow::System {
    Display* display = nullptr;
    Window window = 0;
    Atom deleteMessage = 0;
    int width = 0;
    int height = 0;
};

EditorWindow::EditorWindow(int width, int height, const std::string& title)
    : system(std::make_unique<System>()) {
    system->width = width;
    system->height = height;
    Display* display = XOpenDisplay(nullptr);
    if (display == nullptr) {
        throw ToolError("cannot open the X display; the editor needs one (is DISPLAY set?)");
    }
    system->display = display;
    XSetErrorHandler(ignoreXError);
    const int screen = DefaultScreen(display);
    const Window window =
        XCreateSimpleWindow(display, RootWindow(display, screen), 0, 0, width, height, 0,
                            BlackPixel(display, screen), BlackPixel(display, screen));
    system->window = window;
    XStoreName(display, window, title.c_str());
    system->deleteMessage = XInternAtom(display, "WM_DELETE_WINDOW", False);
    XSetWMProtocols(display, window, &system->deleteMessage, 1);
    XSelectInput(display, window, StructureNotifyMask);
    XMapWindow(display, window);
    // Editors expect a mapped parent; wait until the server says it is.
    for (XEvent event;;) {
        XWindowEvent(display, window, StructureNotifyMask, &event);
        if (event.type == MapNotify) {
            break;
        }
    }
}

EditorWindow::~EditorWindow() {
    if (system) {
        XDestroyWindow(system->display, system->window);
        XCloseDisplay(system->display);
    }
}

EditorWindow::EditorWindow(EditorWindow&&) noexcept = default;

void* EditorWindow::parentForEditor() const {
    return reinterpret_cast<void*>(system->window);
}

void EditorWindow::resize(int newWidth, int newHeight) {
    System& s = *system;
    if (newWidth > 0 && newHeight > 0 && (newWidth != s.width || newHeight != s.height)) {
        s.width = newWidth;
        s.height = newHeight;
        XResizeWindow(s.display, s.window, s.width, s.height);
        XFlush(s.display);
    }
}

bool EditorWindow::handleEvents() {
    Display* display = system->display;
    const Window window = system->window;
    bool open = true;
    while (XPending(display) > 0) {
        XEvent event;
        XNextEvent(display, &event);
        // Closed by the user through the window manager, or destroyed by someone else.
        const bool closeRequest =
            event.type == ClientMessage &&
            static_cast<Atom>(event.xclient.data.l[0]) == system->deleteMessage;
        const bool destroyed = event.type == DestroyNotify && event.xdestroywindow.window == window;
        open = open && !closeRequest && !destroyed;
    }
    return open;
}

CairoSurface EditorWindow::capture() {
    Display* display = system->display;
    const Window window = system->window;
    XSync(display, False);
    XWindowAttributes attributes;
    XImage* image = nullptr;
    if (XGetWindowAttributes(display, window, &attributes) != 0) {
        image = XGetImage(display, window, 0, 0, attributes.width, attributes.height, AllPlanes,
                          ZPixmap);
    }
    if (image == nullptr) {
        throw ToolError("cannot read the editor window's pixels");
    }
    CairoSurface surface(
        cairo_image_surface_create(CAIRO_FORMAT_RGB24, attributes.width, attributes.height));
    cairo_surface_flush(surface.get());
    unsigned char* pixels = cairo_image_surface_get_data(surface.get());
    const int stride = cairo_image_surface_get_stride(surface.get());
    const ChannelMask red(attributes.visual->red_mask);
    const ChannelMask green(attributes.visual->green_mask);
    const ChannelMask blue(attributes.visual->blue_mask);
    for (int y = 0; y < attributes.height; ++y) {
        auto* row = reinterpret_cast<uint32_t*>(pixels + static_cast<std::ptrdiff_t>(y) * stride);
        for (int x = 0; x < attributes.width; ++x) {
            const unsigned long pixel = XGetPixel(image, x, y);
            row[x] = (red.eightBits(pixel) << 16) | (green.eightBits(pixel) << 8) |
                     blue.eightBits(pixel);
        }
    }
    cairo_surface_mark_dirty(surface.get());
    XDestroyImage(image);
    return surface;
}
