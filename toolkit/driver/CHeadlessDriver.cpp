#include "toolkit/driver/CHeadlessDriver.h"

#include "toolkit/CWnd.h"
#include "toolkit/MFCView0.h"
#include "toolkit/MessagePump.h"
#include "toolkit/platform/KeyTranslation.h"
#include "toolkit/platform/headless/HeadlessView.h"

#include <algorithm>
#include <chrono>
#include <thread>

namespace {

// Far enough apart that two clicks never count as one double click.
constexpr unsigned long kClickSpacingMs = 1000;
constexpr unsigned long kDoubleClickGapMs = 100;
constexpr int kPumpSliceMs = 2;

const native::HeadlessNode* NodeOf(const CWnd* wnd) {
    MFCView0* view = wnd ? wnd->GetSafeHwnd() : nullptr;
    if (!view)
        return nullptr;
    const auto* native = dynamic_cast<const native::HeadlessView*>(view->Native());
    return native ? native->Node() : nullptr;
}

} // namespace

CHeadlessDriver::CHeadlessDriver() : m_platform(native::HeadlessPlatform::Shared()) {
    AfxSetPlatformFactory([platform = m_platform] { return platform; });
}

CHeadlessDriver::~CHeadlessDriver() {
    for (void* host : m_hostWindows)
        m_platform->DestroyHostWindow(host);
}

void* CHeadlessDriver::CreateHostWindow(const RECT& screenFrame) {
    void* host = m_platform->CreateHostWindow(screenFrame);
    m_hostWindows.push_back(host);
    return host;
}

void CHeadlessDriver::DestroyHostWindow(void* handle) {
    m_hostWindows.erase(std::remove(m_hostWindows.begin(), m_hostWindows.end(), handle),
                        m_hostWindows.end());
    m_platform->DestroyHostWindow(handle);
}

void CHeadlessDriver::Pump() {
    AfxPumpMessages();
}

void CHeadlessDriver::PumpFor(int ms) {
    const auto end = std::chrono::steady_clock::now() + std::chrono::milliseconds(ms);
    do {
        AfxPumpMessages();
        std::this_thread::sleep_for(std::chrono::milliseconds(kPumpSliceMs));
    } while (std::chrono::steady_clock::now() < end);
    AfxPumpMessages();
}

CPoint CHeadlessDriver::ToScreen(CWnd* wnd, CPoint point) const {
    wnd->ClientToScreen(&point);
    return point;
}

void CHeadlessDriver::Press(CWnd* wnd, CPoint point) {
    const CPoint at = ToScreen(wnd, point);
    m_platform->MouseDown(at.x, at.y);
}

void CHeadlessDriver::Release(CWnd* wnd, CPoint point) {
    const CPoint at = ToScreen(wnd, point);
    m_platform->MouseUp(at.x, at.y);
}

void CHeadlessDriver::Move(CWnd* wnd, CPoint point) {
    const CPoint at = ToScreen(wnd, point);
    m_platform->MouseMove(at.x, at.y);
}

void CHeadlessDriver::Wheel(CWnd* wnd, CPoint point, bool up) {
    const CPoint at = ToScreen(wnd, point);
    m_platform->MouseWheel(at.x, at.y, up);
}

void CHeadlessDriver::Click(CWnd* wnd, CPoint point) {
    const CPoint at = ToScreen(wnd, point);
    m_platform->AdvanceClock(kClickSpacingMs);
    m_platform->MouseDown(at.x, at.y);
    m_platform->MouseUp(at.x, at.y);
}

void CHeadlessDriver::DoubleClick(CWnd* wnd, CPoint point) {
    const CPoint at = ToScreen(wnd, point);
    m_platform->AdvanceClock(kClickSpacingMs);
    m_platform->MouseDown(at.x, at.y);
    m_platform->MouseUp(at.x, at.y);
    m_platform->AdvanceClock(kDoubleClickGapMs);
    m_platform->MouseDown(at.x, at.y);
    m_platform->MouseUp(at.x, at.y);
}

void CHeadlessDriver::Key(unsigned keyCode, unsigned character) {
    m_platform->AdvanceClock(1);
    m_platform->Key(keyCode, character);
}

void CHeadlessDriver::Type(const char* text) {
    for (const char* c = text; c && *c; ++c)
        Key(native::KeyCodeForCharacter(static_cast<unsigned char>(*c)),
            static_cast<unsigned char>(*c));
}

cairo_surface_t* CHeadlessDriver::Snapshot(const CWnd* wnd) const {
    const native::HeadlessNode* node = NodeOf(wnd);
    if (!node)
        return cairo_image_surface_create(CAIRO_FORMAT_ARGB32, 1, 1);
    return m_platform->Compose(*node);
}

std::uint32_t CHeadlessDriver::PixelAt(const CWnd* wnd, int x, int y) const {
    cairo_surface_t* snapshot = Snapshot(wnd);
    std::uint32_t pixel = 0;
    if (x >= 0 && y >= 0 && x < cairo_image_surface_get_width(snapshot) &&
        y < cairo_image_surface_get_height(snapshot)) {
        const unsigned char* row =
            cairo_image_surface_get_data(snapshot) + y * cairo_image_surface_get_stride(snapshot);
        pixel = reinterpret_cast<const std::uint32_t*>(row)[x] & 0xFFFFFF;
    }
    cairo_surface_destroy(snapshot);
    return pixel;
}

bool CHeadlessDriver::SavePng(const CWnd* wnd, const char* path) const {
    cairo_surface_t* snapshot = Snapshot(wnd);
    const bool written = cairo_surface_write_to_png(snapshot, path) == CAIRO_STATUS_SUCCESS;
    cairo_surface_destroy(snapshot);
    return written;
}
