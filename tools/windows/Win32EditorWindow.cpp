// The editor's window on Windows: a plain top-level window whose client area holds the
// editor, and the thread's message loop, as a host runs it.
#include "tools/EditorWindow.h"

#include "base/windows/WideText.h"
#include "tools/ToolError.h"

#include <windows.h>

#include <cstdint>

namespace {

const wchar_t kClassName[] = L"ZephyraCommandLineHostWindow";

LRESULT CALLBACK WindowProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_CLOSE) {
        // Closing is the loop's business: it closes the editor before the window goes.
        auto* closeRequested = reinterpret_cast<bool*>(GetWindowLongPtrW(window, GWLP_USERDATA));
        if (closeRequested)
            *closeRequested = true;
        return 0;
    }
    return DefWindowProcW(window, message, wParam, lParam);
}

void RegisterWindowClass() {
    static const bool registered = [] {
        WNDCLASSEXW windowClass = {};
        windowClass.cbSize = sizeof(windowClass);
        windowClass.lpfnWndProc = WindowProcedure;
        windowClass.hInstance = GetModuleHandleW(nullptr);
        windowClass.hCursor = LoadCursorW(nullptr, reinterpret_cast<LPCWSTR>(IDC_ARROW));
        windowClass.hbrBackground = static_cast<HBRUSH>(GetStockObject(BLACK_BRUSH));
        windowClass.lpszClassName = kClassName;
        return RegisterClassExW(&windowClass) != 0;
    }();
    if (!registered)
        throw ToolError("cannot register the editor window's class");
}

constexpr DWORD kStyle = WS_OVERLAPPED | WS_CAPTION | WS_SYSMENU | WS_MINIMIZEBOX;

// The outer size of a window whose client area has the given size.
SIZE OuterSize(int width, int height) {
    RECT frame = {0, 0, width, height};
    AdjustWindowRectEx(&frame, kStyle, FALSE, 0);
    return {frame.right - frame.left, frame.bottom - frame.top};
}

} // namespace

struct EditorWindow::System {
    HWND window = nullptr;
    bool closeRequested = false;
    int width = 0;
    int height = 0;
};

EditorWindow::EditorWindow(int width, int height, const std::string& title)
    : system(std::make_unique<System>()) {
    RegisterWindowClass();
    system->width = width;
    system->height = height;
    const SIZE outer = OuterSize(width, height);
    system->window =
        CreateWindowExW(0, kClassName, WideFromUtf8(title).c_str(), kStyle, 0, 0, outer.cx,
                        outer.cy, nullptr, nullptr, GetModuleHandleW(nullptr), nullptr);
    if (!system->window)
        throw ToolError("cannot open a window for the editor");
    SetWindowLongPtrW(system->window, GWLP_USERDATA,
                      reinterpret_cast<LONG_PTR>(&system->closeRequested));
    ShowWindow(system->window, SW_SHOWNORMAL);
    UpdateWindow(system->window);
}

EditorWindow::~EditorWindow() {
    if (system && system->window) {
        DestroyWindow(system->window);
        handleEvents();
    }
}

EditorWindow::EditorWindow(EditorWindow&&) noexcept = default;

void* EditorWindow::parentForEditor() const {
    return system->window;
}

void EditorWindow::resize(int width, int height) {
    System& s = *system;
    if (width > 0 && height > 0 && (width != s.width || height != s.height)) {
        s.width = width;
        s.height = height;
        const SIZE outer = OuterSize(width, height);
        SetWindowPos(s.window, nullptr, 0, 0, outer.cx, outer.cy,
                     SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
    }
}

bool EditorWindow::handleEvents() {
    MSG message;
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
    return !system->closeRequested && IsWindow(system->window);
}

// Reads the client area from the screen, where the editor's child windows have drawn.
CairoSurface EditorWindow::capture() {
    RECT client;
    POINT origin = {0, 0};
    if (!GetClientRect(system->window, &client) || !ClientToScreen(system->window, &origin))
        throw ToolError("cannot read the editor window's pixels");
    const int width = client.right;
    const int height = client.bottom;
    CairoSurface surface(cairo_image_surface_create(CAIRO_FORMAT_RGB24, width, height));
    cairo_surface_flush(surface.get());

    BITMAPINFO format = {};
    format.bmiHeader.biSize = sizeof(format.bmiHeader);
    format.bmiHeader.biWidth = width;
    format.bmiHeader.biHeight = -height; // top-down rows, as Cairo keeps them
    format.bmiHeader.biPlanes = 1;
    format.bmiHeader.biBitCount = 32;
    format.bmiHeader.biCompression = BI_RGB;
    void* bits = nullptr;
    HDC screen = GetDC(nullptr);
    HDC memory = CreateCompatibleDC(screen);
    HBITMAP bitmap = CreateDIBSection(screen, &format, DIB_RGB_COLORS, &bits, nullptr, 0);
    bool copied = false;
    if (memory && bitmap) {
        HGDIOBJ previous = SelectObject(memory, bitmap);
        copied = BitBlt(memory, 0, 0, width, height, screen, origin.x, origin.y, SRCCOPY) != 0;
        GdiFlush();
        SelectObject(memory, previous);
    }
    if (copied) {
        unsigned char* pixels = cairo_image_surface_get_data(surface.get());
        const int stride = cairo_image_surface_get_stride(surface.get());
        for (int y = 0; y < height; ++y) {
            const auto* from =
                static_cast<const uint32_t*>(bits) + static_cast<ptrdiff_t>(y) * width;
            auto* to = reinterpret_cast<uint32_t*>(pixels + static_cast<ptrdiff_t>(y) * stride);
            for (int x = 0; x < width; ++x)
                to[x] = from[x] & 0x00FFFFFFu;
        }
        cairo_surface_mark_dirty(surface.get());
    }
    if (bitmap)
        DeleteObject(bitmap);
    if (memory)
        DeleteDC(memory);
    ReleaseDC(nullptr, screen);
    if (!copied)
        throw ToolError("cannot read the editor window's pixels");
    return surface;
}
